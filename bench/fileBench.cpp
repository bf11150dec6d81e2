// A file of 16 MB to the sign, plainly and through the window, beside the same number of bare datagrams over a kept
// socket.
#include "echoPeer.h"
#include "vxBaseCMD/packet.h"

#include <vxsign/vxsign.h>

#include <algorithm>
#include <benchmark/benchmark.h>
#include <cstring>
#include <string>
#include <sys/socket.h>
#include <unistd.h>
#include <vector>

namespace vxsign::bench {
namespace {

constexpr std::size_t kFileSize = 16 << 20;
constexpr std::size_t kChunk = 768;
constexpr std::size_t kPackets = (kFileSize + kChunk - 1) / kChunk;
constexpr std::size_t kFrame = 16 + 24 + kChunk; // header, record with a short path, chunk

class LocalFile
{
public:
    LocalFile()
    {
        char name[256] = {};
        vxGetPCTempFilename(name, sizeof name, "bin");
        path = name;
        std::FILE* const file = std::fopen(name, "wb");
        const std::vector<char> content(kFileSize, 'x');
        std::fwrite(content.data(), 1, content.size(), file);
        std::fclose(file);
    }
    ~LocalFile() { std::remove(path.c_str()); }
    LocalFile(const LocalFile&) = delete;
    LocalFile& operator=(const LocalFile&) = delete;
    const char* Path() const { return path.c_str(); }

private:
    std::string path;
};

void Write(benchmark::State& state, std::uint32_t (*write)(const char*, const char*))
{
    const EchoPeer peer;
    const LocalFile file;
    vxApiConfig config{};
    std::strcpy(config.host, "127.0.0.1");
    config.port = peer.Port();
    vxInitAPI(&config);
    for (auto round : state) {
        packetIds::Set(0); // a window that id 0 falls into fails
        if (write("D:\\T\\A", file.Path()) != VX_OK)
            state.SkipWithError("no answer");
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(kFileSize) * state.iterations());
}
BENCHMARK_CAPTURE(Write, plain, vxWriteSpecFileEx)->UseRealTime()->Unit(benchmark::kMillisecond)->MinTime(1);
BENCHMARK_CAPTURE(Write, window, vxWriteFileOptimize)->UseRealTime()->Unit(benchmark::kMillisecond)->MinTime(1);

// Datagrams of the same size with `inFlight` unanswered at a time.
void BareDatagrams(benchmark::State& state)
{
    const EchoPeer peer;
    const auto inFlight = static_cast<std::size_t>(state.range(0));
    const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    std::uint8_t frame[kFrame] = {0x55, 0xA7};
    std::uint8_t reply[1536];
    const auto send = [&] {
        ::sendto(descriptor, frame, sizeof frame, 0, reinterpret_cast<const sockaddr*>(&peer.Address()),
                 sizeof(sockaddr_in));
    };
    for (auto round : state) {
        std::size_t sent = 0;
        for (; sent < std::min(inFlight, kPackets); ++sent)
            send();
        for (std::size_t answered = 0; answered < kPackets; ++answered) {
            if (::recvfrom(descriptor, reply, sizeof reply, 0, nullptr, nullptr) != 20)
                state.SkipWithError("no answer");
            if (sent < kPackets) {
                send();
                ++sent;
            }
        }
    }
    ::close(descriptor);
    state.SetBytesProcessed(static_cast<std::int64_t>(kFileSize) * state.iterations());
}
BENCHMARK(BareDatagrams)->Arg(1)->Arg(8)->UseRealTime()->Unit(benchmark::kMillisecond)->MinTime(1);

} // namespace
} // namespace vxsign::bench

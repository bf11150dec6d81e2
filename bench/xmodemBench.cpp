// A firmware file to the receiver of lrzsz, beside the sender of lrzsz. Both send over a pty, to
// a receiver that is started anew for each file. Measured is the time from the first block to the end of the last one:
// behind the end of the file the receiver listens for a second before it agrees.
#include "support/ptyRelay.h"

#include <vxsign/vxsign.h>

#include <benchmark/benchmark.h>
#include <chrono>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>
#include <vector>

namespace vxsign::bench {
namespace {

namespace fs = std::filesystem;
using test::LineProgram;
using test::PtyRelay;

constexpr std::size_t kFileSize = 512 * 1024;

/// The file to send and the place for what arrives.
class Firmware
{
public:
    Firmware() : folder(fs::temp_directory_path() / ("vxsign-xmodem-" + std::to_string(::getpid())))
    {
        fs::create_directory(folder);
        std::ofstream file(folder / "source", std::ios::binary);
        for (std::size_t i = 0; i < kFileSize; ++i)
            file.put(static_cast<char>(i * i >> 8));
    }
    ~Firmware() { fs::remove_all(folder); }
    Firmware(const Firmware&) = delete;
    Firmware& operator=(const Firmware&) = delete;

    std::string Source() const { return (folder / "source").string(); }
    std::string Target() const { return (folder / "target").string(); }
    bool Arrived() const { return fs::file_size(folder / "target") == kFileSize; }

private:
    fs::path folder;
};

template <class Send>
void Measure(benchmark::State& state, Send send)
{
    using Clock = std::chrono::steady_clock;
    constexpr std::uint8_t kEnd = 4;
    const Firmware firmware;
    for (auto round : state) {
        Clock::time_point begin;
        Clock::time_point end;
        const PtyRelay line([&](const std::vector<std::uint8_t>& bytes) {
            if (begin == Clock::time_point())
                begin = Clock::now();
            if (bytes.size() == 1 && bytes[0] == kEnd && end == Clock::time_point())
                end = Clock::now();
        });
        LineProgram receiver(line.FarEnd(), {"rx", "--with-crc", "--overwrite", firmware.Target()});
        if (!send(line.Path(), firmware.Source()) || receiver.Wait() != 0 || !firmware.Arrived())
            state.SkipWithError("the file did not arrive");
        state.SetIterationTime(std::chrono::duration<double>(end - begin).count());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * kFileSize));
}

void XModemUpgrade(benchmark::State& state)
{
    // The library tells its steps on standard output, where the measurements go.
    const int output = ::dup(STDOUT_FILENO);
    std::FILE* const silent = std::fopen("/dev/null", "w");
    Measure(state, [&](const std::string& line, const std::string& file) {
        vxApiConfig config{};
        config.kind = VX_CHANNEL_SERIAL;
        config.baudRate = 115200;
        line.copy(config.serialName, sizeof config.serialName - 1);
        vxInitAPI(&config);
        std::fflush(stdout);
        ::dup2(::fileno(silent), STDOUT_FILENO);
        const std::uint32_t result = vxXModem_Upgrade(file.c_str());
        std::fflush(stdout);
        ::dup2(output, STDOUT_FILENO);
        return result == VX_OK;
    });
    std::fclose(silent);
    ::close(output);
}
BENCHMARK(XModemUpgrade)->UseManualTime()->Iterations(1)->Repetitions(5)->ReportAggregatesOnly();

void SxUpgrade(benchmark::State& state)
{
    Measure(state, [](const std::string& line, const std::string& file) {
        const int descriptor = ::open(line.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
        const int status = LineProgram(descriptor, {"sx", "--quiet", file}).Wait();
        ::close(descriptor);
        return status == 0;
    });
}
BENCHMARK(SxUpgrade)->UseManualTime()->Iterations(1)->Repetitions(5)->ReportAggregatesOnly();

} // namespace
} // namespace vxsign::bench

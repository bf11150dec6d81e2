// Files to the virtual sign and back, whole, over lines that lose, delay and change what they carry. Time is that of
// the fake clock: hours of waiting take seconds. linesTest [--bytes N] says how large the files are.
#include "sim/server/faults.h"
#include "sim/virtualSign.h"
#include "support/bytes.h"
#include "support/fakeClock.h"
#include "support/tempFolder.h"
#include "vxBaseCMD/packet.h"
#include "vxctl/files/windowed.h"

#include <vxsign/vxsign.h>

#include <algorithm>
#include <chrono>
#include <map>
#include <random>

namespace vxsign::test {

namespace {

std::size_t bytesOfFiles = 300'000;

struct Weather
{
    const char* what;
    const char* faults;
    double lostRequests = 0; // on their way to the sign
    std::uint32_t delayMs = 2;
    double mostTime = 1.25; // of the plain transfer, with the window
    std::uint16_t lastId = 0;
};

// The line of the calling thread to a sign in this process: datagrams that arrive after a while, or not.
class Line
{
public:
    Line(const std::string& folder, const Weather& line)
        : weather(line), faults(*line.faults == '\0' ? vxsim::FaultSettings() : vxsim::ParseFaults(line.faults)),
          sign({.folder = folder})
    {
        current = this;
        vxApiConfig config{};
        config.retries = 20;
        config.timeoutMs = 100;
        config.dataSize = 1280;
        config.onWrite = [](vxApiConfig*, const std::uint8_t* bytes, std::uint32_t length, std::uint32_t) {
            current->Take({bytes, length});
            return static_cast<std::int32_t>(length);
        };
        config.onRead = [](vxApiConfig*, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs) {
            return current->Give(buffer, capacity, waitMs);
        };
        vxInitAPI(&config);
    }

private:
    void Take(std::span<const std::uint8_t> request)
    {
        if (std::bernoulli_distribution(weather.lostRequests)(random))
            return;
        Bytes reply = faults.Apply(sign.Answer(request, {.nowMs = FakeClock::NowMs()}));
        if (!reply.empty())
            arriving.emplace(FakeClock::NowMs() + weather.delayMs, std::move(reply));
    }

    std::int32_t Give(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs)
    {
        const std::uint64_t now = FakeClock::NowMs();
        const bool comes = !arriving.empty() && arriving.begin()->first <= now + waitMs;
        FakeClock::Advance(!comes ? waitMs : arriving.begin()->first > now ? arriving.begin()->first - now : 0);
        if (!comes)
            return 0;
        const Bytes datagram = std::move(arriving.extract(arriving.begin()).mapped());
        const std::size_t count = std::min<std::size_t>(datagram.size(), capacity);
        std::copy_n(datagram.begin(), count, buffer);
        return static_cast<std::int32_t>(count);
    }

    static inline Line* current = nullptr;

    Weather weather;
    vxsim::FaultInjector faults;
    vxsim::VirtualSign sign;
    std::multimap<std::uint64_t, Bytes> arriving;
    std::mt19937 random;
};

class Lossy : public testing::TestWithParam<Weather>
{
};

TEST_P(Lossy, FilesArriveWhole)
{
    packetIds::Set(GetParam().lastId);
    const FakeClock clock;
    const TempFolder folder;
    Line line(folder.Path("sign"), GetParam());
    std::string file(bytesOfFiles, '\0');
    std::ranges::generate(file, [random = std::mt19937()]() mutable { return static_cast<char>(random()); });
    const std::string local = folder.Write("local", file);
    const auto put = [&](auto send, const char* path, const std::string& arrived) {
        const std::uint64_t start = FakeClock::NowMs();
        EXPECT_EQ(send(path, local.c_str()), 0U) << path;
        EXPECT_TRUE(folder.Read(arrived) == file) << path;
        return FakeClock::NowMs() - start;
    };
    const std::uint64_t plainMs = put(vxWriteSpecFileEx, "D:\\F\\PLAIN.BIN", "sign/D/F/PLAIN.BIN");
    const std::uint64_t windowMs = put(vxctl::SendWindowed, "D:\\F\\WINDOW.BIN", "sign/D/F/WINDOW.BIN");
    EXPECT_EQ(vxReadSpecPathFileEx("D:\\F\\PLAIN.BIN", folder.Path("back").c_str()), 0U);
    EXPECT_TRUE(folder.Read("back") == file);

    std::printf("%s: %llu ms plainly, %llu ms with the window\n", GetParam().what,
                static_cast<unsigned long long>(plainMs), static_cast<unsigned long long>(windowMs));
    EXPECT_LE(static_cast<double>(windowMs), static_cast<double>(plainMs) * GetParam().mostTime);
}

INSTANTIATE_TEST_SUITE_P(
    Weathers, Lossy,
    testing::Values(Weather{"good", "", 0, 20, 0.5}, Weather{"far", "", 0, 300, 0.5},
                    Weather{"id 0", "", 0, 20, 30, 65200}, Weather{"loss", "drop=0.05", 0.05},
                    Weather{"noise", "noise=5"}, Weather{"wrong ids", "wrongid=0.1"}, Weather{"bad sums", "badsum=0.1"},
                    Weather{"cut", "truncate=0.1"}, Weather{"little loss", "drop=0.003"},
                    Weather{"all of it", "drop=0.05,truncate=0.05,wrongid=0.05,badsum=0.05,noise=5", 0.05, 40}),
    [](const auto& row) {
        std::string name = row.param.what;
        std::erase(name, ' ');
        return name;
    });

} // namespace

} // namespace vxsign::test

int main(int count, char** words)
{
    for (int i = 1; i + 1 < count; ++i)
        if (std::string_view(words[i]) == "--bytes")
            vxsign::test::bytesOfFiles = std::strtoul(words[i + 1], nullptr, 10);
    testing::InitGoogleTest(&count, words);
    return RUN_ALL_TESTS();
}

// Many threads at once, as applications have them: signs for each, ends in the middle, forks, one line for two. What
// they share without a word about it, ThreadSanitizer finds.
#include "support/servedSign.h"
#include "support/signFixture.h"

#include <vxsign/vxsign.h>

#include <array>
#include <atomic>
#include <csignal>
#include <cstdio>
#include <list>
#include <mutex>
#include <random>
#include <string>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace vxsign::test {
namespace {

using namespace std::chrono_literals;

constexpr int kThreads = 16;
constexpr int kRounds = 24;
constexpr int kForks = 12;
constexpr unsigned kPatienceSeconds = 60; // of a child

vxApiConfig ConfigOf(const ServedSign& sign, std::uint32_t kind)
{
    vxApiConfig config{};
    config.kind = kind;
    config.retries = 3;
    config.timeoutMs = 20000;
    config.port = sign.Port();
    config.dataSize = 512;
    std::snprintf(config.host, sizeof config.host, "127.0.0.1");
    std::snprintf(config.serialName, sizeof config.serialName, "%s", sign.SerialPath().c_str());
    config.baudRate = 4000000;
    return config;
}

vxApiConfig& Live()
{
    return *static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
}

// A file over and back.
std::uint32_t Carry(const TempFolder& folder, const std::string& text)
{
    const std::string sent = folder.Write("sent", text);
    const std::string back = folder.Path("back");
    const std::string path = std::string("D:\\F\\") + text.front();
    if (const std::uint32_t result = vxWriteSpecFileEx(path.c_str(), sent.c_str()))
        return result;
    if (const std::uint32_t result = vxReadSpecPathFileEx(path.c_str(), back.c_str()))
        return result;
    EXPECT_EQ(folder.Read("back"), text);
    return VX_OK;
}

std::uint32_t Light(const TempFolder&, const std::string&)
{
    std::uint8_t first = 0;
    std::uint8_t second = 0;
    if (const std::uint32_t result = vxBrightAdjust(5))
        return result;
    return vxGetPowerState(&first, &second);
}

std::uint32_t Play(const TempFolder& folder, const std::string& text)
{
    std::string list = folder.Path();
    std::string name = "list.xml";
    std::string root = "/";
    auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
    std::snprintf(info->fileName, sizeof info->fileName, "%s.nmg", text.substr(0, 4).c_str());
    info->Drive = 'D';
    info->Type = 'T';
    vxPLInit(list.data(), name.data());
    vxPLDelItem(root.data(), 0, 65535);
    vxPLAddFile(root.data(), 0, info);
    vxPLSave();
    return vxPLSendToLED(0);
}

std::uint32_t Look(const TempFolder& folder, const std::string&)
{
    const auto drop = [](std::uint32_t, const vxStatusRecord*, const std::uint8_t*, const char*) { return 0U; };
    return vxReadStatusInfo(folder.Path().c_str(), 0, 0, drop, 0, 0, 1);
}

std::uint32_t Log(const TempFolder&, const std::string&)
{
    return vxReadSignLog(0, 0, VX_LOG_READ, [](std::uint32_t, const SignLogRecord*) { return 0U; });
}

constexpr std::array kThings{Carry, Light, Play, Look, Log};

// A thread's record, as long as another thread may stop what it does.
class Stoppable
{
public:
    void Offer(vxApiConfig* record)
    {
        const std::lock_guard lock(mutex);
        offered = record;
    }
    void Stop()
    {
        const std::lock_guard lock(mutex);
        if (offered != nullptr)
            std::atomic_ref(offered->abortFlag).store(1);
    }

private:
    std::mutex mutex;
    vxApiConfig* offered = nullptr;
};

// One thing, which fails only if it was stopped, or for a file that a transfer which was stopped still holds.
void Do(const vxApiConfig& config, int thing, const TempFolder& folder, Stoppable& stoppable)
{
    vxInitAPI(&config);
    stoppable.Offer(&Live());
    const std::uint32_t result =
        kThings.at(static_cast<std::size_t>(thing))(folder, std::string(2000, static_cast<char>('a' + thing)));
    const bool stopped = std::atomic_ref(Live().abortFlag).load() != 0;
    stoppable.Offer(nullptr);
    EXPECT_TRUE(result == VX_OK || result == VX_IN_USE || stopped)
        << vxErrorDesc(result) << ", thing " << thing << ", kind " << config.kind;
}

// The end of a round may be that of its thread, with all that the library keeps for it.
void Work(const vxApiConfig& config, unsigned seed, Stoppable& stoppable)
{
    std::minstd_rand random(seed);
    const TempFolder folder;
    for (int round = 0; round < kRounds; ++round) {
        const int thing = static_cast<int>(random() % kThings.size());
        if (random() % 3 == 0)
            std::thread([&] { Do(config, thing, folder, stoppable); }).join();
        else
            Do(config, thing, folder, stoppable);
    }
}

// What a child does that its parent's threads do not know of: its own call with the records that it was born with, and
// with new ones.
bool ChildCalls(const ServedSign& sign)
{
    ::alarm(kPatienceSeconds);
    if (vxBrightAdjust(3) != VX_OK)
        return false;
    const vxApiConfig config = ConfigOf(sign, VX_CHANNEL_TCP);
    vxInitAPI(&config);
    std::uint8_t first = 0;
    std::uint8_t second = 0;
    return vxGetPowerState(&first, &second) == VX_OK;
}

TEST(Threads, SixteenOnSixteenSignsWithStopsEndsAndForks)
{
    // Another one in each round of --gtest_shuffle --gtest_repeat.
    const auto seed = static_cast<unsigned>(testing::UnitTest::GetInstance()->random_seed() + 1);
    std::list<ServedSign> signs(kThreads);
    std::array<Stoppable, kThreads> stoppables;
    const vxApiConfig own = ConfigOf(signs.front(), VX_CHANNEL_UDP);
    std::atomic<int> running = kThreads;
    {
        std::vector<std::jthread> threads;
        auto sign = signs.begin();
        for (unsigned i = 0; i < kThreads; ++i, ++sign)
            threads.emplace_back([config = ConfigOf(*sign, i % 3), i, seed, &stoppables, &running] {
                Work(config, seed + i, stoppables.at(i));
                --running;
            });
        vxInitAPI(&own);
        std::minstd_rand random(seed);
        for (int i = 0; running > 0; ++i) {
            if (i < kForks) {
                const pid_t child = ::fork();
                if (child == 0)
                    std::_Exit(i % 2 == 0 || ChildCalls(signs.front()) ? 0 : 1);
                int status = -1;
                EXPECT_EQ(::waitpid(child, &status, 0), child);
                EXPECT_EQ(status, 0) << "child " << i;
            }
            stoppables.at(random() % kThreads).Stop();
            std::this_thread::sleep_for(5ms);
        }
    }
}

// A line is for one call at a time: the other one hears at once that it has none, and loses nothing.
TEST(Threads, TwoOnOneSerialLine)
{
    const ServedSign sign;
    std::vector<std::jthread> threads;
    for (unsigned level = 3; level < 5; ++level)
        threads.emplace_back([&sign, level] {
            const vxApiConfig config = ConfigOf(sign, VX_CHANNEL_SERIAL);
            vxInitAPI(&config);
            const TempFolder folder;
            for (int done = 0; done < 12;) {
                const std::uint32_t result = done % 4 == 0
                                                 ? Carry(folder, std::string(1500, static_cast<char>('a' + level)))
                                                 : vxBrightAdjust(static_cast<std::uint8_t>(level));
                EXPECT_TRUE(result == VX_OK || result == VX_COMMUNICATION) << vxErrorDesc(result);
                done += result == VX_OK ? 1 : 0;
            }
        });
}

} // namespace
} // namespace vxsign::test

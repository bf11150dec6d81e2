// Commands on many threads, each with a sign of its own.
#include "vxctl/cli/outcome.h"
#include "vxctl/cli/interrupt.h"

#include "support/udpPeer.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <deque>
#include <sys/socket.h>
#include <thread>
#include <unistd.h>

namespace vxctl::test {
namespace {

using namespace std::chrono_literals;
using vxsign::test::Bytes;
using vxsign::test::MakeReply;
using vxsign::test::Packet;
using vxsign::test::UdpPeer;
using Words = std::vector<std::string>;

Options OptionsOf(std::uint16_t port, std::uint32_t timeoutMs = 20000)
{
    return {"udp://127.0.0.1:" + std::to_string(port), timeoutMs, 1, 768, 0};
}

// A thread has the signs one after the other, all threads at once have different ones, and each sign gets what is its
// own: a good one its brightness, a refusing one an order that it does not take, a mute one an attempt.
TEST(Outcome, IsThatOfItsSignOnAnyThread)
{
    constexpr std::size_t kThreads = 8;
    constexpr std::size_t kRounds = 8;
    const Order count({"ping", "-n", "1"});
    const auto good = [](const Bytes& request) { return MakeReply({request}, 0, {}, {}); };
    const auto refusing = [](const Bytes& request) { return MakeReply({request}, 1, {3, 12, 0, 0}, {}); };
    std::deque<UdpPeer> signs;
    for (std::size_t i = 0; i < kThreads; ++i) {
        if (i % 2 == 0)
            signs.emplace_back(good);
        else
            signs.emplace_back(refusing);
    }
    std::vector<std::jthread> threads;
    threads.reserve(kThreads);
    for (std::size_t thread = 0; thread < kThreads; ++thread) {
        threads.emplace_back([&signs, &count, thread] {
            for (std::size_t round = 0; round < kRounds; ++round) {
                const std::size_t which = (thread + round) % kThreads;
                const Options sign = OptionsOf(signs[which].Port());
                const Outcome outcome = RunOn(sign, {"--timeout", "50", "bright", std::to_string(which)});
                EXPECT_EQ(outcome.result, which % 2 == 0 ? 0U : 3075U) << outcome.reason;
                EXPECT_EQ(outcome.status, which % 2 == 0 ? 0 : 1);
                EXPECT_EQ(outcome.advice.empty(), which % 2 == 0);
                const Outcome ping = RunOn(sign, count);
                EXPECT_EQ(ping.values["answered"], 1 - which % 2);
                EXPECT_EQ(ping.lines.rfind("1 sent, " + std::to_string(1 - which % 2) + " answered", 0), 0U);
            }
        });
    }
    threads.clear();
    for (std::size_t which = 0; which < kThreads; ++which) {
        std::size_t levels = 0;
        for (const Packet& request : signs[which].TakeRequests()) {
            if (request.Major() == 4) {
                ++levels;
                EXPECT_EQ(request.Payload().at(0), which);
            }
        }
        EXPECT_EQ(levels, kRounds);
    }
}

TEST(Outcome, SaysWhatWasRefusedAhead)
{
    const std::pair<Words, const char*> rows[] = {
        {{"bright"}, "LEVEL is required"},
        {{"bright", "300"}, "LEVEL: '300' is no number from 0 to 255"},
        {{"upgrade", "/dev/null"}, "upgrade takes one sign at a time"},
        {{"help", "bright"}, "help takes one sign at a time"},
        {{"--version"}, "no command, but a question about vxctl"},
        {{"modbus", "LC", "get", "1"}, "LC get takes DEVICE REGISTER"},
    };
    for (const auto& [words, complaint] : rows) {
        const Outcome outcome = RunOn(OptionsOf(9), words);
        EXPECT_EQ(outcome.result, VX_ARGUMENTS);
        EXPECT_EQ(outcome.status, kExitUsage);
        EXPECT_EQ(outcome.reason.find(complaint), 0U) << outcome.reason;
        EXPECT_EQ(outcome.lines + outcome.values.dump(), "{}");
        EXPECT_TRUE(outcome.isRefused);
    }
    EXPECT_EQ(RunOn({"udp://no host", 50, 1, 768, 0}, Words{"blank"}).status, kExitUsage);
}

// Threads that have ended leave nothing behind that an abort could write to.
void AbortAll()
{
    std::uint16_t port = 0;
    const int mute = vxsign::test::BoundSocket(SOCK_DGRAM, port);
    std::jthread([port] { RunOn(OptionsOf(port, 50), {"blank"}); }).join();
    std::atomic<int> aborted{0};
    {
        std::array<std::jthread, 4> threads;
        for (std::jthread& thread : threads)
            thread = std::jthread([&] { aborted += RunOn(OptionsOf(port, 60000), {"blank"}).result == VX_ABORTED; });
        std::this_thread::sleep_for(20ms);
        Abort();
    }
    aborted += RunOn(OptionsOf(port, 60000), {"blank"}).result == VX_ABORTED; // which begins afterwards
    ::close(mute);
    std::exit(aborted);
}

TEST(Outcome, IsThatOfAnAbortOnAllThreads)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe"); // an abort is for good
    EXPECT_EXIT(AbortAll(), testing::ExitedWithCode(5), "");
}

} // namespace
} // namespace vxctl::test

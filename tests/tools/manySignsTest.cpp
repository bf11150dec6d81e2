// Many signs: who they are, who has a turn, what is told of them.
#include "support/tempFolder.h"
#include "vxctl/cli/commandLine.h"
#include "vxctl/many/account.h"
#include "vxctl/many/pool.h"
#include "vxctl/many/targets.h"
#include "vxctl/many/watchTable.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <set>

namespace vxctl::test {
namespace {

using namespace std::chrono_literals;
using vxsign::test::TempFolder;
using Words = std::vector<std::string>;

std::vector<Target> Named(Words words)
{
    CommandLine line;
    words.emplace_back("blank");
    const Args args = line.ArgsOf(line.Parse(words));
    return TargetsOf(args, args.List("--sign"));
}

TEST(Targets, AreThoseOfTheBookAndThenTheUrls)
{
    const TempFolder folder;
    const std::string book = folder.Write("signs.toml", R"(
timeout = 100
[sign.b]
url = "udp://10.0.0.2"
retries = 7
groups = ["g"]
[sign.a]
url = "udp://10.0.0.1"
groups = ["g"])");
    const std::string failed = folder.Write("failed", "a\nudp://10.0.0.9\n");
    const std::string none = folder.Write("none", "\n");
    // Words, and name, URL, time-out and tries of each sign.
    const std::pair<Words, const char*> rows[] = {
        {{"-s", "udp://10.0.0.1", "-s", "udp://10.0.0.9", "-s", "a"},
         "a udp://10.0.0.1 100 3, udp://10.0.0.9 udp://10.0.0.9 3000 3, "},
        {{"-s", "group:g", "-s", "all", "-s", "b"}, "b udp://10.0.0.2 100 7, a udp://10.0.0.1 100 3, "},
        {{"-s", "b", "--timeout", "50", "--retries", "1"}, "b udp://10.0.0.2 50 1, "},
        {{"-s", "udp://x", "-s", "udp://x", "--retries", "2"}, "udp://x udp://x 3000 2, "},
        {{"-s", "b", "--retry-failed", failed}, "a udp://10.0.0.1 100 3, udp://10.0.0.9 udp://10.0.0.9 3000 3, "},
        {{"-s", "b", "--retry-failed", none}, "b udp://10.0.0.2 100 7, "},
        {{}, "udp://127.0.0.1:9520 udp://127.0.0.1:9520 3000 3, "},
    };
    for (auto [words, wanted] : rows) {
        words.insert(words.end(), {"--book", book});
        std::string found;
        for (const auto& [name, options] : Named(words))
            found += name + " " + options.url + " " + std::to_string(options.timeoutMs) + " " +
                     std::to_string(options.retries) + ", ";
        EXPECT_EQ(found, wanted);
    }
    EXPECT_THROW(Named({"--book", book, "-s", "c"}), UsageError);
    WriteNames(failed, {"x", "y"});
    EXPECT_EQ(ReadNames(failed), (Words{"x", "y"}));
    WriteNames(failed, {});
    EXPECT_EQ(ReadNames(failed), Words()) << "and no file is left";
}

struct Turns
{
    std::set<std::size_t> taken;
    std::size_t begun = 0;
    int most = 0; // at a time
};

Turns Work(std::size_t count, std::size_t jobs, std::size_t failing, Pool::AtFailure then)
{
    std::atomic<int> now{0};
    std::atomic<int> most{0};
    Turns turns;
    Pool pool(
        count, jobs,
        [&](std::size_t which) {
            most = std::max<int>(most, ++now);
            std::this_thread::yield();
            --now;
            return Outcome{.status = which == failing ? 1 : 0};
        },
        then);
    while (!pool.IsOver()) {
        for (const auto& [which, outcome] : pool.Take(1000ms)) {
            EXPECT_TRUE(turns.taken.insert(which).second) << which;
            EXPECT_EQ(outcome.status, which == failing ? 1 : 0);
        }
    }
    turns.begun = pool.Begun();
    turns.most = most;
    return turns;
}

TEST(Pool, GivesEachSignATurnAndNoMoreThanSoManyAtATime)
{
    const Turns all = Work(1000, 8, 7, Pool::AtFailure::kGoOn);
    EXPECT_EQ(all.taken.size(), 1000U);
    EXPECT_LE(all.most, 8);
    const Turns some = Work(1000, 1, 7, Pool::AtFailure::kBeginNoMore);
    EXPECT_EQ(some.taken.size(), 8U);
    EXPECT_EQ(some.begun, 8U);
    EXPECT_EQ(Work(0, 4, 0, Pool::AtFailure::kGoOn).begun, 0U);
}

TEST(ManySigns, HaveAFailureInOneLine)
{
    EXPECT_EQ(WhyOf({.result = VX_ARGUMENTS, .status = 2, .reason = "no", .isRefused = true}), "no");
    EXPECT_EQ(WhyOf({.result = VX_COMMUNICATION, .status = 1, .reason = "cut", .advice = "mend"}),
              "error 20736 (0x5100): Communication Error!; cut");
    EXPECT_EQ(WhyOf({.result = VX_ABORTED, .status = 130, .advice = "again"}),
              "error 20497 (0x5011): Operation Abort!; again");
    EXPECT_EQ(WhyOf({.status = 5}), "exit status 5");
}

std::string Text(const std::vector<Shown>& lines)
{
    std::string text;
    for (const Shown& line : lines)
        text += line.Text() + "\n";
    return text;
}

TEST(WatchTable, FitsTheScreenAndShowsFirstWhatIsNotWell)
{
    const std::vector<Target> signs{{"a", {}}, {"b", {}}, {"c", {}}};
    const auto good = [](std::uint32_t state, const char* playing) {
        Outcome outcome;
        outcome.values = {{"state", state == 0 ? Report::Json::array() : Report::Json{"dark-face"}},
                          {"stateCode", state},
                          {"playing", playing},
                          {"measured", {{"insideC", -3}, {"hottestTileC", 40}}},
                          {"warnings", Report::Json::array()}};
        return outcome;
    };
    const WatchTable::Clock::time_point start{1h};
    WatchTable table(signs);
    table.Take(0, good(0, "A.NMG"), start);
    table.Take(1, good(0, "B.NMG"), start);
    EXPECT_EQ(Text(table.Lines({80, 24}, start + 2s)), "sign  state  plays  inside  hottest  warnings  age\n"
                                                       "a     well   A.NMG  -3 C    40 C     0         2 s\n"
                                                       "b     well   B.NMG  -3 C    40 C     0         2 s\n"
                                                       "c\n");
    table.Take(2, good(16, "\x1b[2J\xc3\xa4"), start + 1s);
    table.Take(1, {.result = VX_COMMUNICATION, .status = 1}, start + 1s);
    EXPECT_TRUE(table.HasFailed());
    EXPECT_EQ(Text(table.Lines({22, 5}, start + 4s)), "sign  state           \n"
                                                      "b     Communication Er\n"
                                                      "c     dark face       \n"
                                                      "and 1 more\n");
    EXPECT_EQ(table.Line(1), "b: Communication Error!");
    EXPECT_EQ(table.Line(0), "a: well, plays A.NMG, -3 C inside, hottest tile 40 C, warnings 0");
    table.Take(1, good(0, "B.NMG"), start + 5s);
    EXPECT_FALSE(table.HasFailed());
}

} // namespace
} // namespace vxctl::test

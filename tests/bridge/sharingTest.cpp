// Which bridge polls what, and when.
#include "vxbridge/work/sharing.h"
#include "vxbridge/mqtt/brokerAddress.h"
#include "vxbridge/mqtt/topics.h"
#include "vxbridge/work/peers.h"
#include "vxbridge/work/pollPlan.h"
#include "vxctl/cli/failure.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace vxbridge::test {
namespace {

using namespace std::chrono_literals;

std::string SignName(int number)
{
    return "sign-" + std::to_string(number);
}

TEST(Sharing, IsEvenAndMovesNoMoreThanItMust)
{
    const std::set<std::string> all{"a", "b", "c"};
    std::map<std::string, int> counts;
    for (int i = 0; i < 3000; ++i) {
        const std::string owner = OwnerOf(SignName(i), all);
        ++counts[owner];
        if (owner != "b") {
            EXPECT_EQ(owner, OwnerOf(SignName(i), {"a", "c"}));
        }
    }
    for (const auto& [bridge, count] : counts)
        EXPECT_NEAR(1000, count, 150) << bridge;
    EXPECT_EQ("", OwnerOf("sign", {}));
    EXPECT_EQ("b", OwnerOf("sign-1", all)); // bridges of different versions have to agree
    EXPECT_EQ("c", OwnerOf("sign-2", all));
}

TEST(Sharing, KnowsThePeersOfEachSite)
{
    Peers peers("self");
    EXPECT_TRUE(peers.Take("x", *Peers::Parse(R"({"bridge": "x", "online": true, "sites": ["a", 7]})")));
    EXPECT_FALSE(peers.Take("x", {true, {"a"}}));
    EXPECT_FALSE(peers.Take("self", {false, {}}));
    EXPECT_EQ((std::set<std::string>{"self", "x"}), peers.With("a"));
    EXPECT_EQ((std::set<std::string>{"self"}), peers.With("b"));
    EXPECT_TRUE(peers.Take("x", *Peers::Parse(Peers::Format("x", {false, {"a"}}))));
    EXPECT_EQ((std::set<std::string>{"self"}), peers.With("a"));
    for (const char* const nonsense : {"", "{", "[]", "{}", R"({"online": 1, "sites": []})", R"({"online": true})"})
        EXPECT_FALSE(Peers::Parse(nonsense)) << nonsense;
}

TEST(Plan, SpreadsThePollsAndKeepsTheirMoments)
{
    constexpr int kSigns = 600;
    std::vector<PollPlan::Interval> intervals(kSigns, 60s);
    intervals[5] = 0s; // another bridge's
    PollPlan plan;
    PollPlan::Time now{12345ms};
    plan.Make(intervals, now);
    std::map<std::size_t, int> polled;
    for (int second = 0; second < 120; ++second) {
        now += 1s;
        const auto due = plan.TakeDue(now);
        if (second == 30)
            plan.Make(intervals, now); // which moves nothing
        EXPECT_NEAR(10, static_cast<double>(due.size()), 1) << second;
        for (const std::size_t place : due)
            ++polled[place];
    }
    EXPECT_EQ(kSigns - 1U, polled.size());
    EXPECT_TRUE(std::ranges::all_of(polled, [](const auto& count) { return count.second == 2; }));
    now += 600s; // an hour asleep is not made up for
    EXPECT_EQ(kSigns - 1U, plan.TakeDue(now).size());
}

TEST(Topics, AreReadAsTheyAreWritten)
{
    EXPECT_EQ("vx/a7/s1/cmd/show", SignTopic("a7", "s1", "cmd/show"));
    const auto topic = ParseCommandTopic("vx/a7/s1/cmd/show");
    EXPECT_EQ("a7 s1 show", topic->site + " " + topic->sign + " " + topic->verb);
    EXPECT_EQ("b1", ParseOnlineTopic(OnlineTopic("b1")));
    EXPECT_EQ("$share/vxbridge/vx/a7/+/cmd/+", CommandFilter("a7"));
    for (const char* const other :
         {"", "/", "vx/a7/s1/state", "vx/a7/s1/cmd", "vx/a7/s1/cmd/show/more", "x/a7/s1/cmd/show"})
        EXPECT_FALSE(ParseCommandTopic(other)) << other;
    for (const char* const other : {"vx/a7/s1/online", "vx/bridge/b1", "vx/bridge/b1/online/x"})
        EXPECT_FALSE(ParseOnlineTopic(other)) << other;
}

TEST(Broker, IsAUrl)
{
    struct Row
    {
        const char* url;
        const char* host;
        int port;
        bool isSecret;
    };
    for (const Row& row :
         {Row{"mqtt://h", "h", 1883, false}, {"mqtts://h.x", "h.x", 8883, true}, {"mqtt://h:7", "h", 7, false}}) {
        BrokerAddress address;
        ParseBrokerUrl(row.url, address);
        EXPECT_EQ(row.host, address.host);
        EXPECT_EQ(row.port, address.port);
        EXPECT_EQ(row.isSecret, address.isSecret);
    }
    BrokerAddress address;
    for (const char* const url :
         {"", "h", "http://h", "mqtt://", "mqtt://h:0", "mqtt://h:65536", "mqtt://u@h", "mqtt://h/x"})
        EXPECT_THROW(ParseBrokerUrl(url, address), vxctl::UsageError) << url;
}

} // namespace
} // namespace vxbridge::test

// What the broker is told of a sign, and what Prometheus reads of it.
#include "vxbridge/sign/signBoard.h"
#include "vxbridge/metrics/metrics.h"
#include "vxbridge/sign/homeAssistant.h"

#include <gtest/gtest.h>

#include <string>

namespace vxbridge::test {
namespace {

class Board : public testing::Test
{
protected:
    Board()
    {
        sign.name = "s.1";
        sign.site = "a7";
        sign.labels = {{"road", "A\"7"}, {"drive", "x"}, {"1-st", "y"}};
        outcome.values = Json::parse(R"({"stateCode": 8, "state": ["no-power"], "power": false, "lightEighths": 4,
            "measured": {"insideC": -5, "humidityPercent": 55}, "warnings": [{}, {}], "playing": null,
            "drives": [{"drive": "D", "totalBytes": 9, "freeBytes": 7}], "clock": "2026-11-22T16:00:00+00:00"})");
    }

    // The topics that a poll brings, by their last levels.
    std::string Poll()
    {
        std::string topics;
        now += std::chrono::seconds(60);
        for (const Publication& publication : board.Take(sign, outcome, now)) {
            topics += (topics.empty() ? "" : " ") + publication.topic.substr(publication.topic.rfind('/') + 1);
            last = Json::parse(publication.payload);
        }
        return topics;
    }

    vxctl::BookSign sign;
    vxctl::Outcome outcome;
    SignBoard board;
    WallTime now{};
    Json last;
};

TEST_F(Board, TellsChangesAndEverythingEachTenthTime)
{
    EXPECT_EQ("state warnings playing availability", Poll());
    EXPECT_EQ("", Poll());
    outcome.values["playing"] = "A.NMG";
    outcome.values["clock"] = "2026-11-22T16:01:00+00:00"; // which is no news
    EXPECT_EQ("playing", Poll());
    EXPECT_EQ("A.NMG", last["playing"]);
    EXPECT_EQ("1970-01-01T00:03:00Z", last["time"]);
    std::string told;
    for (int i = 3; i < 11; ++i)
        told += Poll();
    EXPECT_EQ("state warnings playing availability", told);
}

TEST_F(Board, TellsOfADeadSignWithTheReason)
{
    Poll();
    outcome.result = VX_COMMUNICATION;
    outcome.values = Json::object();
    EXPECT_EQ("availability", Poll());
    EXPECT_EQ("Communication Error!", last["reason"]);
    EXPECT_TRUE(board.IsDead("s.1"));
    EXPECT_EQ("", Poll());
    EXPECT_EQ("1970-01-01T00:02:00Z", last["since"]);
    EXPECT_EQ(4U, board.All().size()); // with the last state that is known
    board.Forget("s.1");
    EXPECT_FALSE(board.IsDead("s.1"));
    for (const Publication& gone : SignBoard::Removal(sign))
        EXPECT_TRUE(gone.isRetained && gone.payload.empty() && gone.topic.starts_with("vx/a7/s.1/"));
}

TEST_F(Board, BecomesMetrics)
{
    Poll();
    const std::string text = TextOf(SignFamilies({sign}, board, ""));
    const std::string labels = R"({site="a7",sign="s.1",label_1_st="y",label_drive="x",road="A\"7")";
    for (const char* const line :
         {"vx_sign_available%} 1", "vx_sign_state%} 8", "vx_sign_power%} 0", "vx_sign_light_ratio%} 0.5",
          "vx_sign_temperature_celsius%,place=\"inside\"} -5", "vx_sign_warnings%} 2", "vx_sign_playing%} 0",
          "vx_sign_drive_free_bytes%,drive=\"D\"} 7"}) {
        std::string expected = line;
        expected.replace(expected.find('%'), 1, labels);
        EXPECT_NE(std::string::npos, text.find(expected + "\n")) << expected << "\n" << text;
    }
    EXPECT_EQ(std::string::npos, text.find("outside")); // the sign did not tell
    EXPECT_EQ("", TextOf(SignFamilies({sign}, board, "other")));
    EXPECT_EQ("", TextOf(SignFamilies({}, board, "")));
}

TEST_F(Board, IsIntroducedToHomeAssistant)
{
    const auto told = DiscoveryOf(sign, "ha");
    EXPECT_EQ("ha/light/a7_s_1/light/config", told.front().topic);
    for (const Publication& publication : told) {
        const Json config = Json::parse(publication.payload);
        EXPECT_EQ("vx/a7/s.1/availability", config["availability_topic"]);
        for (const auto& [key, value] : config.items())
            EXPECT_TRUE(!key.ends_with("topic") || value.get<std::string>().starts_with("vx/a7/s.1/")) << key;
    }
    EXPECT_EQ(told.size(), DiscoveryRemoval(sign, "ha").size());
}

} // namespace
} // namespace vxbridge::test

// Times as the tool reads and prints them.
#include "vxctl/cli/clockTime.h"

#include <cstdlib>
#include <gtest/gtest.h>
#include <string>
#include <tuple>

namespace vxctl_tests {
namespace {

using vxctl::ClockTime;
using vxctl::FolderTime;
using vxctl::ParseClockTime;

TEST(ClockTime, IsReadInFull)
{
    EXPECT_EQ(ParseClockTime("2026-11-21 14:05:59"), (ClockTime{2026, 11, 21, 14, 5, 59}));
    EXPECT_EQ(ParseClockTime("2024-02-29T00:00"), (ClockTime{2024, 2, 29, 0, 0, 0}));
    EXPECT_EQ(ParseClockTime("1970-01-01 23:59"), (ClockTime{1970, 1, 1, 23, 59, 0}));
    const auto expectNone = [](std::initializer_list<const char*> texts) {
        for (const char* const text : texts)
            EXPECT_EQ(ParseClockTime(text), std::nullopt) << text;
    };
    expectNone({"", "now", "14:05", "2026-11-21", "2026-11-21 14", "2026-11-21 1:05",
                "2026-11-21 14:05:", "2026-11-21 14:05Z", "2026-11-21 14:05:30 ", "2026/11/21 14:05",
                "2026-11-21  14:05", "+026-11-21 14:05"});
    expectNone({"1969-12-31 23:59", "2026-02-29 00:00", "2026-00-10 00:00", "2026-13-10 00:00", "2026-11-00 00:00",
                "2026-11-31 00:00", "2026-11-21 24:00", "2026-11-21 14:60", "2026-11-21 14:05:60"});
}

TEST(ClockTime, OfAFolderIsUnpacked)
{
    EXPECT_EQ(FolderTime(0x5D75, 0x70BD), (ClockTime{2026, 11, 21, 14, 5, 58}));
    EXPECT_EQ(FolderTime(0x0021, 0x0000), (ClockTime{1980, 1, 1, 0, 0, 0}));
    EXPECT_EQ(FolderTime(0xFF9F, 0xBF7D), (ClockTime{2107, 12, 31, 23, 59, 58}));
    EXPECT_EQ(FolderTime(0, 0), std::nullopt);
    EXPECT_EQ(FolderTime(0x5D75, 0xFFFF), std::nullopt); // 31:63:62
    EXPECT_EQ(FolderTime(0xFFFF, 0), std::nullopt);      // month 15
}

TEST(ClockTime, HasTheZoneOfThisPc)
{
    const std::tuple<const char*, ClockTime, const char*> rows[] = {
        {"CET-1CEST,M3.5.0,M10.5.0/3", {2026, 1, 4, 3, 2, 1}, "2026-01-04T03:02:01+01:00"},
        {"CET-1CEST,M3.5.0,M10.5.0/3", {2026, 7, 9, 0, 0, 0}, "2026-07-09T00:00:00+02:00"},
        {"NST3:30", {9999, 12, 31, 23, 59, 59}, "9999-12-31T23:59:59-03:30"},
        {"UTC0", {1970, 1, 1, 0, 0, 0}, "1970-01-01T00:00:00+00:00"},
        {"UTC0", {2026, 2, 29, 0, 0, 0}, ""}, // a sign may tell any numbers
        {"UTC0", {0, 0, 0, 0, 0, 0}, ""},
        {"UTC0", {65535, 1, 1, 0, 0, 0}, ""},
    };
    const char* const former = std::getenv("TZ");
    const std::string kept = former != nullptr ? former : "";
    for (const auto& [zone, time, wanted] : rows) {
        ::setenv("TZ", zone, 1);
        EXPECT_EQ(vxctl::IsoTime(time), wanted);
    }
    former != nullptr ? ::setenv("TZ", kept.c_str(), 1) : ::unsetenv("TZ");
}

TEST(ClockTime, IsWrittenWithItsWeekday)
{
    const ClockTime time{2026, 1, 4, 3, 2, 1};
    EXPECT_EQ(vxctl::FormatTime(time, ' '), "2026-01-04 03:02:01");
    EXPECT_EQ(vxctl::FormatTime(time, 'T', false), "2026-01-04T03:02");
    EXPECT_EQ(vxctl::Weekday(time), 0);
    EXPECT_EQ(vxctl::Weekday({2026, 11, 21, 0, 0, 0}), 6);
    // What a sign tells may be any numbers.
    EXPECT_FALSE(vxctl::FormatTime({65535, 255, 255, 255, 255, 255}, 'T').empty());
}

} // namespace
} // namespace vxctl_tests

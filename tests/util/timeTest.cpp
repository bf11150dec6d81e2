// Times and sleep.
#include "support/fakeClock.h"

#include <vxsign/local.h>

#include <array>
#include <cstring>
#include <gtest/gtest.h>

namespace {

using vxsign::test::FakeClock;

TEST(Time, LocalTimeInItsThreeForms)
{
    const FakeClock clock;
    FakeClock::SetLocalTime({2020, 5, 13, 10, 20, 31, 3});
    std::uint16_t date = 0;
    std::uint16_t time = 0;
    vxGetDOSTime(&date, &time);
    EXPECT_EQ(date, 0x50AD); // 40 years, May, 13
    EXPECT_EQ(time, 0x528F); // 10:20, 15 double seconds

    std::array<std::uint8_t, 9> fields{};
    fields[8] = 0xEE;
    vxGetDateTime(fields.data());
    EXPECT_EQ(fields, (std::array<std::uint8_t, 9>{0xE4, 0x07, 5, 13, 10, 20, 31, 3, 0xEE}));

    char text[32];
    EXPECT_EQ(vxTM_DecodeDosTime(0x528F50AD, text, sizeof text), 0u);
    EXPECT_STREQ(text, "2020-05-13 10:20:30");

    const std::uint32_t ms = vxSysUpTimeMS();
    const std::uint32_t seconds = vxSystemUpTimeSec();
    vxSleep(2500);
    EXPECT_EQ(FakeClock::SleptMs(), 2500u);
    EXPECT_EQ(vxSysUpTimeMS() - ms, 2500u);
    FakeClock::Advance(57'500);
    EXPECT_EQ(vxSystemUpTimeSec() - seconds, 60u);
}

TEST(Time, WhatTheFormDoesNotHoldIsNeitherCorrectedNorWritten)
{
    char text[32];
    vxTM_DecodeDosTime(0xFFFFFFFF, text, sizeof text);
    EXPECT_STREQ(text, "2107-15-31 31:63:62");
    vxTM_DecodeDosTime(0, text, sizeof text);
    EXPECT_STREQ(text, "1980-00-00 00:00:00");

    std::memset(text, 'x', sizeof text);
    EXPECT_EQ(vxTM_DecodeDosTime(0, text, 5), 0u);
    EXPECT_STREQ(text, "1980");
    EXPECT_EQ(text[5], 'x');
    EXPECT_EQ(vxTM_DecodeDosTime(0, text, 0), 0u);
    EXPECT_EQ(vxTM_DecodeDosTime(0, nullptr, 20), 0u);

    const FakeClock clock;
    std::uint16_t date = 7;
    std::uint16_t time = 8;
    vxGetDOSTime(&date, nullptr);
    vxGetDOSTime(nullptr, &time);
    vxGetDateTime(nullptr);
    for (const std::uint16_t year : {std::uint16_t{1979}, std::uint16_t{2108}}) {
        FakeClock::SetLocalTime({year, 1, 1, 0, 0, 0, 0});
        vxGetDOSTime(&date, &time);
    }
    EXPECT_EQ(date, 7);
    EXPECT_EQ(time, 8);
    for (const auto& [year, wanted] : {std::pair<std::uint16_t, int>{1980, 0x0021}, {2107, 0xFE21}}) {
        FakeClock::SetLocalTime({year, 1, 1, 0, 0, 0, 0});
        vxGetDOSTime(&date, &time);
        EXPECT_EQ(date, wanted);
    }
}

} // namespace

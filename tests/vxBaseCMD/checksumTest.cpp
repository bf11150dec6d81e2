// Checksums and the texts of result words.
#include <vxsign/result.h>

#include <gtest/gtest.h>
#include <numeric>
#include <vector>

namespace {

constexpr std::uint32_t kSum = 0;
constexpr std::uint32_t kCrc = 1;

TEST(Checksum, KnownVectors)
{
    EXPECT_EQ(vxChkSum("123456789", 0, 9, kCrc), 0x6E90u);
    EXPECT_EQ(vxChkSum("xx123456789yy", 2, 11, kCrc), 0x6E90u);
    EXPECT_EQ(vxChkSum("123456789", 0, 9, kSum), 477u);
    EXPECT_EQ(vxChkSum("123456789", 0, 9, 7), 477u);

    for (const std::uint32_t mode : {kSum, kCrc}) {
        EXPECT_EQ(vxChkSum("abc", 2, 2, mode), 0u);
        EXPECT_EQ(vxChkSum("abc", 2, 1, mode), 0u);
        EXPECT_EQ(vxChkSum(nullptr, 0, 4, mode), 0u);
    }
}

// The plain rule, one byte and one bit at a time, against the sliced forms: every length around their steps, and sums
// that run over 16 bits.
TEST(Checksum, EveryLengthAgreesWithTheRule)
{
    std::vector<std::uint8_t> bytes(5000);
    std::iota(bytes.begin(), bytes.end(), std::uint8_t{201});
    std::fill(bytes.begin() + 700, bytes.end(), std::uint8_t{255});
    unsigned sum = 0;
    unsigned crc = 0xFFFF;
    for (std::uint32_t length = 1; length <= bytes.size(); ++length) {
        const unsigned byte = bytes[length - 1];
        sum += byte;
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? (crc >> 1) ^ 0x8408 : crc >> 1;
        const unsigned complement = ~crc & 0xFFFF;
        ASSERT_EQ(vxChkSum(bytes.data(), 0, length, kSum), sum & 0xFFFF) << length;
        ASSERT_EQ(vxChkSum(bytes.data(), 0, length, kCrc), ((complement << 8) | (complement >> 8)) & 0xFFFF) << length;
    }
}

TEST(ResultWords, TextsByCode)
{
    EXPECT_STREQ(vxErrorDesc(0), "OK");
    EXPECT_STREQ(vxErrorDesc(256), "DLL Call Error");
    EXPECT_STREQ(vxErrorDesc(257), "DLL Call Error");
    EXPECT_STREQ(vxErrorDesc(8452), "Not enough space in driver D !!");
    EXPECT_STREQ(vxErrorDesc(20736), "Communication Error!");
    EXPECT_STREQ(vxErrorDesc(36864), "Process OK");
    EXPECT_STREQ(vxErrorDesc(65535), "CtrlBoard Task Queue Full Error!");
    for (const std::uint32_t unlisted : {4u, 3082u, 20480u, 36871u, 65536u, 0xFFFFFFFFu})
        EXPECT_STREQ(vxErrorDesc(unlisted), "Unknow Error!") << unlisted;
}

} // namespace

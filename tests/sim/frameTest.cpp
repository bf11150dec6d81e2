// Requests and replies as packets, and packets in a stream.
#include "sim/protocol/checksum.h"
#include "sim/protocol/frameFinder.h"
#include "support/signFixture.h"

#include <random>

namespace vxsign::test {
namespace {

const Bytes kBlackScreen = Hex("55A7 0600 0000 0000 0000 0100 0401 0000");
// Sum of 0x03 + 0x02 + 0x01 + 0x30 + 0x40 + 0x02 + 0x01 + 0x0B + 0x01 + 0x09 + 0xAA + 0xBB + 0xCC = 0x02BF.
const Bytes kWithParts = Hex("55A7 BF02 0300 0201 3040 0201 0B00 0100 09000000 AABBCC");

TEST(Checksum, KnownVectors)
{
    EXPECT_EQ(vxsim::Crc16(Text("123456789")), 0x6E90);
    EXPECT_EQ(vxsim::Crc16({}), 0);
    EXPECT_EQ(vxsim::Sum16(Bytes(300, 0xFF)), 0x2AD4); // 76500 cut to 16 bits, over blocks and a rest
    EXPECT_EQ(vxsim::Sum16({}), 0);
}

TEST(Frame, TakesARequestApart)
{
    const auto frame = vxsim::ParseFrame(kWithParts);
    ASSERT_TRUE(frame);
    EXPECT_FALSE(frame->crc);
    EXPECT_EQ(frame->source, 0x0102);
    EXPECT_EQ(frame->destination, 0x4030);
    EXPECT_EQ(frame->id, 0x0102);
    EXPECT_EQ(frame->major * 256 + frame->minor, 0x0B00);
    EXPECT_EQ(Bytes(frame->payload.begin(), frame->payload.end()), (Bytes{9, 0, 0, 0}));
    EXPECT_EQ(Bytes(frame->extended.begin(), frame->extended.end()), (Bytes{0xAA, 0xBB, 0xCC}));
}

TEST(Frame, RefusesWhateverIsNotExactlyOneRequest)
{
    for (std::size_t length = 0; length < kWithParts.size(); ++length)
        EXPECT_FALSE(vxsim::ParseFrame(std::span(kWithParts).first(length))) << length;
    EXPECT_FALSE(vxsim::ParseFrame(kWithParts + Bytes{0}));
    for (std::size_t at = 0; at < kWithParts.size(); ++at) {
        Bytes damaged = kWithParts;
        damaged[at] ^= 0x10;
        EXPECT_FALSE(vxsim::ParseFrame(damaged)) << at;
    }
    Bytes reply = kBlackScreen;
    reply[1] = 0xA8;
    EXPECT_FALSE(vxsim::ParseFrame(reply));
}

TEST_F(SignTest, AnswersASumRequestWithASumAndACrcRequestWithACrc)
{
    EXPECT_EQ(sign->Answer(kBlackScreen), Hex("55A8 0600 0000 0000 0000 0100 0401 0000"));
    // Unknown major, with the addresses exchanged and code 36868 (0x9004): 1+2 + 0x30+0x40 + 2+1 + 0xB + 1+1 + 4+0x90.
    EXPECT_EQ(sign->Answer(kWithParts), Hex("55A8 1701 0000 3040 0201 0201 0B00 0101 04900000"));

    Bytes request = kBlackScreen;
    request[1] = 0xA3;
    EXPECT_TRUE(sign->Answer(request).empty()); // the sum does not do under this sync
    // CRC of 00 00 00 00 00 00 01 00 04 01 00 00, high byte first.
    request[2] = 0x4C;
    request[3] = 0xC5;
    Bytes reply = request;
    reply[1] = 0xA4;
    EXPECT_EQ(sign->Answer(request), reply);
    EXPECT_EQ(sign->Counters().malformed, 1U);
}

// All that a finder gives, fed in pieces of `step` bytes.
std::vector<unsigned> Ids(const Bytes& stream, std::size_t step, bool giveUp = false)
{
    vxsim::FrameFinder finder;
    std::vector<unsigned> ids;
    const auto drain = [&] {
        while (const auto frame = finder.Next())
            ids.push_back(frame->id);
    };
    for (std::size_t at = 0; at < stream.size(); at += step) {
        finder.Append(std::span(stream).subspan(at, std::min(step, stream.size() - at)));
        drain();
    }
    while (giveUp && finder.IsWaiting()) {
        finder.GiveUp();
        drain();
    }
    return ids;
}

TEST(FrameFinder, FindsRequestsInPiecesAndBetweenNoise)
{
    const Bytes first = MakeRequest(4, 1, {}, {}, 1);
    const Bytes second = MakeRequest(2, 8, Ramp(20), Ramp(1280), 2);
    const Bytes noise{0x00, 0x55, 0x55, 0xA8, 0xA7, 0x55};
    const Bytes absurdLength{0x55, 0xA7, 0, 0, 0xFF, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0, 0xFF, 0};
    const Bytes badStatus{0x55, 0xA3, 0, 0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0, 1, 9};
    Bytes damaged = first;
    damaged[12] = 9;
    const Bytes stream = noise + first + second + damaged + absurdLength + badStatus + second + noise + first;
    for (const std::size_t step : {1UL, 2UL, 3UL, 15UL, 16UL, 17UL, 1000UL, 5000UL})
        EXPECT_EQ(Ids(stream, step), (std::vector<unsigned>{1, 2, 2, 1})) << step;
}

TEST(FrameFinder, GetsOverBrokenRequestsAndRandomBytes)
{
    const Bytes whole = MakeRequest(4, 1, {}, {}, 7);
    const Bytes broken{0x55, 0xA7, 0, 0, 0x00, 0x08, 0, 0, 0, 0, 1, 0, 2, 8, 0, 0}; // announces 2048 bytes more
    EXPECT_EQ(Ids(broken + whole + whole, 10), std::vector<unsigned>{});
    EXPECT_EQ(Ids(broken + whole + whole, 10, true), (std::vector<unsigned>{7, 7}));
    EXPECT_EQ(Ids(broken + whole + Bytes(2048, 0x55) + whole, 10), (std::vector<unsigned>{7, 7}));

    std::mt19937 random(4);
    for (int round = 0; round < 50; ++round) {
        Bytes stream;
        for (int i = 0; i < 3000; ++i) // rich in syncs
            stream.push_back(random() % 4 == 0   ? 0x55
                             : random() % 3 == 0 ? 0xA7
                                                 : static_cast<std::uint8_t>(random() % 12));
        const auto ids = Ids(stream + whole, 1 + random() % 700, true);
        ASSERT_FALSE(ids.empty());
        EXPECT_EQ(ids.back(), 7U);
    }
}

} // namespace
} // namespace vxsign::test

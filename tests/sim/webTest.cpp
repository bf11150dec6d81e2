// The parts of the page's server that need no browser.
#include "sim/web/askQueue.h"
#include "sim/web/faceChanges.h"
#include "sim/web/jsonText.h"
#include "sim/web/pcap.h"
#include "sim/web/refusal.h"
#include "sim/web/signMoment.h"
#include "sim/web/trafficJson.h"
#include "sim/web/trafficRing.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <random>
#include <thread>

namespace vxsim {
namespace {

using nlohmann::json;

Canvas With(Canvas face, const Rectangle& lit)
{
    for (int y = lit.y; y < lit.y + lit.height; ++y) {
        for (int x = lit.x; x < lit.x + lit.width; ++x)
            face.Set(x, y, {1, 2, 3});
    }
    return face;
}

TEST(FaceChanges, AreBandsAsWideAsWhatChanged)
{
    const Canvas dark(20, 30);
    const Canvas bars = With(With(dark, {3, 1, 4, 2}), {10, 5, 2, 1});
    EXPECT_EQ(ChangesOf(dark, dark), std::vector<Rectangle>());
    EXPECT_EQ(ChangesOf(dark, With(dark, {0, 0, 20, 30})), (std::vector<Rectangle>{{0, 0, 20, 30}}));
    EXPECT_EQ(ChangesOf(dark, bars), (std::vector<Rectangle>{{3, 1, 9, 5}})); // too near for two
    EXPECT_EQ(ChangesOf(bars, With(bars, {19, 29, 1, 1})), (std::vector<Rectangle>{{19, 29, 1, 1}}));
    EXPECT_EQ(ChangesOf(dark, With(bars, {19, 29, 1, 1})), (std::vector<Rectangle>{{3, 1, 9, 5}, {19, 29, 1, 1}}));
    EXPECT_EQ(PixelsOf(bars, {6, 2, 2, 1}), (std::vector<unsigned char>{1, 2, 3, 0, 0, 0}));
}

TEST(FaceChanges, BringOneFaceToTheOther)
{
    std::mt19937 dice(7);
    Canvas page(40, 24);
    for (int round = 0; round < 200; ++round) {
        Canvas face = page;
        for (auto i = dice() % 12; i > 0; --i)
            face.Set(static_cast<int>(dice() % 40), static_cast<int>(dice() % 24),
                     {static_cast<std::uint8_t>(dice()), 0, 0});
        for (const Rectangle& part : ChangesOf(page, face)) {
            const auto rgb = PixelsOf(face, part);
            for (std::size_t i = 0; i < rgb.size(); i += 3)
                page.Set(part.x + static_cast<int>(i / 3) % part.width, part.y + static_cast<int>(i / 3) / part.width,
                         {rgb[i], rgb[i + 1], rgb[i + 2]});
        }
        ASSERT_EQ(page, face);
    }
}

CarriedPacket PacketOf(std::size_t requestSize, std::size_t replySize)
{
    CarriedPacket packet;
    packet.request.resize(requestSize);
    packet.reply.resize(replySize);
    return packet;
}

TEST(TrafficRing, KeepsTheLatestWithinBothBounds)
{
    TrafficRing ring;
    EXPECT_EQ(ring.Find(0), nullptr);
    EXPECT_TRUE(ring.Before(UINT64_MAX, 10).empty());
    for (std::size_t i = 0; i < TrafficRing::kMost + 5; ++i)
        ring.Add(PacketOf(16, 16));
    EXPECT_EQ(ring.LastId(), TrafficRing::kMost + 5);
    EXPECT_EQ(ring.Find(5), nullptr);
    EXPECT_EQ(ring.Find(6)->id, 6U);
    EXPECT_EQ(ring.Find(ring.LastId() + 1), nullptr);
    EXPECT_EQ(ring.Before(UINT64_MAX, UINT64_MAX).size(), TrafficRing::kMost);
    EXPECT_EQ(ring.Before(UINT64_MAX, 2).front()->id, ring.LastId() - 1);
    EXPECT_EQ(ring.Before(8, 10).size(), 2U);
    EXPECT_EQ(ring.Before(8, 1).front()->id, 7U);
    for (const std::uint64_t id : {0, 1, 6})
        EXPECT_TRUE(ring.Before(id, 10).empty()) << id;
    for (int i = 0; i < 1100; ++i)
        ring.Add(PacketOf(16, 65535));
    EXPECT_LE(ring.Bytes(), TrafficRing::kMostBytes);
    EXPECT_GT(ring.Bytes(), TrafficRing::kMostBytes - 70000);
    EXPECT_EQ(ring.Before(UINT64_MAX, UINT64_MAX).back()->id, ring.LastId());
}

TEST(Pcap, HoldsRequestAndReplyAsDatagrams)
{
    CarriedPacket packet;
    packet.timeMs = 2000;
    packet.tookUs = 250;
    packet.host = 0xC0A80007;
    packet.line = 5000;
    packet.request = {0xAA};
    packet.reply = {0xBB, 0xCC};
    const std::string records = PcapRecords(packet, {0x7F000001, 9520});
    EXPECT_EQ(Hex({reinterpret_cast<const std::uint8_t*>(records.data()), records.size()}), "01000000"
                                                                                            "46410f00"
                                                                                            "1d000000"
                                                                                            "1d000000"
                                                                                            "4500001d00000000"
                                                                                            "4011"
                                                                                            "3b20"
                                                                                            "c0a80007"
                                                                                            "7f000001"
                                                                                            "1388"
                                                                                            "2530"
                                                                                            "0009"
                                                                                            "0000"
                                                                                            "aa"
                                                                                            "02000000"
                                                                                            "00000000"
                                                                                            "1e000000"
                                                                                            "1e000000"
                                                                                            "4500001e00000000"
                                                                                            "4011"
                                                                                            "3b1f"
                                                                                            "7f000001"
                                                                                            "c0a80007"
                                                                                            "2530"
                                                                                            "1388"
                                                                                            "000a"
                                                                                            "0000"
                                                                                            "bbcc");
    EXPECT_EQ(PcapHeader().size(), 24U);
    packet.reply.clear();
    packet.line = 65536 + 3; // a connection
    EXPECT_EQ(PcapRecords(packet, {}).substr(36, 2), "\xC0\x03");
    packet.request.resize(70000); // more than a datagram has room for
    const std::string cut = PcapRecords(packet, {});
    EXPECT_EQ(cut.size(), 16U + 65535);
    EXPECT_EQ(cut.substr(8, 8), std::string("\xFF\xFF\0\0\x8C\x11\x01\0", 8));
}

TEST(TrafficJson, NeverReadsBeyondAPacketWhateverItSays)
{
    for (std::size_t size = 0; size < 40; ++size) {
        CarriedPacket packet;
        packet.request.assign(size, 0xFF); // announces 1020 bytes of payload
        const json request = DetailsOf(packet)["request"];
        if (size == 0) {
            EXPECT_TRUE(request.is_null());
            continue;
        }
        EXPECT_EQ(request["bytes"].get<std::string>().size(), 2 * size);
        EXPECT_EQ(request["payload"].get<std::string>().size(), size < 16 ? 0 : 2 * (size - 16));
        EXPECT_EQ(request["header"].empty(), size < 16);
        EXPECT_NO_THROW(Dump(SummaryOf(packet)));
    }
}

TEST(WebJson, HoldsAnyText)
{
    CarriedPacket packet;
    packet.name = "\xFF\xC3\x28\x01\"\n</script><img src=x onerror=alert(1)>";
    packet.remark = std::string("\0\x1B[2J\xED\xA0\x80", 8);
    packet.code = 36870;
    const std::string text = Dump(SummaryOf(packet));
    EXPECT_EQ(text.find('\n'), std::string::npos);
    const json summary = json::parse(text);
    EXPECT_NE(summary["name"].get<std::string>().find("<img src=x onerror=alert(1)>"), std::string::npos);
    EXPECT_EQ(summary["remark"].get<std::string>().substr(0, 5), std::string("\0\x1B[2J", 5));
    EXPECT_FALSE(summary["text"].get<std::string>().empty());
}

TEST(WebJson, TakesOnlyWhatIsMeant)
{
    const json body = ParseObject(
        R"({"whole": 8, "part": 0.5, "flag": true, "text": "x", "large": 1e30, "most": 18446744073709551615})");
    EXPECT_EQ(WholeOf(body, "whole", 0, 8), 8);
    EXPECT_EQ(PartOf(body, "part"), 0.5);
    EXPECT_TRUE(FlagOf(body, "flag"));
    EXPECT_EQ(TextOf(body, "text"), "x");
    for (const char* name : {"part", "flag", "text", "large", "most", "missing"})
        EXPECT_THROW(WholeOf(body, name, INT64_MIN, INT64_MAX), Refusal) << name;
    for (const char* name : {"whole", "large", "flag", "missing"})
        EXPECT_THROW(PartOf(body, name), Refusal) << name;
    for (const std::string& text :
         {std::string(), std::string("[]"), std::string("{"), std::string(1 << 20, '['),
          std::string(R"({"\"]]": [[[[[[[[1]]]]]]]]})"), std::string("{\"a\":\"\xFF\"}"), std::string("{}x")})
        EXPECT_THROW(ParseObject(text), Refusal) << text.substr(0, 10);
    EXPECT_EQ(Base64(std::vector<std::uint8_t>{}), "");
    EXPECT_EQ(Base64(std::vector<std::uint8_t>{'M'}), "TQ==");
    EXPECT_EQ(Base64(std::vector<std::uint8_t>{'M', 'a'}), "TWE=");
    EXPECT_EQ(Base64(std::vector<std::uint8_t>{'M', 'a', 0xFF}), "TWH/");
}

TEST(AskQueue, AnswersEachOfManyThreadsInOneThread)
{
    AskQueue queue;
    int answered = 0; // touched by this thread alone
    constexpr int kThreads = 4;
    constexpr int kQuestions = 200;
    std::atomic<int> right = 0;
    std::atomic<int> done = 0;
    std::atomic<bool> closed = false;
    {
        std::vector<std::jthread> askers;
        for (int i = 0; i < kThreads; ++i) {
            askers.emplace_back([&] {
                int last = 0;
                for (int k = 0; k < kQuestions; ++k) {
                    const int now = queue.Ask([&answered] { return ++answered; });
                    right += now > std::exchange(last, now);
                }
                EXPECT_THROW(queue.Ask([] { throw Refusal(400, "no"); }), Refusal);
                ++done;
                closed.wait(false);
                EXPECT_THROW(queue.Ask([] {}), SignGone);
            });
        }
        pollfd watched{queue.Waiting(), POLLIN, 0};
        while (done < kThreads) {
            ::poll(&watched, 1, 10);
            queue.Answer();
        }
        queue.Close();
        closed = true;
        closed.notify_all();
    }
    EXPECT_EQ(right, kThreads * kQuestions);
}

} // namespace
} // namespace vxsim

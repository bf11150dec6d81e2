// The ticker and its buffers.
#include "roundTrip/roundTrip.h"

namespace vxsign::test {
namespace {

class Ticker : public RoundTrip
{
protected:
    // One chunk of an upload.
    static Request Chunk(const Bytes& chunk, std::uint8_t number = 1, std::uint8_t count = 1)
    {
        return {8, 4, {64, 0, count, 0, number, 0, 0, 0}, chunk};
    }
    static std::uint32_t Upload(const Bytes& text)
    {
        return vxUploadBuffer(text.data(), static_cast<std::uint32_t>(text.size()));
    }

    // Lit columns of the face, from the left: '#' and '.'.
    std::string Seen(std::uint64_t nowMs) override
    {
        const std::string drawing = Drawing(nowMs);
        std::string columns(16, '.');
        for (std::size_t i = 0; i < drawing.size(); ++i)
            if (drawing[i] != '.' && drawing[i] != '\n')
                columns[i % 17] = '#';
        return columns;
    }
};

const Bytes kBlock = Text("\u2588"); // eight columns, all lit
const Bytes kBlank = Text("  ");     // eight columns, none lit
constexpr char kEmpty[] = "................";

TEST_F(Ticker, TextRunsOverTheFaceFromTheRight)
{
    PlayThree();
    EXPECT_EQ(At(0), kRed);
    Film({{1000, {8, 1, {1, 0, '2'}}, kEmpty, "10 pixels a second, green; the list is not seen"}});
    Film({{2000, Chunk(kBlock), kEmpty}, {2400, {}, "............####"}});
    EXPECT_EQ(At(2400, 15), kGreen);
    Film({{3000, {}, "......########.."}, {4000, {}, "####............"}, {4400, {}, kEmpty}, {5000, {8, 2}}});
    EXPECT_EQ(At(5000), kGreen) << "the list has played on";
}

TEST_F(Ticker, TextsFollowEachOtherInThreeBuffers)
{
    std::uint16_t status = 7;
    EXPECT_EQ(vxGetBufferStatus(&status), 33541u);
    EXPECT_EQ(Upload(kBlock), 33541u);
    EXPECT_EQ(status, 7);
    Expect(0, {{8, 1, {1, '0', '1'}}});
    for (const int buffer : {33537, 33538, 33539}) {
        EXPECT_EQ(vxGetBufferStatus(&status), 0u);
        EXPECT_EQ(status, buffer);
        EXPECT_EQ(Upload(buffer == 33538 ? kBlank : kBlock), 0u);
    }
    line.requests.clear();
    line.progress.clear();
    EXPECT_EQ(vxGetBufferStatus(&status), 33542u);
    EXPECT_EQ(Upload(Bytes(769, 'a')), 33542u);
    EXPECT_EQ(line.Road(), "8.3 8.4") << "a refusal ends it";
    EXPECT_TRUE(line.progress.empty());
    Film({{2000, {}, "####........####"}, {2399, {}}});
    Expect(33542, {{8, 3}});
    arrival.nowMs = 2400;
    Expect(33537, {{8, 3}}); // the first has left the face
    Film({{2400, Chunk(kBlock)}, {2800, {}, "....############"}});
    EXPECT_EQ(sign->Counters().refused, 5U) << "the ready buffers are answers";
    Film({{9000, {4, 0}}});
    Expect(33541, {{8, 3}}); // a reset ends it

    // What is no state of a buffer.
    line.raw = {};
    line.Then(Good()).Then(Refusal(33536)).Then(Refusal(33540));
    for (const std::uint32_t result : {0u, 33536u, 33540u})
        EXPECT_EQ(vxGetBufferStatus(&status), result);
    EXPECT_EQ(status, 33539);
}

TEST_F(Ticker, UploadsComeInChunksInTheirOrder)
{
    const Bytes chunk(64, ' ');
    Expect(0, {{8, 1, {1}}});
    Expect(33543, {Chunk(chunk, 2, 3)});
    Expect(0, {Chunk(chunk, 1, 3)});
    Expect(33543, {Chunk(chunk, 3, 3), Chunk(Bytes(63, ' '), 2, 3)});
    Expect(0, {Chunk(chunk, 2, 3), Chunk(chunk, 2, 3)}); // once more
    Expect(33537, {{8, 3}});
    Expect(0, {Chunk(kBlock, 3, 3), Chunk(kBlock, 3, 3)});
    Expect(33538, {{8, 3}});
    Film({{51200, {}, kEmpty, "128 blanks of 4 pixels"}, {52400, {}, "....########...."}});
    arrival.nowMs = 0;
    Expect(33543, {Chunk({}), Chunk(chunk, 2, 1), {8, 4, {63, 0, 1, 0, 1}, {'a'}}, {8, 4, {64, 0, 1}, {'a'}}});

    EXPECT_EQ(Upload(Bytes(768, 'a') + kBlank), 0u);
    ASSERT_EQ(line.Road(), "8.4 8.4");
    EXPECT_EQ(line.requests[0].Payload(), Hex("0003 0200 0100 0000"));
    EXPECT_EQ(line.requests[0].Extended(), Bytes(768, 'a'));
    EXPECT_EQ(line.requests[1].Payload(), Hex("0003 0200 0200 0000"));
    EXPECT_EQ(line.requests[1].Extended(), kBlank);
    EXPECT_EQ(line.progress, (std::vector<std::uint32_t>{50, 100}));
    EXPECT_EQ(line.opened, 1);
    EXPECT_EQ(Upload(Bytes(768, 'a')), 0u);
    EXPECT_EQ(line.requests.back().Payload(), Hex("0003 0100 0100 0000"));
    line.Config().dataSize = 64;
    EXPECT_EQ(Upload(Bytes(64 * 65535 + 1)), 2u) << "more chunks than their numbers reach";
    EXPECT_EQ(line.requests.size(), 3u);
}

TEST_F(Ticker, TheOfflineTickerRepeatsWhatTheBuffersHold)
{
    PutFile("D:\\T\\BLUE.BMP", Dot(kBlue));
    PutFile("C:\\SEQUENT.SYS", FlatList({"BLUE.BMP"}));
    Film({{0, {9, 1, {1}}}, {500, {}, kEmpty, "nothing to show"}, {500, {8, 1, {1}}}});
    Expect(0, {Chunk(kBlock), Chunk(kBlank), {8, 2}});
    Film({{10000, {9, 1, {1, 0, 0, 2}}}, {11000, {}, "......########..", "two rounds of 32 pixels"}});
    Film({{13200, {}, kEmpty}, {14200, {}, "......########.."}});
    EXPECT_EQ(At(16400), kBlue);
    Film({{20000, {9, 1, {1}}}, {20000 + 3200000 + 1000, {}, "......########.."}, {3300000, {9, 2}}});
    EXPECT_EQ(At(3300000), kBlue);
}

} // namespace
} // namespace vxsign::test

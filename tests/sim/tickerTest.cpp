// The ticker and its buffers.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

class Ticker : public StageTest
{
protected:
    // One chunk of an upload.
    static Request Chunk(const Bytes& chunk, std::uint8_t number = 1, std::uint8_t count = 1)
    {
        return {8, 4, {64, 0, count, 0, number, 0, 0, 0}, chunk};
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
    Film({{1000, {8, 1, {1, 0, '2', 0}}, kEmpty, "10 pixels a second, green; the list is not seen"},
          {2000, Chunk(kBlock), kEmpty},
          {2400, {}, "............####"}});
    EXPECT_EQ(At(2400, 15), kGreen);
    Film({{3000, {}, "......########.."}, {4000, {}, "####............"}, {4400, {}, kEmpty}, {5000, {8, 2}}});
    EXPECT_EQ(At(5000), kGreen) << "the list has played on";
}

TEST_F(Ticker, TextsFollowEachOtherInThreeBuffers)
{
    Expect(33541, {{8, 3}, Chunk(kBlock)});
    Expect(0, {{8, 1, {1, '0', '1', 0}}});
    for (const unsigned status : {33537U, 33538U, 33539U}) {
        Expect(status, {{8, 3}});
        Expect(0, {Chunk(status == 33538 ? kBlank : kBlock)});
    }
    Expect(33542, {{8, 3}, Chunk(kBlock)});
    Film({{2000, {}, "####........####"}, {2399, {}}});
    Expect(33542, {{8, 3}});
    arrival.nowMs = 2400;
    Expect(33537, {{8, 3}}); // the first has left the face
    Film({{2400, Chunk(kBlock)}, {2800, {}, "....############"}});
    EXPECT_EQ(sign->Counters().refused, 5U) << "the ready buffers are answers";
    Film({{9000, {4, 0}}});
    Expect(33541, {{8, 3}}); // a reset ends it
}

TEST_F(Ticker, UploadsComeInChunksInTheirOrder)
{
    const Bytes chunk(64, ' ');
    Expect(0, {{8, 1, {1, 0, 0}}});
    Expect(33543, {Chunk(chunk, 2, 3)});
    Expect(0, {Chunk(chunk, 1, 3)});
    Expect(33543, {Chunk(chunk, 3, 3), Chunk(Bytes(63, ' '), 2, 3)});
    Expect(0, {Chunk(chunk, 2, 3), Chunk(chunk, 2, 3)}); // once more
    Expect(33537, {{8, 3}});
    Expect(0, {Chunk(kBlock, 3, 3), Chunk(kBlock, 3, 3)});
    Expect(33538, {{8, 3}});
    Film({{51200, {}, kEmpty, "128 blanks of 4 pixels"}, {52400, {}, "....########...."}});
    arrival.nowMs = 0;
    Expect(33543,
           {Chunk({}), Chunk(chunk, 2, 1), {8, 4, {63, 0, 1, 0, 1, 0, 0, 0}, {'a'}}, {8, 4, {64, 0, 1, 0}, {'a'}}});
}

TEST_F(Ticker, TheOfflineTickerRepeatsWhatTheBuffersHold)
{
    PutFile("D:\\T\\BLUE.BMP", Dot(kBlue));
    PutFile("C:\\SEQUENT.SYS", FlatList({"BLUE.BMP"}));
    Film({{0, {9, 1, {1, 0, 0, 0}}}, {500, {}, kEmpty, "nothing to show"}, {500, {8, 1, {1, 0, 0, 0}}}});
    Expect(0, {Chunk(kBlock), Chunk(kBlank), {8, 2}});
    Film({{10000, {9, 1, {1, 0, 0, 2}}}, // two rounds of 32 pixels
          {11000, {}, "......########.."},
          {13200, {}, kEmpty},
          {14200, {}, "......########.."}});
    EXPECT_EQ(At(16400), kBlue);
    Film({{20000, {9, 1, {1, 0, 0, 0}}}, {20000 + 3200000 + 1000, {}, "......########.."}, {3300000, {9, 2}}});
    EXPECT_EQ(At(3300000), kBlue);
}

} // namespace
} // namespace vxsign::test

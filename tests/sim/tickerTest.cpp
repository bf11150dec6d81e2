#include "stageFixture.h"

namespace vxsim_tests {
namespace {

class Ticker : public StageTest
{
protected:
    // One chunk of an upload.
    unsigned Upload(std::uint64_t nowMs, const Bytes& chunk, std::uint8_t number = 1, std::uint8_t count = 1)
    {
        return CodeOf(AskAt(nowMs, 8, 4, {64, 0, count, 0, number, 0, 0, 0}, chunk));
    }

    unsigned Status(std::uint64_t nowMs) { return CodeOf(AskAt(nowMs, 8, 3)); }

    // Lit columns of the face, from the left: '#' and '.'.
    std::string Columns(std::uint64_t nowMs)
    {
        const vxsim::Canvas& face = stage->Draw(nowMs);
        std::string columns;
        for (int x = 0; x < face.Width(); ++x) {
            bool lit = false;
            for (int y = 0; y < face.Height(); ++y)
                lit = lit || face.At(x, y) != kDark;
            columns += lit ? '#' : '.';
        }
        return columns;
    }
};

const Bytes kBlock = Text("\u2588"); // eight columns, all lit
const Bytes kBlank = Text("  ");     // eight columns, none lit

TEST_F(Ticker, TextRunsOverTheFaceFromTheRight)
{
    PlayThree();
    EXPECT_EQ(At(0), kRed);
    EXPECT_EQ(CodeOf(AskAt(1000, 8, 1, {1, 0, '2', 0})), 0U); // 10 pixels a second, green
    EXPECT_EQ(Columns(1000), "................") << "the list is not seen";
    EXPECT_EQ(Upload(2000, kBlock), 0U);
    EXPECT_EQ(Columns(2000), "................");
    EXPECT_EQ(Columns(2400), "............####");
    EXPECT_EQ(At(2400, 15), kGreen);
    EXPECT_EQ(Columns(3000), "......########..");
    EXPECT_EQ(Columns(4000), "####............");
    EXPECT_EQ(Columns(4400), "................");
    EXPECT_EQ(CodeOf(AskAt(5000, 8, 2)), 0U);
    EXPECT_EQ(At(5000), kGreen) << "the list has played on";
}

TEST_F(Ticker, TextsFollowEachOtherInThreeBuffers)
{
    EXPECT_EQ(Status(0), 33541U);
    EXPECT_EQ(Upload(0, kBlock), 33541U);
    EXPECT_EQ(CodeOf(AskAt(0, 8, 1, {1, '0', '1', 0})), 0U);
    EXPECT_EQ(Status(0), 33537U);
    EXPECT_EQ(Upload(0, kBlock), 0U);
    EXPECT_EQ(Status(0), 33538U);
    EXPECT_EQ(Upload(0, kBlank), 0U);
    EXPECT_EQ(Status(0), 33539U);
    EXPECT_EQ(Upload(0, kBlock), 0U);
    EXPECT_EQ(Status(0), 33542U);
    EXPECT_EQ(Upload(0, kBlock), 33542U);
    EXPECT_EQ(Columns(2000), "####........####");
    EXPECT_EQ(Status(2399), 33542U);
    EXPECT_EQ(Status(2400), 33537U) << "the first has left the face";
    EXPECT_EQ(Upload(2400, kBlock), 0U);
    EXPECT_EQ(Columns(2800), "....############");
    EXPECT_EQ(sign->Counters().refused, 5U) << "the ready buffers are answers";
    EXPECT_EQ(CodeOf(AskAt(9000, 4, 0)), 0U);
    EXPECT_EQ(Status(9000), 33541U) << "a reset ends it";
}

TEST_F(Ticker, UploadsComeInChunksInTheirOrder)
{
    EXPECT_EQ(CodeOf(AskAt(0, 8, 1, {1, 0, 0})), 0U);
    const Bytes chunk(64, ' ');
    EXPECT_EQ(Upload(0, chunk, 2, 3), 33543U);
    EXPECT_EQ(Upload(0, chunk, 1, 3), 0U);
    EXPECT_EQ(Upload(0, chunk, 3, 3), 33543U);
    EXPECT_EQ(Upload(0, Bytes(63, ' '), 2, 3), 33543U);
    EXPECT_EQ(Upload(0, chunk, 2, 3), 0U);
    EXPECT_EQ(Upload(0, chunk, 2, 3), 0U) << "once more";
    EXPECT_EQ(Status(0), 33537U);
    EXPECT_EQ(Upload(0, kBlock, 3, 3), 0U);
    EXPECT_EQ(Upload(0, kBlock, 3, 3), 0U) << "once more";
    EXPECT_EQ(Status(0), 33538U);
    EXPECT_EQ(Columns(51200), "................"); // 128 blanks of 4 pixels
    EXPECT_EQ(Columns(52400), "....########....");
    EXPECT_EQ(Upload(0, {}, 1, 1), 33543U);
    EXPECT_EQ(Upload(0, chunk, 2, 1), 33543U);
    EXPECT_EQ(CodeOf(Ask(8, 4, {63, 0, 1, 0, 1, 0, 0, 0}, {'a'})), 33543U);
    EXPECT_EQ(CodeOf(Ask(8, 4, {64, 0, 1, 0}, {'a'})), 33543U);
}

TEST_F(Ticker, TheOfflineTickerRepeatsWhatTheBuffersHold)
{
    PutFile("D:\\T\\BLUE.BMP", Dot(0, 0, 255));
    PutFile("C:\\SEQUENT.SYS", List({"BLUE.BMP"}));
    EXPECT_EQ(CodeOf(AskAt(0, 9, 1, {1, 0, 0, 0})), 0U);
    EXPECT_EQ(Columns(500), "................") << "nothing to show";
    AskAt(0, 8, 1, {1, 0, 0, 0});
    Upload(0, kBlock);
    Upload(0, kBlank);
    AskAt(0, 8, 2);
    EXPECT_EQ(CodeOf(AskAt(10000, 9, 1, {1, 0, 0, 2})), 0U); // two rounds of 32 pixels
    EXPECT_EQ(Columns(11000), "......########..");
    EXPECT_EQ(Columns(13200), "................");
    EXPECT_EQ(Columns(14200), "......########..");
    EXPECT_EQ(At(16400), kBlue);
    EXPECT_EQ(CodeOf(AskAt(20000, 9, 1, {1, 0, 0, 0})), 0U);
    EXPECT_EQ(Columns(20000 + 3200000 + 1000), "......########..");
    EXPECT_EQ(CodeOf(AskAt(3300000, 9, 2)), 0U);
    EXPECT_EQ(At(3300000), kBlue);
}

} // namespace
} // namespace vxsim_tests

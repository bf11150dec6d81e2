// The pixel check of the sign, and bad lamps on its face.
#include "support/signFixture.h"

namespace vxsign::test {
namespace {

using Pixels = LogTest;

TEST_F(Pixels, ACheckRunsAndLeavesItsResults)
{
    Tell(0, "bad 3,4,red\nbad 17,4,all,stuck\nbad 5,20,green,signal");
    EXPECT_EQ(PayloadOf(Ask(16, 3, Bytes(4, 0))), (Bytes{100, 0, 0, 0})) << "none runs";
    EXPECT_EQ(CodeOf(AskAt(1000, 16, 1)), 0U);
    EXPECT_EQ(PayloadOf(AskAt(1000, 16, 3))[0], 0);
    EXPECT_EQ(PayloadOf(AskAt(3000, 16, 3))[0], 50);
    EXPECT_EQ(CodeOf(AskAt(4000, 16, 1)), 0U) << "goes on";
    EXPECT_EQ(PayloadOf(AskAt(4999, 16, 3))[0], 99);
    EXPECT_FALSE(std::filesystem::exists(folder.path / "D/PXL.CSV"));
    EXPECT_EQ(PayloadOf(AskAt(5000, 16, 3))[0], 100);
    EXPECT_EQ(folder.Read("D/PXL.CSV"), "No,X,Y,Lamp,Status,Time\n"
                                        "1,3,4,1,\"Red Pixel Bad\",\"2020-05-13 10:20:35\"\n"
                                        "2,17,4,1,\"Red Pixel Bad\",\"2020-05-13 10:20:35\"\n"
                                        "3,17,4,2,\"Green Pixel Bad\",\"2020-05-13 10:20:35\"\n"
                                        "4,17,4,3,\"Blue Pixel Bad\",\"2020-05-13 10:20:35\"\n");
    EXPECT_EQ(folder.Read("D/SIGNAL.CSV"), "No,X,Y,Status,Time\n1,5,20,\"Green Signal Bad\",\"2020-05-13 10:20:35\"\n");
    EXPECT_EQ(folder.Read("C/PIXEL.SYS"),
              "Port:2 Signal Error\nBoard(0,0) have 1 pixel bad\nBoard(1,0) have 3 pixel bad\n");
    EXPECT_EQ(RowsOf("select X,Y,Status,DateTime from PixelStatus limit 1 offset 0"),
              "<3><4><Red Pixel Bad><2020-05-13 10:20:35>");
    EXPECT_EQ(RowsOf("select count(*) from PixelStatus"), "<4>");
    EXPECT_EQ(RowsOf("select X,Y,Status,DateTime from PixelSignalErr"),
              "<5><20><Green Signal Bad><2020-05-13 10:20:35>");
}

TEST_F(Pixels, ACheckEndsWithoutPollsToo)
{
    Ask(16, 1);
    AskAt(3000, 4, 0);
    sign->KeepUp(5000);
    EXPECT_FALSE(std::filesystem::exists(folder.path / "C/PIXEL.SYS")) << "the restart has ended it";
    Ask(16, 1);
    sign->KeepUp(9000);
    EXPECT_EQ(folder.Read("C/PIXEL.SYS"), "ALL OK\n");
    EXPECT_EQ(folder.Read("D/SIGNAL.CSV"), "No,X,Y,Status,Time\n");
    std::string many;
    for (int i = 0; i < 103; ++i)
        many += "bad " + std::to_string(i % 32) + "," + std::to_string(i / 32) + ",all\n";
    Tell(10000, many);
    AskAt(10000, 16, 1);
    sign->KeepUp(14000);
    EXPECT_EQ(folder.Read("C/PIXEL.SYS"), "Too many bad\n");
    EXPECT_EQ(RowsOf("select count(*) from PixelStatus"), "<309>");
}

TEST_F(Pixels, TheFaceShowsWhatIsWrong)
{
    Tell(0, "bad 3,4,red\nbad 40,4,red\nbad 4,4,all\nbad 5,4,green,signal\nbad 6,4,red,stuck\nhot 4");
    Ask(3, 11, Bytes{0, 200, 100} + Bytes(13, 0));
    EXPECT_EQ(At(0, 2, 4), (vxsim::Rgb{0, 200, 100}));
    EXPECT_EQ(At(0, 3, 4), (vxsim::Rgb{0, 200, 100}));
    EXPECT_EQ(At(0, 4, 4), kDark);
    EXPECT_EQ(At(0, 5, 4), (vxsim::Rgb{0, 0, 100}));
    EXPECT_EQ(At(0, 6, 4), (vxsim::Rgb{255, 200, 100}));
    EXPECT_EQ(At(0, 15, 16), (vxsim::Rgb{0, 200, 100}));
    EXPECT_EQ(At(0, 16, 16), (vxsim::Rgb{0, 107, 53})) << "a hot tile saves power";
    Ask(4, 1);
    EXPECT_EQ(At(0, 6, 4), kRed) << "a stuck lamp shines in the dark";
    Ask(4, 3);
    EXPECT_EQ(At(0, 6, 4), kDark);
    Ask(4, 4);
    Ask(4, 2);
    Tell(1000, "");
    EXPECT_EQ(At(1000, 4, 4), (vxsim::Rgb{0, 200, 100}));
}

} // namespace
} // namespace vxsign::test

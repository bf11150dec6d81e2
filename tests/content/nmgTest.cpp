// Messages as the library writes them.
#include "content/nmg.h"
#include "support/bytes.h"
#include "support/tempFolder.h"

#include <vxsign/content.h>
#include <vxsign/result.h>

namespace {

using namespace vxsign;
using namespace std::string_literals;

const std::uint8_t* Bytes(const std::string& text)
{
    return reinterpret_cast<const std::uint8_t*>(text.data());
}

using Nmg = vxsign::test::FolderTest;

TEST_F(Nmg, TextFile)
{
    const std::string path = folder.Path("a.nmg");
    const std::string text = "HELLO\0\x04 42"s;
    EXPECT_EQ(vxShowMsgToNmg(Bytes(text), 10, path.c_str(), '5', '3', 'A', 5), 0u);
    EXPECT_EQ(folder.Read("a.nmg"), "QZ00SAX\x1A"
                                    "5\x1C"
                                    "3\nIA\nOA\x0E"
                                    "20005HELLO\0\x04 42\x04"s);

    // Values that the sign does not take.
    const auto header = [](std::uint32_t mode, std::uint32_t staySec, std::uint32_t font, std::uint32_t colour) {
        return test::ToText(nmg::TextHeader(nmg::Form::kTransmission, {mode, staySec, font, colour})).substr(7);
    };
    EXPECT_EQ(header(46, 10000, 47, 46), "\x1A\x31\x1C\x31\nI0\nO0\x0E\x32\x30\x30\x30\x30");
    EXPECT_EQ(header(47, 12345, 170, 48), "\x1A\x31\x1C\x30\nI/\nO/\x0E\x32\x32\x33\x34\x35");
    EXPECT_EQ(header(0x141, 5, 48, 0x12345678), "\x1A\x30\x1C\x78\nIA\nOA\x0E\x32\x30\x30\x30\x35");
    EXPECT_EQ(header(255, 4294967295, 169, 47), "\x1A\xA9\x1C/\0\0\0\nI\xFF\nO\xFF\x0E\x32\x37\x32\x39\x35"s);
    EXPECT_EQ(header(65, 0, 0xFFFFFFFF, 0x00FF002F), "\x1A\x31\x1C/\0\xFF\0\nIA\nOA\x0E\x32\x30\x30\x30\x30"s);
}

TEST_F(Nmg, PictureHeaders)
{
    const std::string rest = "\nI7\nO7\x0E"
                             "20012\x14\x40"
                             "0\x04RC\x01\0\x01"
                             "0\0\0\x01\x02\x03\x04\x28"s +
                             std::string(27, '\0');
    EXPECT_EQ(test::ToText(nmg::PictureHeader(nmg::Form::kTransmission, {'7', 12}, 0x04030201)), "\x01Z00\x02"
                                                                                                 "AA" +
                                                                                                     rest);
    EXPECT_EQ(test::ToText(nmg::PictureHeader(nmg::Form::kFile, {'7', 12}, 0x04030201)), "QZ00SAX\x1A"
                                                                                         "1\x1C/\xFF\xFF\xFF" +
                                                                                             rest);
    EXPECT_EQ(nmg::PictureHeader(nmg::Form::kTransmission, {}, 0).size(), 63u);
    EXPECT_EQ(nmg::PictureHeader(nmg::Form::kFile, {}, 0).size(), 70u);
}

TEST_F(Nmg, WrapsAnyFileUnchanged)
{
    std::string picture(10'000, '\0');
    for (std::size_t i = 0; i < picture.size(); ++i)
        picture[i] = static_cast<char>(i * 7);
    const std::string source = folder.Write("picture", picture);
    EXPECT_EQ(vxShowBmpToNmg(source.c_str(), folder.Path("a.nmg").c_str(), '2', 9), 0u);
    EXPECT_EQ(vxBmp2Nmg(source.c_str(), folder.Path("b.nmg").c_str(), 9, '2'), 0u);
    const std::string transmission = folder.Read("a.nmg");
    const std::string file = folder.Read("b.nmg");
    EXPECT_EQ(transmission.substr(0, 35), "\x01Z00\x02"
                                          "AA\nI2\nO2\x0E"
                                          "20009\x14\x40"
                                          "0\x04RC\x01\0\x01"
                                          "0\0\0\x10\x27\0\0"s);
    EXPECT_EQ(transmission.substr(63), picture);
    EXPECT_EQ(file.substr(14, 12), "\nI2\nO2\x0E\x32\x30\x30\x30\x39");
    EXPECT_EQ(file.substr(70), picture);

    const std::string empty = folder.Write("empty", "");
    EXPECT_EQ(vxBmp2Nmg(empty.c_str(), folder.Path("b.nmg").c_str(), 9, '2'), 0u);
    EXPECT_EQ(folder.Read("b.nmg").size(), 70u);
    EXPECT_EQ(folder.Read("b.nmg").substr(38, 4), "\0\0\0\0"s);

    // Bytes in memory likewise.
    const std::string path = folder.Path("a.nmg");
    EXPECT_EQ(nmg::WritePicture(path.c_str(), nmg::Form::kTransmission, {'2', 9}, {Bytes(picture), 10}), 0u);
    EXPECT_EQ(folder.Read("a.nmg").substr(31, 4), "\x0A\0\0\0"s);
    EXPECT_EQ(folder.Read("a.nmg").substr(63), picture.substr(0, 10));
    EXPECT_EQ(nmg::WritePicture(path.c_str(), nmg::Form::kTransmission, {'2', 9}, {}), 0u);
    EXPECT_EQ(folder.Read("a.nmg").size(), 63u);
}

TEST_F(Nmg, Failures)
{
    const std::string source = folder.Write("picture", "BM");
    const std::string target = folder.Path("a.nmg");
    const std::uint8_t text[] = {'x'};
    const std::string nowhere = folder.Path("no/such");
    EXPECT_EQ(vxShowBmpToNmg(nowhere.c_str(), target.c_str(), 0, 0), VX_OPEN_FILE);
    EXPECT_EQ(vxBmp2Nmg(folder.Path().c_str(), target.c_str(), 0, 0), VX_OPEN_FILE);
    EXPECT_FALSE(folder.Has("a.nmg")) << "the source is opened first";
    EXPECT_EQ(vxShowMsgToNmg(text, 1, nowhere.c_str(), 0, 0, 0, 0), VX_OPEN_FILE);
    EXPECT_EQ(vxBmp2Nmg(source.c_str(), nowhere.c_str(), 0, 0), VX_OPEN_FILE);

    EXPECT_EQ(vxShowMsgToNmg(text, 1, "/dev/full", 0, 0, 0, 0), VX_CALL);
    EXPECT_EQ(vxShowBmpToNmg(source.c_str(), "/dev/full", 0, 0), VX_CALL);
    EXPECT_EQ(vxBmp2Nmg(source.c_str(), "/dev/full", 0, 0), VX_CALL);
    std::filesystem::resize_file(source, 0x100000002);
    EXPECT_EQ(vxBmp2Nmg(source.c_str(), target.c_str(), 0, 0), VX_CALL) << "more than its length can say";
}

} // namespace

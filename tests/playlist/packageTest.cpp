// Packages of a play list and its files, on their way to a sign.
#include "support/playlistTree.h"
#include "support/scriptedSign.h"

#include <gtest/gtest.h>

namespace vxsign::test {
namespace {

// The files that were sent, of one packet each, as "path=contents"; of the last one the path alone.
std::string Sent(const ScriptedSign& sign)
{
    std::string text;
    for (const Packet& request : sign.requests) {
        const Bytes payload = request.Payload(), contents = request.Extended();
        text += request.Minor() == 8 ? reinterpret_cast<const char*>(payload.data()) + 10 : "?";
        if (&request != &sign.requests.back())
            text += "=" + std::string(contents.begin(), contents.end()) + " ";
    }
    return text;
}

std::uint32_t Send(const TempFolder& folder, const char* name, const Bytes& package)
{
    return vxRWFile(WriteBytes(folder, name, package).c_str(), nullptr, VX_MOVE_WRITE);
}

Bytes FlatEntry(std::string_view name, const Bytes& contents)
{
    return Bytes{static_cast<std::uint8_t>(contents.size()), 0, 0, 0} +
           Hex("54 1F EEEE 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01") + Padded(name, 64) + contents;
}

Bytes TreeEntry(std::string_view name, const Bytes& contents)
{
    return Bytes{static_cast<std::uint8_t>(contents.size()), 0, 0, 0} + Hex("54EE 0200") +
           Hex("1F EEEEEE 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01") + Hex("FF EEEEEE") + Bytes(16, 1) +
           Padded(name, 64) + contents;
}

const Bytes kFlatHead = Hex("4C50 0200 EEEEEEEEEEEEEEEE");
const Bytes kTreeHead = Hex("4D50 0200 EEEEEEEEEEEEEEEE");

TEST(Packages, FlatOnesAreUnpackedAndSent)
{
    const TempFolder folder;
    ScriptedSign sign;
    sign.Then(3, Good());
    // The last file's contents are cut short.
    Bytes package = kFlatHead + FlatEntry("A.BMP", FromText("BMabc")) + FlatEntry("B.TXT", FromText("xyz"));
    package.pop_back();
    EXPECT_EQ(Send(folder, "PlayFile.PLS", package), 0u);
    // The entry's folder counts, whatever the contents are.
    EXPECT_EQ(Sent(sign), "D:\\T\\A.BMP=BMabc D:\\T\\B.TXT=xy C:\\SEQUENT.SYS");
    const Bytes record = Hex("44 54 0F 1F 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01 00000000");
    const Bytes sequence = Hex("5351 0400 0200 0000") + record + Padded("A.BMP", 12) + record + Padded("B.TXT", 12);
    EXPECT_EQ(sign.requests.back().Extended(), sequence);
    EXPECT_EQ(ReadBytes(folder, "SEQUENT.SYS"), sequence);
    EXPECT_EQ(folder.Read("A.BMP"), "BMabc");
    EXPECT_EQ(sign.Config().progressTotal, 3);
    EXPECT_EQ(sign.Config().progressPos, 3);
}

TEST(Packages, TreeOnesKeepAllSchedules)
{
    const TempFolder folder;
    ScriptedSign sign;
    sign.Then(2, Good());
    // It promises a second file.
    EXPECT_EQ(Send(folder, "PLAYFILE.PLM", kTreeHead + TreeEntry("A.BMP", FromText("BMabc"))), 0u);
    EXPECT_EQ(Sent(sign), "D:\\T\\A.BMP=BMabc C:\\SEQUENT.SYS");
    EXPECT_EQ(sign.requests.back().Extended(),
              Hex("5351 0600 0100 0000 4653 2400 0200 01 01 1F000000 00000000") + FromText("D:\\P\\A.BMP") +
                  Hex("00 00000000 1F 00 2420 03 04 05 06 01 00 2520 07 08 09 10 00 01 FF 00") + Bytes(16, 1));
    EXPECT_EQ(sign.Config().progressTotal, 3);
    EXPECT_EQ(sign.Config().progressPos, 2);
}

TEST(Packages, EndWithTheFirstFailure)
{
    const TempFolder folder;
    {
        ScriptedSign sign;
        sign.Then(Good()).Then(Refusal(8451));
        const Bytes package = kFlatHead + FlatEntry("A.TXT", {1}) + FlatEntry("B.TXT", {2});
        EXPECT_EQ(Send(folder, "PLAYFILE.PLS", package), 8451u);
        EXPECT_EQ(sign.requests.size(), 2u);
        EXPECT_EQ(sign.Config().progressPos, 1);
        const Bytes left = ReadBytes(folder, "SEQUENT.SYS");
        EXPECT_EQ(Bytes(left.begin(), left.begin() + 8), Hex("5351 0400 0000 0000"));
    }
    ScriptedSign sign;
    for (const char* const name : {"../up", "x/../../up", "..\\up", "no/such", ""}) {
        EXPECT_EQ(Send(folder, "PLAYFILE.PLS", kFlatHead + FlatEntry(name, {1})), 20737u);
        EXPECT_EQ(Send(folder, "PLAYFILE.PLM", kTreeHead + TreeEntry(name, {1})), 20737u);
    }
    EXPECT_EQ(vxRWFile(folder.Path("no/PLAYFILE.PLM").c_str(), nullptr, VX_MOVE_WRITE), 20737u);
    EXPECT_TRUE(sign.requests.empty());
    // What is no package sends the list that is there.
    WriteBytes(folder, "SEQUENT.SYS", {7, 8, 9});
    sign.Then(Good()).Then(Refusal(8451));
    EXPECT_EQ(Send(folder, "PLAYFILE.PLS", kTreeHead + TreeEntry("A", {1})), 0u);
    EXPECT_EQ(sign.requests[0].Extended(), Bytes({7, 8, 9}));
    EXPECT_EQ(Send(folder, "PLAYFILE.PLM", {}), 8451u);
    std::filesystem::remove(folder.Path("SEQUENT.SYS"));
    EXPECT_EQ(Send(folder, "PLAYFILE.PLM", {}), 20737u);
    EXPECT_EQ(sign.Config().progressTotal, 1);
}

TEST(Packages, OfAnyBytes)
{
    const TempFolder folder;
    ScriptedSign sign;
    sign.otherwise = [](const Packet&) { return Good(); };
    EachDamage(kFlatHead + FlatEntry("A.TXT", FromText("abc")),
               [&](const Bytes& damaged) { Send(folder, "PLAYFILE.PLS", damaged); });
    EachDamage(kTreeHead + TreeEntry("A.TXT", FromText("abc")),
               [&](const Bytes& damaged) { Send(folder, "PLAYFILE.PLM", damaged); });
    EXPECT_EQ(Send(folder, "PLAYFILE.PLS", Hex("4C50 FFFF EEEEEEEEEEEEEEEE")), 0u);
    EXPECT_EQ(sign.requests.back().Extended(), Hex("5351 0400 0000 0000"));
}

} // namespace
} // namespace vxsign::test

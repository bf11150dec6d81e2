// Drives, folders and files: major 7.
#include "support/flatRows.h"
#include "support/tempFolder.h"

#include <algorithm>

namespace vxsign::test {
namespace {

const std::string kLong(300, 'p');

TEST(Folders, Requests)
{
    std::uint32_t total;
    std::uint16_t count;
    std::uint8_t entries[32];
    ExpectRequests({
        {"vxFormatDrive C", [] { return vxFormatDrive('C'); }, 7, 2, "43535953", ""},
        {"vxFormatDrive c", [] { return vxFormatDrive('c'); }, 7, 2, "63000000", ""},
        {"vxFormatDrive D", [] { return vxFormatDrive('D'); }, 7, 2, "44000000", ""},
        {"vxCreateDir", [] { return vxCreateDir("D:\\ABCDE"); }, 7, 3, "443A5C41 42434445 00000000", ""},
        {"vxRename", [] { return vxRename("D:\\A", "B"); }, 7, 4, "443A5C41 20420000", ""},
        {"vxMove", [] { return vxMove("A", "D:\\B"); }, 7, 5, "4120443A 5C420000", ""},
        {"vxPLDeleteByIndex", [] { return vxPLDeleteByIndex(255); }, 7, 6,
         "633A5C706C61796C6973745C73657175656E743235352E7379730000", ""},
        {"vxDelTextFiles", [] { return vxDelTextFiles(1); }, 7, 7, "01000000", ""},
        {"vxDelStringFiles", [] { return vxDelStringFiles(2); }, 7, 8, "02000000", ""},
        {"vxDelPictureFiles", [] { return vxDelPictureFiles(3); }, 7, 9, "03000000", ""},
        {"vxDelArrpicFiles", [] { return vxDelArrpicFiles(4); }, 7, 10, "04000000", ""},
        {"vxGetDirFile", [&] { return vxGetDirFile("D:\\A", &total, entries, 1); }, 7, 11, "443A5C41 00000000", ""},
        {"vxGetDirFileEx", [&] { return vxGetDirFileEx("D:\\", 0x0102, 0x0304, &total, entries, 1); }, 7, 12,
         "0403 0201 443A5C00", ""},
        {"vxGetDriveInfo", [] { return vxGetDriveInfo('E', nullptr, nullptr, nullptr); }, 7, 13, "453A0000", ""},
        {"vxIsFileExist", [] { return vxIsFileExist("D:\\A"); }, 7, 14, "443A5C41 00000000", ""},
        {"vxClearAllPlayFiles 1", [&] { return vxClearAllPlayFiles(1, &count); }, 7, 15, "01000000", ""},
        {"vxClearAllPlayFiles 2", [] { return vxClearAllPlayFiles(2, nullptr); }, 7, 15, "02000000", ""},
    });
}

TEST(Folders, LongPaths)
{
    ScriptedSign sign;
    sign.otherwise = [](const Packet&) { return Good(); };
    std::uint32_t total;
    std::uint8_t entry[32];
    const auto payload = [&](std::uint32_t result) {
        EXPECT_EQ(result, 0u);
        return sign.requests.back().Payload();
    };
    const Bytes p256(256, 'p');
    EXPECT_EQ(payload(vxGetDirFile(kLong.c_str(), &total, entry, 1)), p256) << "no terminator";
    EXPECT_EQ(payload(vxGetDirFileEx(kLong.c_str(), 1, 2, &total, entry, 1)), Hex("02000100") + Bytes(252, 'p'));
    // Announced at full length, with zeros in place of what does not go out.
    EXPECT_EQ(payload(vxCreateDir(kLong.c_str())), p256 + Bytes(48, 0));
    EXPECT_EQ(payload(vxIsFileExist(kLong.c_str())), p256 + Bytes(48, 0));
    EXPECT_EQ(payload(vxCreateDir(std::string(1019, 'p').c_str())), p256 + Bytes(764, 0));
    const Bytes cut = Bytes(254, 'a') + Hex("20 00");
    EXPECT_EQ(payload(vxRename(std::string(254, 'a').c_str(), "b")), cut);
    EXPECT_EQ(payload(vxMove(std::string(254, 'a').c_str(), "b")), cut);

    ExpectArgumentsError({
        {"vxCreateDir over the payload", [] { return vxCreateDir(std::string(1020, 'p').c_str()); }},
        {"vxIsFileExist over the payload", [] { return vxIsFileExist(std::string(1 << 20, 'p').c_str()); }},
    });
}

TEST(Folders, Replies)
{
    using Out = std::uint8_t*;
    const std::string five(320, '5');
    const std::string two(128, '5');
    ExpectReplies({
        {"vxGetDirFile of two", [](Out out) { return vxGetDirFile("D:", At<std::uint32_t>(out, 0), out + 4, 2); },
         "0900FFFF", five.c_str(), ("09000000" + two).c_str()},
        {"vxGetDirFileEx", [](Out out) { return vxGetDirFileEx("D:", 0, 2, At<std::uint32_t>(out, 0), out + 4, 9); },
         "FFFF0000", (two + "66666666").c_str(), ("FFFF0000" + two).c_str()},
        {"vxGetDriveInfo",
         [](Out out) { return vxGetDriveInfo('D', At<std::uint32_t>(out, 0), At<std::uint32_t>(out, 4), out + 8); },
         "010203040506070811121314151617181920212223", "", "0102030405060708111213141516171819202122"},
        {"vxGetDriveInfo cut short", [](Out out) { return vxGetDriveInfo('D', nullptr, nullptr, out); },
         "010203040506070811121314", "", "111213140000000000000000"},
        {"vxClearAllPlayFiles", [](Out out) { return vxClearAllPlayFiles(1, At<std::uint16_t>(out, 0)); }, "01020304",
         "", "0102"},
        {"vxClearAllPlayFiles without", [](Out out) { return vxClearAllPlayFiles(0, At<std::uint16_t>(out, 0)); },
         "01020304", "", ""},
    });
}

TEST(Folders, ArgumentsErrors)
{
    std::uint32_t total;
    std::uint8_t entries[32];
    ExpectArgumentsError({
        {"vxCreateDir", [] { return vxCreateDir(nullptr); }},
        {"vxRename from", [] { return vxRename(nullptr, "B"); }},
        {"vxRename to", [] { return vxRename("A", nullptr); }},
        {"vxMove from", [] { return vxMove(nullptr, "B"); }},
        {"vxMove to", [] { return vxMove("A", nullptr); }},
        {"vxDelete", [] { return vxDelete(nullptr); }},
        {"vxGetDirFile path", [&] { return vxGetDirFile(nullptr, &total, entries, 1); }},
        {"vxGetDirFile total", [&] { return vxGetDirFile("D:", nullptr, entries, 1); }},
        {"vxGetDirFile entries", [&] { return vxGetDirFile("D:", &total, nullptr, 1); }},
        {"vxGetDirFileEx path", [&] { return vxGetDirFileEx(nullptr, 0, 1, &total, entries, 1); }},
        {"vxGetDirFileEx total", [&] { return vxGetDirFileEx("D:", 0, 1, nullptr, entries, 1); }},
        {"vxGetDirFileEx entries", [&] { return vxGetDirFileEx("D:", 0, 1, &total, nullptr, 1); }},
        {"vxIsFileExist", [] { return vxIsFileExist(nullptr); }},
        {"vxClearAllPlayFiles", [] { return vxClearAllPlayFiles(1, nullptr); }},
        {"vxGetDirLongFileEx path", [] { return vxGetDirLongFileEx(nullptr, "x"); }},
        {"vxGetDirLongFileEx local", [] { return vxGetDirLongFileEx("D:", nullptr); }},
        {"vxLstFolder local", [] { return vxLstFolder(nullptr, "D:"); }},
        {"vxLstFolder path", [] { return vxLstFolder("x", nullptr); }},
        {"vxLstLongFolderCB callback", [] { return vxLstLongFolderCB("D:", nullptr, nullptr); }},
    });
}

// Listings through local files; the library's own temporary files go into the same folder.
class Listing : public testing::Test
{
protected:
    void SetUp() override { ::setenv("TMPDIR", folder.Path().c_str(), 1); }
    void TearDown() override { ::unsetenv("TMPDIR"); }

    const TempFolder folder;
    const std::string local = folder.Path("list");
};

// A folder whose entry n is 32 times the byte n, which gives its entries as it is asked.
Answer Page(const Packet& request, std::uint16_t total)
{
    const Bytes asked = request.Payload();
    Bytes entries;
    for (int i = asked.at(2); i < std::min<int>(asked.at(2) + asked.at(0), total); ++i)
        entries = entries + Bytes(32, static_cast<std::uint8_t>(i));
    return Good({static_cast<std::uint8_t>(total), static_cast<std::uint8_t>(total >> 8), 0, 0}, entries);
}

// Entries from..to - 1 of such a folder.
std::string Entries(int from, int to)
{
    std::string entries;
    for (int i = from; i < to; ++i)
        entries += std::string(32, static_cast<char>(i));
    return entries;
}

std::string Text(std::string_view digits)
{
    const Bytes bytes = Hex(digits);
    return {bytes.begin(), bytes.end()};
}

TEST_F(Listing, LstFolderRepeatsTheFirstPage)
{
    struct Row
    {
        std::uint16_t total;
        std::string contents;
        std::size_t requests;
    };
    for (const Row& row :
         {Row{0, Text("464C 0000 0C000000 00000000"), 1},
          Row{20, Text("464C 1400 8C020000 00000000") + Entries(0, 20), 1},
          Row{21, Text("464C 1500 AC020000 00000000") + Entries(0, 20) + Entries(0, 1), 2},
          Row{50, Text("464C 3200 4C060000 00000000") + Entries(0, 20) + Entries(0, 20) + Entries(20, 30), 3}}) {
        SCOPED_TRACE(row.total);
        ScriptedSign sign;
        sign.otherwise = [&](const Packet& request) { return Page(request, row.total); };
        EXPECT_EQ(vxLstFolder(local.c_str(), "D:\\T"), 0u);
        EXPECT_EQ(folder.Read("list"), row.contents);
        ASSERT_EQ(sign.requests.size(), row.requests);
        EXPECT_EQ(sign.requests.back().Minor(), 12);
        EXPECT_EQ(sign.requests[0].Payload(), Hex("14000000 443A5C54 00000000"));
        if (row.requests == 3) {
            EXPECT_EQ(sign.requests[2].Payload(), Hex("14001400 443A5C54 00000000"));
        }
    }
}

TEST_F(Listing, LstFolderFailures)
{
    ScriptedSign sign;
    EXPECT_EQ(vxLstFolder(folder.Path("no/such").c_str(), "D:"), 20737u);
    EXPECT_TRUE(sign.requests.empty());
    sign.Then(Refusal(29441));
    EXPECT_EQ(vxLstFolder(local.c_str(), "D:"), 29441u);
    EXPECT_EQ(folder.Read("list"), Text("464C 0000 0C000000 00000000"));
    // A later page: the header still has the first answer's number.
    sign.Then(Good(Hex("FFFF0000"), Bytes(32, 'x'))).Then(Refusal(36912));
    EXPECT_EQ(vxLstFolder(local.c_str(), "D:"), 36912u);
    EXPECT_EQ(folder.Read("list"), Text("464C FFFF ECFF1F00 00000000") + std::string(32, 'x') + std::string(608, '\0'))
        << "what a page lacks is zeros";
    sign.Then(Good(Hex("01000000"), Bytes(32, 'x')));
    EXPECT_EQ(vxLstFolder("/dev/full", "D:"), 256u);
}

TEST_F(Listing, LongListingIsReadAndDeleted)
{
    const Bytes listing = Hex("453A5C646C6973742E646C7400");
    ScriptedSign sign;
    sign.Then(Refusal(30209)).Then(Good()).Then(Good(Hex("03000000"), FromText("abc"))).Then(Refusal(30209));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 0u);
    EXPECT_EQ(folder.Read("list"), "abc");
    ASSERT_EQ(sign.requests.size(), 4u);
    const Bytes deletion = listing + Hex("000000");
    EXPECT_EQ(sign.requests[0].Minor(), 6);
    EXPECT_EQ(sign.requests[0].Payload(), deletion);
    EXPECT_EQ(sign.requests[1].Minor(), 16);
    EXPECT_EQ(sign.requests[1].Payload(), Hex("443A5C54 00000000"));
    EXPECT_EQ(sign.requests[2].Major(), 1);
    EXPECT_EQ(sign.requests[2].Minor(), 8);
    EXPECT_EQ(sign.requests[2].Payload(), Hex("0003 0100") + deletion);
    EXPECT_EQ(sign.requests[3].Payload(), deletion);
    EXPECT_EQ(sign.opened, 2) << "the reading has a command object of its own";

    sign.Then(Good()).Then(Refusal(36881));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 36881u);
    // A listing that cannot be read stays on the sign.
    sign.Then(2, Good()).Then(Refusal(36880));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 36880u);
    EXPECT_EQ(sign.requests.back().Major(), 1);
}

struct Seen
{
    std::vector<Bytes> entries;
    std::uint32_t result; // goes up by 1
};

std::uint32_t Collect(std::uint8_t* entry, void* user)
{
    auto* const seen = static_cast<Seen*>(user);
    seen->entries.emplace_back(entry, entry + 276);
    return seen->result++;
}

TEST_F(Listing, LongListingByCallback)
{
    const Bytes a(276, 'a');
    struct Row
    {
        const char* name;
        Bytes file;
        std::uint32_t result;
        std::vector<Bytes> entries;
    };
    const Row rows[] = {
        {"two", Hex("4C44 1000 02000000 38020000 00000000") + a + a, 8, {a, a}},
        {"more behind the last", Hex("4C44 1000 01000000 11000000 00000000") + a + a, 7, {a}},
        {"fewer than announced, the last cut short",
         Hex("4C44 1000 FFFFFFFF FFFFFFFF 00000000") + a + Hex("0102"),
         8,
         {a, Hex("0102") + Bytes(274, 0)}},
        {"none", Hex("4C44 1000 00000000 11000000 00000000"), 0, {}},
        {"total of 0", Hex("4C44 0000 01000000 00000000 00000000") + a, 258, {}},
        {"total of the header alone", Hex("4C44 1000 01000000 10000000 00000000") + a, 258, {}},
        {"another magic", Hex("4C45 1000 01000000 24010000 00000000") + a, 258, {}},
        {"header cut short", Hex("4C44 1000 01000000"), 258, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        ScriptedSign sign;
        const auto size = static_cast<std::uint8_t>(row.file.size());
        const auto high = static_cast<std::uint8_t>(row.file.size() >> 8);
        sign.Then(2, Good()).Then(Good({size, high, 0, 0}, row.file)).Then(Good());
        Seen seen{{}, 7};
        EXPECT_EQ(vxLstLongFolderCB("D:\\T", Collect, &seen), row.result);
        EXPECT_EQ(seen.entries, row.entries);
        EXPECT_TRUE(folder.IsEmpty());
    }
    ScriptedSign sign;
    sign.Then(Good()).Then(Refusal(29441));
    EXPECT_EQ(vxLstLongFolderCB("D:\\T", Collect, nullptr), 29441u);
    EXPECT_TRUE(folder.IsEmpty());
}

} // namespace
} // namespace vxsign::test

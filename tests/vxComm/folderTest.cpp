// Listings of folders, through local files.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

class Listing : public ScriptedTest
{
protected:
    const std::string local = folder.Path("list");
};

std::string Text(std::string_view digits)
{
    const Bytes bytes = Hex(digits);
    return {bytes.begin(), bytes.end()};
}

TEST_F(Listing, LstFolderFailures)
{
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
    sign.Then(Refusal(30209)).Then(Good()).Then(Good(Hex("03000000"), FromText("abc"))).Then(Refusal(30209));
    EXPECT_EQ(vxGetDirLongFileEx("D:\\T", local.c_str()), 0u);
    EXPECT_EQ(folder.Read("list"), "abc");
    ASSERT_EQ(sign.Road(), "7.6 7.16 1.8 7.6");
    const Bytes deletion = listing + Hex("000000");
    EXPECT_EQ(sign.requests[0].Payload(), deletion);
    EXPECT_EQ(sign.requests[1].Payload(), Hex("443A5C54 00000000"));
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
    const std::tuple<const char*, Bytes, std::uint32_t, std::vector<Bytes>> rows[] = {
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
    for (const auto& [name, file, result, entries] : rows) {
        SCOPED_TRACE(name);
        sign.Renew();
        const auto size = static_cast<std::uint8_t>(file.size());
        const auto high = static_cast<std::uint8_t>(file.size() >> 8);
        sign.Then(2, Good()).Then(Good({size, high, 0, 0}, file)).Then(Good());
        Seen seen{{}, 7};
        EXPECT_EQ(vxLstLongFolderCB("D:\\T", Collect, &seen), result);
        EXPECT_EQ(seen.entries, entries);
        EXPECT_TRUE(folder.IsEmpty());
    }
    sign.Renew();
    sign.Then(Good()).Then(Refusal(29441));
    EXPECT_EQ(vxLstLongFolderCB("D:\\T", Collect, nullptr), 29441u);
    EXPECT_TRUE(folder.IsEmpty());
}

} // namespace
} // namespace vxsign::test

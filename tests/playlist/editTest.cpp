// Edits of the play list by paths. Each test works on the list of a thread of its own.
#include <vxsign/result.h>

#include "support/playlistTree.h"

#include <gmock/gmock.h>

namespace {

using namespace vxsign::test;
using testing::ElementsAre;
using testing::IsEmpty;

using PlaylistEdit = ListTest;

TEST_F(PlaylistEdit, PathsAreCut)
{
    const auto x = [](std::size_t count) { return std::string(count, 'x'); };
    // Path, result of a listing, group ("-" for none), sub-group of a level path, that of a file path, file.
    const std::tuple<std::string, std::uint32_t, std::string, std::string, std::string, std::string> rows[] = {
        {"", VX_ARGUMENTS, "-", "-", "-", ""},
        {"G", VX_OK, "-", "-", "-", ""},
        {"/", VX_OK, "-", "-", "-", ""},
        {"/F", VX_ARGUMENTS, "-", "-", "-", "F"},
        {"/G/F", VX_ARGUMENTS, "G", "-", "-", "F"},
        {"?G/S/F", VX_ARGUMENTS, "G", "S", "S", "F"},
        {"/G/S/", VX_OK, "G", "S", "S", ""},
        {"/G//F/F", VX_ARGUMENTS, "G", "", "", "F/F"},
        {"//", VX_OK, "", "-", "-", ""},
        {"/" + x(253) + "/F", VX_ARGUMENTS, x(253), "-", "-", "F"},
        {"/" + x(254) + "/F", VX_ARGUMENTS, "-", "-", "-", x(254) + "/F"},
        {"/" + x(255) + "/F", VX_ARGUMENTS, "-", "-", "-", x(255) + "/F"},
        {"/" + x(257) + "/F", VX_ARGUMENTS, "x", "", "-", x(255) + "/F"},
        {"/G/" + x(251) + "/F", VX_ARGUMENTS, "G", x(251), x(251), "F"},
        {"/G/" + x(252) + "/F", VX_ARGUMENTS, "G", "-", "-", x(252) + "/F"},
        {"/G/" + x(257) + "/F", VX_ARGUMENTS, "G", "x", "-", x(257) + "/F"},
    };
    using namespace vxsign::playlist;
    const auto orNone = [](bool there, std::string_view text) { return there ? std::string(text) : "-"; };
    for (const auto& [path, result, groupName, subGroup, fileSubGroup, fileName] : rows) {
        SCOPED_TRACE(path);
        const PathParts level = CutPath(path, SecondSlash::kInOneByte);
        EXPECT_EQ(orNone(level.hasGroup, level.group), groupName);
        EXPECT_EQ(orNone(level.hasSubGroup, level.subGroup), subGroup);
        const PathParts file = CutPath(path, SecondSlash::kExact);
        EXPECT_EQ(orNone(file.hasGroup, file.group), groupName);
        EXPECT_EQ(orNone(file.hasSubGroup, file.subGroup), fileSubGroup);
        EXPECT_EQ(file.file, fileName);

        std::uint16_t count = 9;
        VXPLAYLIST_ITEM items[9];
        EXPECT_EQ(vxPLGetItems(Mutable(path), &count, items), result);
        EXPECT_EQ(vxPLDelItem(Mutable(path), 0, 0), result);
        EXPECT_EQ(vxPLMoveItem(Mutable(path), 0, 0), result);
        EXPECT_EQ(count, path == "/" ? 0 : 9) << "an unknown level leaves the count alone";
    }
    EXPECT_EQ(list.AddGroup("G", "X"), VX_OK) << "a path to nowhere";
    EXPECT_EQ(list.AddGroup("/G/", "X"), VX_FAILED_OPERATION);
    EXPECT_THAT(list.Names("/"), IsEmpty());
}

TEST_F(PlaylistEdit, Groups)
{
    EXPECT_EQ(list.AddGroup("/", "A", 300), VX_OK);
    EXPECT_EQ(list.AddGroup("/", "B", 300, 7), VX_OK);
    EXPECT_EQ(list.AddGroup("/", "first", 0), VX_OK);
    EXPECT_EQ(list.AddGroup("/", "A"), VX_FAILED_OPERATION);
    EXPECT_THAT(list.Names("/"), ElementsAre("0first", "0A", "0B"));
    EXPECT_THAT(list.Names("/A/"), ElementsAre("0A")) << "the default child";
    EXPECT_EQ(list.Indices("/"), "2 0 1") << "as they were added";
    EXPECT_EQ(list.Indices("/B/"), "2");

    // A sub-group is compared with the children of the item in front; of the first item, with the top level.
    EXPECT_EQ(list.AddGroup("/A/", "S"), VX_OK);
    EXPECT_EQ(list.AddGroup("/A/", "S", 0), VX_OK);
    EXPECT_EQ(list.AddGroup("/B/", "S"), VX_FAILED_OPERATION);
    EXPECT_EQ(list.AddGroup("/B/", "T", 9, 3), VX_OK);
    EXPECT_EQ(list.AddGroup("/first/", "B"), VX_FAILED_OPERATION);
    EXPECT_EQ(list.AddGroup("/no/", "X"), VX_FAILED_OPERATION);
    EXPECT_THAT(list.Names("/A/"), ElementsAre("0S", "0A", "0S"));
    EXPECT_EQ(list.Indices("/B/"), "2 1");

    EXPECT_EQ(list.ModifyGroup("/B/", "C", 8), VX_OK);
    EXPECT_THAT(list.Names("/C/"), ElementsAre("0C", "0T"));
    EXPECT_EQ(list.ModifyGroup("/C/T/", "U", 9), VX_OK);
    EXPECT_THAT(list.Names("/C/"), ElementsAre("0C", "0U"));
    EXPECT_EQ(list.Types("/") + list.Types("/C/"), "0 0 88 9");
    vxPLDelItem(Mutable("/C/"), 0, 0);
    EXPECT_EQ(list.ModifyGroup("/C/", "D", 8), VX_OK) << "no child of its own name";
    EXPECT_THAT(list.Names("/"), ElementsAre("0first", "0A", "0C"));
    EXPECT_TRUE(list.AddFile("/C/U/", "f"));
    EXPECT_FALSE(list.AddFile("/C/", "g"));
}

TEST_F(PlaylistEdit, Files)
{
    EXPECT_TRUE(list.AddFile("/", "1.Nmg"));
    list.AddGroup("/", "G");
    EXPECT_TRUE(list.AddFile("/", "2.Nmg", 0)) << "at the end, whatever the index";
    EXPECT_FALSE(list.AddFile("/", "1.Nmg")) << "the record stays the caller's";
    EXPECT_THAT(list.Names("/"), ElementsAre("11.Nmg", "0G", "12.Nmg"));
    EXPECT_EQ(list.Indices("/"), "0 1 2");

    EXPECT_TRUE(list.AddFile("/G/", "a"));
    EXPECT_TRUE(list.AddFile("/G/", "b", 0));
    EXPECT_TRUE(list.AddFile("/G/", "a")) << "the default child's files are not compared";
    EXPECT_FALSE(list.AddFile("/G/", "G")) << "the names of sub-groups are";
    EXPECT_FALSE(list.AddFile("/", "b")) << "the first file of a group counts at the root";
    EXPECT_FALSE(list.AddFile("/no/", "x"));
    EXPECT_THAT(list.Names("/G/G/"), ElementsAre("1b", "1a", "1a"));
    list.AddGroup("/G/", "S");
    list.AddGroup("/G/", "T");
    EXPECT_TRUE(list.AddFile("/G/S/", "x"));
    EXPECT_TRUE(list.AddFile("/G/S/", "y"));
    EXPECT_FALSE(list.AddFile("/G/T/", "y")) << "in another sub-group";
    EXPECT_TRUE(list.AddFile("/G/T/", "z"));

    EXPECT_EQ(list.Get("/2.Nmg"), "2.Nmg");
    EXPECT_EQ(list.Get("/G/a"), "a");
    EXPECT_EQ(list.Get("/G/S/y"), "y");
    EXPECT_EQ(list.Get("/G/T/x"), "z") << "what stands at the place of the file of that name";
    for (const char* missing : {"", "/", "/G/", "/G/T/y", "/G/S/", "/none", "/no/a", "/G/no/x"})
        EXPECT_EQ(list.Get(missing), "untouched") << missing;

    const std::string full(256, 'n');
    EXPECT_TRUE(list.AddFile("/", full));
    EXPECT_FALSE(list.AddFile("/", full));
    EXPECT_EQ(list.Names("/").back(), "1" + full);
    EXPECT_EQ(list.Get("/" + full), full);
    EXPECT_EQ(list.Get("/" + full + "n"), "untouched");

    VXPLAYLIST_FILE_INFO changed{};
    std::strcpy(changed.fileName, "new");
    EXPECT_EQ(vxPLModifyFile(Mutable("/G/S/x"), &changed), VX_OK);
    EXPECT_THAT(list.Names("/G/S/"), ElementsAre("1new", "1y"));
}

TEST_F(PlaylistEdit, MovesAndDeletes)
{
    for (const char* level : {"/", "/G/S/"})
        EXPECT_EQ(vxPLDelItem(Mutable(level), 0, 9), VX_OK) << "empty or missing";
    list.AddGroup("/", "G");
    list.AddGroup("/G/", "S");
    for (const char* file : {"a", "b", "c"})
        list.AddFile("/G/S/", file);
    const std::tuple<std::uint16_t, std::uint16_t, const char*> moves[] = {
        {0, 1, "bac"}, {2, 1, "bac"}, {65535, 1, "bac"}, {0, 0, "bac"},
        {2, 0, "bca"}, {3, 2, "bca"}, {65535, 0, "bca"}, {1, 77, "cba"}};
    for (const auto& [index, direction, wanted] : moves) {
        vxPLMoveItem(Mutable("/G/S/"), index, direction);
        std::string order;
        for (const std::string& name : list.Names("/G/S/"))
            order += name.substr(1);
        EXPECT_EQ(order, wanted) << index << ' ' << direction;
    }
    vxPLMoveItem(Mutable("/G/"), 0, 1);
    EXPECT_THAT(list.Names("/G/"), ElementsAre("0S", "0G"));

    vxPLDelItem(Mutable("/G/S/"), 2, 1);
    EXPECT_EQ(list.Names("/G/S/").size(), 3u);
    vxPLDelItem(Mutable("/G/S/"), 1, 60000);
    EXPECT_THAT(list.Names("/G/S/"), ElementsAre("1c"));
    vxPLDelItem(Mutable("/G/S/"), 500, 500);
    EXPECT_THAT(list.Names("/G/S/"), IsEmpty());
    vxPLDelItem(Mutable("/"), 0, 0);
    EXPECT_THAT(list.Names("/"), IsEmpty());
}

TEST_F(PlaylistEdit, PositionsAreOneByteWide)
{
    for (int i = 1; i <= 257; ++i)
        EXPECT_TRUE(list.AddFile("/", std::to_string(i)));
    EXPECT_EQ(list.Get("/255"), "255");
    EXPECT_EQ(list.Get("/256"), "untouched");
    EXPECT_EQ(list.Get("/257"), "1");
    EXPECT_TRUE(list.AddFile("/", "256")) << "not found, so taken again";
    EXPECT_FALSE(list.AddFile("/", "257"));
    list.AddGroup("/", "G", 258);
    EXPECT_EQ(list.Names("/")[2], "0G") << "258 in one byte";

    std::uint16_t capacity = 258;
    std::vector<VXPLAYLIST_ITEM> items(259);
    EXPECT_EQ(vxPLGetItems(Mutable("/"), &capacity, items.data()), VX_ARGUMENTS);
    EXPECT_EQ(capacity, 259);
    EXPECT_EQ(items[0].kind, 0) << "untouched";
}

} // namespace

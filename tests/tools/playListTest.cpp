// Play lists as the tool edits them.
#include "vxctl/playlist/playList.h"
#include "support/fullDisk.h"
#include "support/tempFolder.h"
#include "vxctl/cli/failure.h"

#include <limits>

namespace vxctl::test {
namespace {

using vxsign::test::FullDisk;

constexpr std::uint16_t kEnd = std::numeric_limits<std::uint16_t>::max();

VXPLAYLIST_FILE_INFO Named(const std::string& name, std::uint8_t times = 1)
{
    VXPLAYLIST_FILE_INFO info{};
    name.copy(info.fileName, sizeof info.fileName - 1);
    info.playTimes = times;
    return info;
}

std::string Names(const PlayList& list, const std::string& place)
{
    const auto level = list.Level(place);
    if (!level)
        return "none";
    std::string names;
    for (const PlayListEntry& entry : *level)
        names += entry.name + (entry.isGroup ? "/ " : " ");
    return names;
}

TEST(PlayListPlace, PathsNameFilesAndGroups)
{
    EXPECT_EQ(ParsePlace("/F"), (PlayListPlace{"", "", "F"}));
    EXPECT_EQ(ParsePlace("G/"), (PlayListPlace{"G", "", ""}));
    EXPECT_EQ(ParsePlace("/G/S/F"), (PlayListPlace{"G", "S", "F"}));
    for (const std::string path : {"//", "/G//F", "/A/B/C/F", "/A/B/C/"})
        EXPECT_THROW(ParsePlace(path), UsageError) << path;
    EXPECT_THROW(ParsePlace(std::string(255, 'x')), UsageError);
}

using PlayListFile = vxsign::test::FolderTest;

// What one command saves the next one finds: files of groups themselves, groups of the same sub-groups, the first
// group.
TEST_F(PlayListFile, GroupsKeepAllTheirFilesFromCommandToCommand)
{
    const std::string path = folder.Path("new/list.xml");
    PlayList::OpenOrMake(path);
    const auto edit = [&path](auto change) {
        PlayList list = PlayList::Open(path);
        change(list);
        list.Save();
    };
    edit([](PlayList& list) { list.AddGroup(ParsePlace("/one/"), 0, kEnd); });
    edit([](PlayList& list) { list.AddGroup(ParsePlace("/one/night/"), 3, kEnd); });
    edit([](PlayList& list) { list.AddGroup(ParsePlace("/two/"), 1, 0); });
    edit([](PlayList& list) { list.AddGroup(ParsePlace("/two/night/"), 0, kEnd); });
    for (const char* name : {"a", "b", "c"})
        edit([name](PlayList& list) { list.AddFile(ParsePlace("/one/"), Named(name), 0); });
    edit([](PlayList& list) { list.AddFile(ParsePlace("/one/night/"), Named("d", 7), kEnd); });
    edit([](PlayList& list) { list.AddFile(ParsePlace("/"), Named("e"), kEnd); });

    const PlayList list = PlayList::Open(path);
    EXPECT_EQ(Names(list, "/"), "two/ one/ e ");
    EXPECT_EQ(Names(list, "/one/"), "one/ night/ ");
    EXPECT_EQ(Names(list, "/two/"), "two/ night/ ");
    EXPECT_EQ(Names(list, list.FilesOf(ParsePlace("/one/"))), "c b a ");
    EXPECT_EQ(list.Get("/one/night/", "d")->playTimes, 7);
    EXPECT_FALSE(list.Get("/one/night/", "a")) << "the search meets the one in another sub-group";

    edit([](PlayList& change) { change.Move(ParsePlace("/one/c"), 9); });
    edit([](PlayList& change) { change.Move(ParsePlace("/one/"), -1); });
    edit([](PlayList& change) { change.Remove(ParsePlace("/one/a")); });
    edit([](PlayList& change) { change.Remove(ParsePlace("/two/night/")); });
    const PlayList after = PlayList::Open(path);
    EXPECT_EQ(Names(after, "/"), "one/ two/ e ");
    EXPECT_EQ(Names(after, "/one/one/"), "b c ");
    EXPECT_EQ(Names(after, "/two/"), "two/ ");
}

TEST_F(PlayListFile, RefusesWhatCannotBeAndKeepsTheFile)
{
    const std::string path = folder.Path("list.xml");
    PlayList list = PlayList::OpenOrMake(path);
    list.AddGroup(ParsePlace("/G/"), 0, kEnd);
    list.AddFile(ParsePlace("/G/"), Named("f"), kEnd);
    list.Save();
    EXPECT_THROW(list.AddGroup(ParsePlace("/G/"), 0, kEnd), UsageError);
    EXPECT_THROW(list.AddGroup(ParsePlace("/NONE/S/"), 0, kEnd), UsageError);
    EXPECT_THROW(list.AddFile(ParsePlace("/G/"), Named("f"), kEnd), UsageError);
    EXPECT_THROW(list.AddFile(ParsePlace("/NONE/"), Named("x"), kEnd), UsageError);
    EXPECT_THROW(list.Remove(ParsePlace("/G/G/")), UsageError);
    EXPECT_THROW(list.Remove(ParsePlace("/x")), UsageError);
    EXPECT_THROW(PlayList::Open(folder.Path("none.xml")), UsageError);

    const std::string before = folder.Read("list.xml");
    list.AddFile(ParsePlace("/G/"), Named("g"), kEnd);
    {
        const FullDisk full;
        EXPECT_THROW(list.Save(), SignFailure);
    }
    EXPECT_EQ(folder.Read("list.xml"), before);

    const std::string garbage = folder.Write("garbage.xml", "<vxPlayList><Item>");
    EXPECT_THROW(PlayList::OpenOrMake(garbage), UsageError);
    EXPECT_EQ(folder.Read("garbage.xml"), "<vxPlayList><Item>");
}

} // namespace
} // namespace vxctl::test

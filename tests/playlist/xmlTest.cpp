// The XML form of the play list.
#include <vxsign/result.h>

#include "support/fullDisk.h"
#include "support/playlistTree.h"

#include <gmock/gmock.h>

namespace {

using namespace vxsign::test;
using testing::ElementsAre;

const std::string kHead = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<vxPlayList>\n    <Version>1</Version>\n";

// A file at the root with a schedule, a group with a file of its own and a sub-group, an empty group.
const std::string kGolden =
    kHead +
    "    <Count>3</Count>\n"
    "    <Item><groupName></groupName><playType>0</playType><itemType>0</itemType><parentIndex>0</parentIndex>"
    "<fileCount>1</fileCount>"
    "<File><fileName>a&lt;b&amp;\xC3\xA9\xFF.Nmg</fileName><schCount>1</schCount><playTimes>255</playTimes>"
    "<Drive>68</Drive><Type>84</Type><PicStaySec>65535</PicStaySec><PicInMode>7</PicInMode>"
    "<PicOutMode>200</PicOutMode><pcFileName>C:\\x y\\a.Nmg</pcFileName>"
    "<SCH><bweek_rep>127</bweek_rep><b_year>8200</b_year><b_month>1</b_month><b_day>2</b_day><b_hour>3</b_hour>"
    "<b_minute>4</b_minute><b_date_valid>5</b_date_valid><b_time_valid>6</b_time_valid><e_year>8217</e_year>"
    "<e_month>18</e_month><e_day>49</e_day><e_hour>35</e_hour><e_minute>89</e_minute>"
    "<e_date_valid>7</e_date_valid><e_time_valid>8</e_time_valid></SCH></File></Item>\n"
    "    <Item><groupName>G</groupName><playType>3</playType><itemType>1</itemType><parentIndex>1</parentIndex>"
    "<fileCount>2</fileCount>"
    "<File><fileName>g</fileName><schCount>0</schCount><playTimes>0</playTimes><Drive>0</Drive><Type>0</Type>"
    "<PicStaySec>0</PicStaySec><PicInMode>0</PicInMode><PicOutMode>0</PicOutMode><pcFileName></pcFileName></File>"
    "<SubGroup><subGroupName>S</subGroupName><playType>4</playType><itemType>2</itemType>"
    "<parentIndex>1</parentIndex><fileCount>1</fileCount>"
    "<File><fileName>s</fileName><schCount>0</schCount><playTimes>0</playTimes><Drive>0</Drive><Type>0</Type>"
    "<PicStaySec>0</PicStaySec><PicInMode>0</PicInMode><PicOutMode>0</PicOutMode><pcFileName></pcFileName></File>"
    "</SubGroup></Item>\n"
    "    <Item><groupName>E</groupName><playType>0</playType><itemType>1</itemType><parentIndex>2</parentIndex>"
    "<fileCount>1</fileCount></Item>\n"
    "</vxPlayList>\n";

void MakeGoldenList(PathList& list)
{
    list.AddFile("/", "a<b&\xC3\xA9\xFF.Nmg");
    VXPLAYLIST_FILE_INFO info{};
    EXPECT_EQ(vxPLGetFile(Mutable("/a<b&\xC3\xA9\xFF.Nmg"), &info), VX_OK);
    info.schCount = 1;
    info.playTimes = 255;
    info.Drive = 'D';
    info.Type = 'T';
    info.PicStaySec = 65535;
    info.PicInMode = 7;
    info.PicOutMode = 200;
    info.SCH[0] = {127, 0, 0x2008, 1, 2, 3, 4, 5, 6, 0x2019, 0x12, 0x31, 0x23, 0x59, 7, 8};
    std::strcpy(info.pcFileName, "C:\\x y\\a.Nmg");
    EXPECT_EQ(vxPLModifyFile(Mutable("/a<b&\xC3\xA9\xFF.Nmg"), &info), VX_OK);
    list.AddGroup("/", "G", 9, 3);
    list.AddFile("/G/", "g");
    list.AddGroup("/G/", "S", 9, 4);
    list.AddFile("/G/S/", "s");
    list.AddGroup("/", "E");
}

class PlaylistXml : public ListTest
{
protected:
    std::uint32_t Load(const std::string& text) const { return vxLoadSYSFromXML(folder.Write("in.xml", text).data()); }

    std::uint32_t LoadItems(const std::string& items) const { return Load("<r>" + items + "</r>"); }
};

// The files of the list: children in brackets, sub-groups with their name.
std::string Tree(PathList& list)
{
    std::string text;
    for (const auto& item : list.List()) {
        text += item->groupName + "{";
        for (const auto& child : item->children) {
            text += child->itemType == 2 ? child->groupName + "(" : "(";
            for (const auto& file : child->children)
                text += std::string(file->fileName) + ' ';
            text += ")";
        }
        text += "}";
    }
    return text;
}

TEST_F(PlaylistXml, SavesAndLoadsAllFields)
{
    ASSERT_EQ(vxPLInit(Mutable(folder.Path()), Mutable("list.xml")), VX_OK);
    EXPECT_EQ(folder.Read("list.xml"), "") << "made empty";
    EXPECT_EQ(vxPLSave(), VX_OK);
    EXPECT_EQ(folder.Read("list.xml"), kHead + "    <Count>0</Count>\n</vxPlayList>\n");
    MakeGoldenList(list);
    EXPECT_EQ(vxPLSave(), VX_OK);
    EXPECT_EQ(folder.Read("list.xml"), kGolden);
    list.AddGroup("/", "F");
#if !defined(_WIN32)
    {
        const FullDisk full;
        EXPECT_EQ(vxPLSave(), VX_OK);
    }
#endif
    EXPECT_EQ(folder.Read("list.xml"), kGolden) << "the old file stays";
    EXPECT_EQ(folder.Names(), "list.xml");
    const std::string backslashed = folder.Path() + "\\";
    ASSERT_EQ(vxPLInit(Mutable(backslashed), Mutable("list.xml")), VX_OK);
    EXPECT_EQ(Tree(list), "{(a<b&\xC3\xA9\xFF.Nmg )}G{(g )S(s )}E{}");
    EXPECT_EQ(list.Types("/"), "0 3 0");
    EXPECT_EQ(list.Indices("/"), "0 1 2");
    EXPECT_EQ(list.Get("/G/S/s"), "s");
    EXPECT_EQ(list.Get("/G/g"), "untouched") << "a file beside sub-groups makes no default child";
    EXPECT_EQ(vxPLSave(), VX_OK);
    std::string kept = kGolden; // all but the child of the empty group
    kept.replace(kept.rfind("<fileCount>1"), 12, "<fileCount>0");
    EXPECT_EQ(folder.Read("list.xml"), kept);
}

TEST_F(PlaylistXml, ReadsWhatIsThere)
{
    const std::string group = "<Item><groupName>G</groupName><itemType>1</itemType>";
    const auto file = [](const std::string& name) { return "<File><fileName>" + name + "</fileName></File>"; };
    const auto sub = [&](const std::string& name, const std::string& rest) {
        return "<SubGroup><subGroupName>" + name + "</subGroupName><itemType>2</itemType>" + rest + "</SubGroup>";
    };
    const std::pair<std::string, std::string> rows[] = {
        {"<Item/>", ""},
        {"<Count/><Item/>", ""},
        {"<Count>-1</Count><Item/>", ""},
        {"<Count>2</Count><Item/><Item/><Item/>", "{}{}"},
        {"<Count> 5 of 9</Count><Item/><Other/>", "{}{}"},
        {"<Count>99999999999999999999</Count><Other/><Item/><Item/>", ""}, // the low bits are -1
        {"<Count>1</Count>" + group + file("a") + file("b") + "<fileCount>1</fileCount></Item>", "G{(a )}"},
        {"<Count>1</Count>" + group + "<fileCount>3</fileCount>" + file("a") + "<X><fileName>b</fileName></X></Item>",
         "G{(a )(b )}"},
        {"<Count>2</Count>" + group + "<fileCount>1</fileCount></Item>" + group + file("a") + "</Item>",
         "G{}G{(a )}"}, // the count of the item before
        {"<Count>1</Count>" + group + file("a") + "<fileCount>9</fileCount>" + file("b") +
             "<X><fileName>x</fileName></X>" + sub("S", "<fileCount>3</fileCount>" + file("s") + "<X/>" + file("t")) +
             "<X><subGroupName>n</subGroupName><itemType>2</itemType></X>" + file("c") + "</Item>",
         "G{(b )(x )S(s t )n()(c )}"},
        {"<Count>1</Count>" + group + "<fileCount>2</fileCount>" + file("a") + file("b") + sub("S", "") + "</Item>",
         "G{(a )(b )}"}, // the files push the sub-group out of the count
        {"<Count>1</Count>" + group + sub("S", "") + "<fileCount>2</fileCount></Item>", "G{}"},
        {"<Count>1</Count>" + group + sub("S", "") + "</Item>", "G{}"},
    };
    for (const auto& [items, tree] : rows) {
        EXPECT_EQ(LoadItems(items), VX_OK) << items;
        EXPECT_EQ(Tree(list), tree) << items;
    }
}

TEST_F(PlaylistXml, CutsToTheFields)
{
    const std::string name(600, 'n');
    const std::string file = "<File><fileName>" + name + "</fileName><pcFileName>" + name +
                             "</pcFileName><schCount>258</schCount><playTimes>-1</playTimes>"
                             "<PicStaySec>65537</PicStaySec><Drive><!--68--></Drive>"
                             "<SCH><b_year>8200</b_year></SCH></File>";
    EXPECT_EQ(LoadItems("<Count>2</Count><Item><groupName>" + name + "</groupName><fileCount>1</fileCount>" + file +
                        "</Item><Item><groupName>H</groupName><itemType>1</itemType><fileCount>1</fileCount>" + file +
                        "<SubGroup/></Item>"),
              VX_OK);
    const auto& items = list.List();
    EXPECT_EQ(items[0]->groupName, name);
    EXPECT_EQ(items[0]->children[0]->groupName, name);
    EXPECT_EQ(items[1]->children[0]->groupName, "");
    for (const auto& item : items) {
        const VXPLAYLIST_FILE_INFO& info = *item->children[0]->children[0];
        EXPECT_EQ(std::string(info.fileName), name.substr(0, 255));
        EXPECT_EQ(std::string(info.pcFileName), name.substr(0, 511));
        EXPECT_EQ(info.schCount, 2) << "as read, though one schedule follows";
        EXPECT_EQ(info.SCH[0].b_year, 0x2008);
        EXPECT_EQ(info.SCH[1].b_year, 0);
        EXPECT_EQ(info.playTimes, 255);
        EXPECT_EQ(info.Drive, 0);
        EXPECT_EQ(info.PicStaySec, item == items[0] ? 1 : 0) << "not read beside sub-groups";
    }
}

TEST_F(PlaylistXml, Failures)
{
    EXPECT_EQ(vxPLInit(Mutable(folder.Path("no/folder")), Mutable("a")), VX_CALL);
    EXPECT_EQ(vxPLInit(Mutable(folder.Path()), Mutable("")), VX_CALL) << "a folder";
    EXPECT_EQ(vxPLSave(), VX_OK) << "whatever becomes of the file";
    EXPECT_EQ(vxLoadSYSFromXML(nullptr), VX_NO_RECORD);
    std::string deep;
    for (int i = 0; i < 100000; ++i)
        deep += "<Item>";
    for (const std::string& text : {std::string(), std::string("<r>"), std::string("no XML"), deep}) {
        EXPECT_TRUE(list.AddFile("/", "lost"));
        EXPECT_EQ(Load(text), VX_NO_RECORD);
        EXPECT_TRUE(list.List().empty());
    }
}

TEST_F(PlaylistXml, EachThreadHasItsOwnList)
{
    const auto work = [&](const std::string& name) {
        PathList own;
        vxPLInit(Mutable(folder.Path()), Mutable(name + ".xml"));
        for (int i = 0; i < 50; ++i) {
            EXPECT_TRUE(own.AddFile("/", name + std::to_string(i)));
            EXPECT_EQ(vxPLSave(), VX_OK);
            EXPECT_EQ(vxLoadSYSFromXML(nullptr), VX_OK);
            EXPECT_EQ(own.Names("/").size(), static_cast<std::size_t>(i + 1));
            EXPECT_EQ(own.Names("/").back(), "1" + name + std::to_string(i));
        }
    };
    std::thread first(work, "first");
    std::thread second(work, "second");
    first.join();
    second.join();
}

} // namespace

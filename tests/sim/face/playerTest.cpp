// The player: files in turn, their times, modes and schedules.
#include "faceSamples.h"

#include "sim/content/player.h"

#include <array>

namespace vxsim::test {
namespace {

// A message of blocks that fill a glyph's whole cell, for two seconds unless told otherwise.
Bytes Blocks(std::string_view text, std::string_view head = "\x0E"
                                                            "20002")
{
    return BytesOf("QZ00SAX") + BytesOf(head) + BytesOf(text) + Bytes{0x04};
}

class PlayerTest : public ::testing::Test
{
protected:
    PlayerTest()
    {
        Write("A.BMP", Dot(kGreen));
        Write("B.BMP", Dot(kBlue));
    }

    void Write(const std::string& name, const Bytes& bytes) { temp.Write(name, ToText(bytes)); }

    // Plays a list of these files from its start.
    void Start(const std::vector<std::string>& names, std::uint64_t nowMs = 0)
    {
        Write("SEQUENT.SYS", FlatList(names));
        player.Restart(nowMs);
    }

    // A list of BMPs in folder T made in memory, and a player whose clock shows the minutes since 2008-03-15 06:00.
    static SequenceItem Item(const std::string& name, std::uint8_t playTimes = 1, std::vector<Schedule> schedules = {})
    {
        return {FileEntry{"D:\\T\\" + name, playTimes, 1, 0, 0, std::move(schedules)}};
    }

    static Schedule Minutes(std::uint8_t first, std::uint8_t last)
    {
        return {127, {0, 0, 0, 6, first, false, true}, {0, 0, 0, 6, last, false, true}};
    }

    static Moment Minute(std::uint64_t nowMs)
    {
        const auto minutes = static_cast<unsigned>(nowMs / 60000);
        return {0x20080315, static_cast<std::uint16_t>(0x0600 + minutes / 10 * 16 + minutes % 10), 6};
    }

    std::optional<std::filesystem::path> Find(std::string_view path)
    {
        ++asked;
        if (path.substr(0, 5) != "D:\\T\\" || !std::filesystem::exists(folder / path.substr(5)))
            return std::nullopt;
        return folder / path.substr(5);
    }

    // What the middle of the face shows: a letter for its colour, '.' for dark.
    char Middle(std::uint64_t nowMs)
    {
        Canvas face(16, 16);
        player.Draw(nowMs, face);
        const Rgb colour = face.At(7, 7);
        return colour == kRed ? 'R' : colour == kGreen ? 'G' : colour == kBlue ? 'B' : '.';
    }

    // Moments with what is to be seen then, and why.
    struct Look
    {
        std::uint64_t ms;
        char seen;
        const char* why = "";
    };
    void Film(std::initializer_list<Look> looks)
    {
        for (const Look& look : looks)
            EXPECT_EQ(Middle(look.ms), look.seen) << look.ms << ' ' << look.why;
    }

    TempFolder temp;
    const std::filesystem::path& folder = temp.path;
    int asked = 0;
    MomentClock clock = [](std::uint64_t) { return Moment{}; };
    Player player{16, 16, [this](std::string_view path) { return Find(path); }, folder / "SEQUENT.SYS",
                  [this](std::uint64_t nowMs) { return clock(nowMs); }};
};

TEST_F(PlayerTest, PlaysTheFilesInTurn)
{
    Write("B.NMG", Blocks("\u2588\u2588"));
    Start({"A.BMP", "B.NMG"}, 10000);
    EXPECT_EQ(player.CurrentFile(), "D:\\T\\A.BMP");
    Film({{9000, 'G', "a clock that runs back"}, {12999, 'G', "three seconds of the sign's own"}, {13000, 'R'}});
    EXPECT_EQ(player.CurrentFile(), "D:\\T\\B.NMG");
    Film({{14999, 'R'}, {15000, 'G', "from the start again"}, {18500, 'R'}});
    Film({{3600000, 'R', "after a long absence a turn starts"}, {3601999, 'R'}, {3602000, 'G'}});

    // Turns that nobody saw keep to their times.
    Start({"A.BMP", "GONE", "B.BMP"});
    Film({{4000, 'B'}, {5999, 'B', "the file passed over took no time"}, {6000, 'G'}, {17000, 'B'}, {18000, 'G'}});
}

TEST_F(PlayerTest, TellsWhenItHasToBeLookedAtNext)
{
    using Time = std::optional<std::uint64_t>;
    Start({"A.BMP"}, 10000);
    EXPECT_EQ(player.NextMs(), Time(13000)) << "the end of the turn";
    player.Pause(11000);
    EXPECT_EQ(player.NextMs(), Time());
    player.Continue(20000);
    EXPECT_EQ(player.NextMs(), Time(22000));
    Start({"GONE"}, 30000);
    EXPECT_EQ(player.NextMs(), Time(31000)) << "it may come";
    player.Stop();
    EXPECT_EQ(player.NextMs(), Time());
}

TEST_F(PlayerTest, TakesDefaultsFromTheDisplayStyle)
{
    std::array<std::uint8_t, 52> style{};
    style[14] = 10;
    player.SetDefaults(style);
    Start({"A.BMP", "B.BMP"});
    Film({{9999, 'G'}, {10000, 'B'}});

    style[14] = 255;
    style[16] = 0x2C; // 300 seconds
    style[17] = 0x01;
    style[11] = '5';
    player.SetDefaults(style);
    player.Restart(0);
    Film({{100, '.', "still scrolling up"}, {300799, 'G'}, {301600, 'B'}});

    player.SetDefaults(std::array<std::uint8_t, 52>{});
    player.Restart(0);
    Film({{2999, 'G'}, {3000, 'B'}});

    // The fields of a tree, in place of the style's.
    const auto record = [](std::string_view path, const Bytes& fields) {
        return Bytes{'F', 'S', 0, 0, 0, 0, 1, 0, 32, 0, 0, 0, 0, 0, 0, 0} + BytesOf(path) + Bytes(2, 0) + fields;
    };
    Write("SEQUENT.SYS", Bytes{'S', 'Q', 6, 0, 2, 0, 0, 0} + record("D:\\T\\A.BMP", {7, 0, '2', 0}) +
                             record("D:\\T\\B.BMP", {0, 0, 255, 255}));
    player.Restart(0);
    Film({{0, '.'}, {7599, 'G'}, {7600, 'B', "no mode of its own"}, {10600, '.'}});
}

TEST_F(PlayerTest, BringsPagesInAndOutByTheModesOfTheFile)
{
    // Two pages, wiped in from the left and scrolled out upwards, one second each.
    Write("A.NMG", Blocks("\u2588\u2588\f\u2588\u2588", "\x0AI1\x0AO5\x0E"
                                                        "20001"));
    Start({"A.NMG"});
    for (const std::uint64_t page : {0U, 2400U, 4800U})
        for (const auto& [ms, lit] : {std::pair{0U, 0}, {300U, 128}, {600U, 256}, {1599U, 256}, {2000U, 128}}) {
            Canvas face(16, 16);
            player.Draw(page + ms, face);
            EXPECT_EQ(CountLit(face), lit) << page << ' ' << ms;
        }

    // A canvas of any size will do.
    Write("A.NMG", Blocks("\u2588\u2588", "\x0AI3\x0E"
                                          "20001"));
    Start({"A.NMG"});
    for (const auto& [width, height] : {std::pair{1, 1}, {40, 40}, {8, 100}}) {
        Canvas face(width, height);
        player.Draw(1300, face);
        EXPECT_EQ(face.Width(), width);
        EXPECT_EQ(face.Height(), height);
        EXPECT_EQ(face.At(0, 0), kRed);
    }
}

TEST_F(PlayerTest, PlaysAFileAsOftenAsItsRecordSays)
{
    Write("B.NMG", Blocks("\u2588\u2588", "\x0AI1\x0E"
                                          "20001"));
    player.Play({6, {Item("A.BMP", 3), Item("B.NMG", 2), Item("A.BMP", 0)}}, 0);
    Film({{2999, 'G'}});
    for (const std::uint64_t start : {3000U, 4600U}) {
        EXPECT_EQ(Middle(start), '.') << "comes in each time";
        EXPECT_EQ(Middle(start + 1599), 'R');
    }
    Film({{6200, 'G'}});
    EXPECT_EQ(player.NextFile(6200), "D:\\T\\A.BMP");
    Film({{10200, '.', "0 is once; then three times again"}});
    player.MoveToNextPage(11000);
    Film({{11000, '.', "the second time"}, {12599, 'R'}, {12600, 'G'}});
}

TEST_F(PlayerTest, KeepsToTheSchedules)
{
    Write("C.BMP", Dot(kRed));
    clock = Minute;
    player.Play({6,
                 {Item("A.BMP", 1, {Minutes(0, 1), Minutes(0x20, 0x20)}), Item("B.BMP", 90, {Minutes(1, 2)}),
                  Item("C.BMP", 1, {Minutes(5, 5)})}},
                0);
    Film({{1500, 'G', "alone"}});
    EXPECT_EQ(player.NextFile(1500), "D:\\T\\A.BMP");
    EXPECT_EQ(player.NextFile(60000), "D:\\T\\B.BMP");
    Film({{61000, 'B'}, {120000, 'B', "90 times one second"}, {151500, 'B', "alone"}, {179999, 'B'}});
    Film({{180000, '.', "its schedule cuts it off"}});
    EXPECT_EQ(player.CurrentFile(), "");
    EXPECT_EQ(player.NextFile(180000), "");
    player.PlayNext(190000);
    player.PlayPrevious(190000);
    EXPECT_EQ(player.CurrentFile(), "") << "nothing else is due";
    Film({{299999, '.'}, {301000, 'R'}});
    player.Pause(301500);
    Film({{420000, 'R', "a pause holds it"}});
    player.Continue(420000);
    Film({{420000, '.'}});
    EXPECT_TRUE(player.PlayOnce("D:\\T\\B.BMP", 430000)) << "without regard to schedules";
    Film({{431000, 'B'}, {1200000, 'G', "seen again after a long time"}, {1200999, 'G', "its whole turn"}});
}

TEST_F(PlayerTest, GoesBackThroughTheOrderThatItPlayed)
{
    SequenceItem group;
    group.playType = kAtRandom;
    for (const char* name : {"A", "B", "C", "D"}) {
        Write(name, Dot(kGreen));
        group.children.push_back(Item(name));
    }
    player.Play({6, {group}}, 0);
    std::vector<std::string> played;
    for (std::uint64_t now = 0; now < 12000; now += 1000) {
        player.KeepUp(now);
        played.push_back(player.CurrentFile());
        EXPECT_EQ(player.NextFile(now).size(), 6U);
    }
    for (std::size_t back = 1; back < played.size(); ++back) {
        player.PlayPrevious(11500);
        EXPECT_EQ(player.CurrentFile(), played[played.size() - 1 - back]) << back;
    }
    for (int i = 0; i < 10; ++i) // before the start as well
        player.PlayPrevious(11500);
    EXPECT_NE(player.CurrentFile(), "");
}

TEST_F(PlayerTest, ShowsWhatWasWrittenOverAtTheNextTurn)
{
    Start({"A.BMP"});
    Write("A.BMP", Dot(kBlue));
    Film({{2999, 'G'}, {3000, 'B'}});
    std::filesystem::remove(folder / "SEQUENT.SYS");
    player.Restart(4000);
    Film({{4000, '.'}});
    EXPECT_EQ(player.CurrentFile(), "");
}

TEST_F(PlayerTest, DoesNotSpinOnAListOfBrokenFiles)
{
    Write("EMPTY.NMG", {});
    Write("BROKEN.BMP", BytesOf("BM broken"));
    Write("NOPIC.NMG", BytesOf("QZ00SAX\x14@0\x04RC\x01") + Bytes(60, 0));
    std::filesystem::create_directories(folder / "FOLDER");
    Start({"GONE", "EMPTY.NMG", "BROKEN.BMP", "NOPIC.NMG", "FOLDER"});
    for (std::uint64_t now = 0; now < 1000; now += 10)
        EXPECT_EQ(Middle(now), '.');
    EXPECT_EQ(asked, 5) << "once around in a second";
    EXPECT_EQ(player.CurrentFile(), "");

    Write("GONE", Dot(kGreen));
    Film({{1000, 'G', "what arrives later is shown"}});
}

TEST_F(PlayerTest, GetsThroughALongListOfMissingFilesInSteps)
{
    std::vector<std::string> names(1000, "GONE");
    names.push_back("A.BMP");
    Start(names);
    EXPECT_LE(asked, 16);
    for (std::uint64_t now = 0; now < 100 && player.CurrentFile().empty(); ++now)
        Middle(now);
    EXPECT_EQ(player.CurrentFile(), "D:\\T\\A.BMP");
}

} // namespace
} // namespace vxsim::test

#include "faceSamples.h"

#include "sim/content/player.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <map>
#include <unistd.h>

namespace vxsim::test {
namespace {

// A BMP of one pixel.
Bytes Dot(Rgb colour)
{
    return Bytes{'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0} +
           Bytes(24, 0) + Bytes{colour.blue, colour.green, colour.red, 0};
}

// A message of blocks that fill a glyph's whole cell, for two seconds unless told otherwise.
Bytes Blocks(std::string_view text, std::string_view head = "\x0E"
                                                            "20002")
{
    return BytesOf("QZ00SAX") + BytesOf(head) + BytesOf(text) + Bytes{0x04};
}

class PlayerTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        folder = std::filesystem::temp_directory_path() / ("vxsimPlayer" + std::to_string(getpid()));
        std::filesystem::create_directories(folder);
    }

    void TearDown() override { std::filesystem::remove_all(folder); }

    void Write(const std::string& name, const Bytes& bytes)
    {
        std::ofstream(folder / name, std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }

    // A flat list of files in folder T of drive D.
    void WriteList(const std::vector<std::string>& names)
    {
        Bytes list = {
            'S', 'Q', 4, 0, static_cast<std::uint8_t>(names.size()), static_cast<std::uint8_t>(names.size() >> 8),
            0,   0};
        for (const std::string& name : names) {
            Bytes field = BytesOf(name);
            field.resize(12);
            list = list + Bytes{'D', 'T', 15, 255} + Bytes(20, 0) + field;
        }
        Write("SEQUENT.SYS", list);
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

    Player MakePlayer(MomentClock clock = {})
    {
        return Player(
            16, 16,
            [this](std::string_view path) -> std::optional<std::filesystem::path> {
                ++asked;
                if (path.substr(0, 5) != "D:\\T\\" || !std::filesystem::exists(folder / path.substr(5)))
                    return std::nullopt;
                return folder / path.substr(5);
            },
            folder / "SEQUENT.SYS", std::move(clock));
    }

    // What the middle of the face shows.
    Rgb Middle(Player& player, std::uint64_t nowMs)
    {
        Canvas face(16, 16);
        player.Draw(nowMs, face);
        return face.At(7, 7);
    }

    std::filesystem::path folder;
    int asked = 0;
};

TEST_F(PlayerTest, PlaysTheFilesInTurn)
{
    Write("A.BMP", Dot(kGreen));
    Write("B.NMG", Blocks("\u2588\u2588"));
    WriteList({"A.BMP", "B.NMG"});
    Player player = MakePlayer();
    player.Restart(10000);
    EXPECT_EQ(player.CurrentFile(), "D:\\T\\A.BMP");
    EXPECT_EQ(Middle(player, 9000), kGreen) << "a clock that runs back";
    EXPECT_EQ(Middle(player, 12999), kGreen) << "three seconds of the sign's own";
    EXPECT_EQ(Middle(player, 13000), kRed);
    EXPECT_EQ(player.CurrentFile(), "D:\\T\\B.NMG");
    EXPECT_EQ(Middle(player, 14999), kRed);
    EXPECT_EQ(Middle(player, 15000), kGreen) << "from the start again";
    EXPECT_EQ(Middle(player, 18500), kRed);
    EXPECT_EQ(Middle(player, 3600000), kRed) << "after a long absence a turn starts";
    EXPECT_EQ(Middle(player, 3601999), kRed);
    EXPECT_EQ(Middle(player, 3602000), kGreen);
}

TEST_F(PlayerTest, KeepsToTheTimesOfTurnsThatNobodySaw)
{
    Write("A.BMP", Dot(kGreen));
    Write("B.BMP", Dot(kBlue));
    WriteList({"A.BMP", "GONE", "B.BMP"});
    Player player = MakePlayer();
    player.Restart(0);
    EXPECT_EQ(Middle(player, 4000), kBlue);
    EXPECT_EQ(Middle(player, 5999), kBlue) << "the file passed over took no time";
    EXPECT_EQ(Middle(player, 6000), kGreen);
    EXPECT_EQ(Middle(player, 17000), kBlue);
    EXPECT_EQ(Middle(player, 18000), kGreen);
}

TEST_F(PlayerTest, TakesDefaultsFromTheDisplayStyle)
{
    Write("A.BMP", Dot(kGreen));
    Write("B.BMP", Dot(kBlue));
    WriteList({"A.BMP", "B.BMP"});
    Player player = MakePlayer();
    std::array<std::uint8_t, 52> style{};
    style[14] = 10;
    player.SetDefaults(style);
    player.Restart(0);
    EXPECT_EQ(Middle(player, 9999), kGreen);
    EXPECT_EQ(Middle(player, 10000), kBlue);

    style[14] = 255;
    style[16] = 0x2C; // 300 seconds
    style[17] = 0x01;
    style[11] = '5';
    player.SetDefaults(style);
    player.Restart(0);
    EXPECT_EQ(Middle(player, 100), Rgb{}) << "still scrolling up";
    EXPECT_EQ(Middle(player, 300799), kGreen);
    EXPECT_EQ(Middle(player, 301600), kBlue);

    player.SetDefaults(std::array<std::uint8_t, 52>{});
    player.Restart(0);
    EXPECT_EQ(Middle(player, 2999), kGreen);
    EXPECT_EQ(Middle(player, 3000), kBlue);
}

TEST_F(PlayerTest, BringsPagesInAndOutByTheModesOfTheFile)
{
    // Two pages, wiped in from the left and scrolled out upwards, one second each.
    Write("A.NMG", Blocks("\u2588\u2588\f\u2588\u2588", "\x0AI1\x0AO5\x0E"
                                                        "20001"));
    WriteList({"A.NMG"});
    Player player = MakePlayer();
    player.Restart(0);
    const auto lit = [&](std::uint64_t nowMs) {
        Canvas face(16, 16);
        player.Draw(nowMs, face);
        return CountLit(face);
    };
    for (const std::uint64_t page : {0U, 2400U, 4800U}) {
        EXPECT_EQ(lit(page), 0) << page;
        EXPECT_EQ(lit(page + 300), 128) << page;
        EXPECT_EQ(lit(page + 600), 256) << page;
        EXPECT_EQ(lit(page + 1599), 256) << page;
        EXPECT_EQ(lit(page + 2000), 128) << page;
    }
}

TEST_F(PlayerTest, TakesThePictureFieldsOfATree)
{
    Write("A.BMP", Dot(kGreen));
    Write("B.BMP", Dot(kBlue));
    const auto record = [](std::string_view path, const Bytes& fields) {
        return Bytes{'F', 'S', 0, 0, 0, 0, 1, 0, 32, 0, 0, 0, 0, 0, 0, 0} + BytesOf(path) + Bytes(2, 0) + fields;
    };
    Write("SEQUENT.SYS", Bytes{'S', 'Q', 6, 0, 2, 0, 0, 0} + record("D:\\T\\A.BMP", {7, 0, '2', 0}) +
                             record("D:\\T\\B.BMP", {0, 0, 255, 255}));
    Player player = MakePlayer();
    player.Restart(0);
    EXPECT_EQ(Middle(player, 0), Rgb{});
    EXPECT_EQ(Middle(player, 7599), kGreen);
    EXPECT_EQ(Middle(player, 7600), kBlue) << "no mode of its own";
    EXPECT_EQ(Middle(player, 10600), Rgb{});
}

TEST_F(PlayerTest, PlaysAFileAsOftenAsItsRecordSays)
{
    Write("A.BMP", Dot(kGreen));
    Write("B.NMG", Blocks("\u2588\u2588", "\x0AI1\x0E"
                                          "20001"));
    Player player = MakePlayer();
    player.Play({6, {Item("A.BMP", 3), Item("B.NMG", 2), Item("A.BMP", 0)}}, 0);
    EXPECT_EQ(Middle(player, 2999), kGreen);
    for (const std::uint64_t start : {3000U, 4600U}) {
        EXPECT_EQ(Middle(player, start), Rgb{}) << "comes in each time";
        EXPECT_EQ(Middle(player, start + 1599), kRed);
    }
    EXPECT_EQ(Middle(player, 6200), kGreen);
    EXPECT_EQ(player.NextFile(6200), "D:\\T\\A.BMP");
    EXPECT_EQ(Middle(player, 10200), Rgb{}) << "0 is once; then three times again";
    player.MoveToNextPage(11000);
    EXPECT_EQ(Middle(player, 11000), Rgb{}) << "the second time";
    EXPECT_EQ(Middle(player, 12599), kRed);
    EXPECT_EQ(Middle(player, 12600), kGreen);
}

TEST_F(PlayerTest, KeepsToTheSchedules)
{
    Write("A.BMP", Dot(kGreen));
    Write("B.BMP", Dot(kBlue));
    Write("C.BMP", Dot(kRed));
    Player player = MakePlayer(Minute);
    player.Play({6,
                 {Item("A.BMP", 1, {Minutes(0, 1), Minutes(0x20, 0x20)}), Item("B.BMP", 90, {Minutes(1, 2)}),
                  Item("C.BMP", 1, {Minutes(5, 5)})}},
                0);
    EXPECT_EQ(Middle(player, 1500), kGreen) << "alone";
    EXPECT_EQ(player.NextFile(1500), "D:\\T\\A.BMP");
    EXPECT_EQ(player.NextFile(60000), "D:\\T\\B.BMP");
    EXPECT_EQ(Middle(player, 61000), kBlue);
    EXPECT_EQ(Middle(player, 120000), kBlue) << "90 times one second";
    EXPECT_EQ(Middle(player, 151500), kBlue) << "alone";
    EXPECT_EQ(Middle(player, 179999), kBlue);
    EXPECT_EQ(Middle(player, 180000), Rgb{}) << "its schedule cuts it off";
    EXPECT_EQ(player.CurrentFile(), "");
    EXPECT_EQ(player.NextFile(180000), "");
    player.PlayNext(190000);
    player.PlayPrevious(190000);
    EXPECT_EQ(player.CurrentFile(), "") << "nothing else is due";
    EXPECT_EQ(Middle(player, 299999), Rgb{});
    EXPECT_EQ(Middle(player, 301000), kRed);
    player.Pause(301500);
    EXPECT_EQ(Middle(player, 420000), kRed) << "a pause holds it";
    player.Continue(420000);
    EXPECT_EQ(Middle(player, 420000), Rgb{});
    EXPECT_TRUE(player.PlayOnce("D:\\T\\B.BMP", 430000)) << "without regard to schedules";
    EXPECT_EQ(Middle(player, 431000), kBlue);
    EXPECT_EQ(Middle(player, 1200000), kGreen) << "seen again after a long time";
    EXPECT_EQ(Middle(player, 1200999), kGreen) << "its whole turn";
}

TEST_F(PlayerTest, GoesBackThroughTheOrderThatItPlayed)
{
    SequenceItem group;
    group.playType = kAtRandom;
    for (const char* name : {"A", "B", "C", "D"}) {
        Write(name, Dot(kGreen));
        group.children.push_back(Item(name));
    }
    Player player = MakePlayer();
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
    Write("A.BMP", Dot(kGreen));
    WriteList({"A.BMP"});
    Player player = MakePlayer();
    player.Restart(0);
    Write("A.BMP", Dot(kBlue));
    EXPECT_EQ(Middle(player, 2999), kGreen);
    EXPECT_EQ(Middle(player, 3000), kBlue);
    std::filesystem::remove(folder / "SEQUENT.SYS");
    player.Restart(4000);
    EXPECT_EQ(Middle(player, 4000), Rgb{});
    EXPECT_EQ(player.CurrentFile(), "");
}

TEST_F(PlayerTest, DoesNotSpinOnAListOfBrokenFiles)
{
    Write("EMPTY.NMG", {});
    Write("BROKEN.BMP", BytesOf("BM broken"));
    Write("NOPIC.NMG", BytesOf("QZ00SAX\x14@0\x04RC\x01") + Bytes(60, 0));
    std::filesystem::create_directories(folder / "FOLDER");
    WriteList({"GONE", "EMPTY.NMG", "BROKEN.BMP", "NOPIC.NMG", "FOLDER"});
    Player player = MakePlayer();
    player.Restart(0);
    for (std::uint64_t now = 0; now < 1000; now += 10)
        EXPECT_EQ(Middle(player, now), Rgb{});
    EXPECT_EQ(asked, 5) << "once around in a second";
    EXPECT_EQ(player.CurrentFile(), "");

    Write("GONE", Dot(kGreen));
    EXPECT_EQ(Middle(player, 1000), kGreen) << "what arrives later is shown";
}

TEST_F(PlayerTest, GetsThroughALongListOfMissingFilesInSteps)
{
    std::vector<std::string> names(1000, "GONE");
    names.push_back("A.BMP");
    Write("A.BMP", Dot(kGreen));
    WriteList(names);
    Player player = MakePlayer();
    player.Restart(0);
    EXPECT_LE(asked, 16);
    for (std::uint64_t now = 0; now < 100 && player.CurrentFile().empty(); ++now)
        Middle(player, now);
    EXPECT_EQ(player.CurrentFile(), "D:\\T\\A.BMP");
}

TEST_F(PlayerTest, DrawsOnACanvasOfAnySize)
{
    Write("A.NMG", Blocks("\u2588\u2588", "\x0AI3\x0E"
                                          "20001"));
    WriteList({"A.NMG"});
    Player player = MakePlayer();
    player.Restart(0);
    for (const auto& [width, height] : {std::pair{1, 1}, {40, 40}, {8, 100}}) {
        Canvas face(width, height);
        player.Draw(1300, face);
        EXPECT_EQ(face.Width(), width);
        EXPECT_EQ(face.Height(), height);
        EXPECT_EQ(face.At(0, 0), kRed);
    }
}

} // namespace
} // namespace vxsim::test

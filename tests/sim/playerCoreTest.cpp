#include "stageFixture.h"

#include <tuple>

namespace vxsim_tests {
namespace {

class PlayerCore : public StageTest
{
protected:
    // Red, green and blue; SHOP has ONE with two of them and TWO with the third.
    void PutPrograms()
    {
        PlayThree();
        PutFile("C:\\PLAYER\\SHOP\\TWO.PRG", Text("D:\\T\\BLUE.BMP|1\n"));
        PutFile("C:\\PLAYER\\SHOP\\ONE.prg", Text("D:\\T\\GREEN.BMP|2\r\nD:\\T\\RED.BMP|1\n\nD:\\T\\GONE.BMP"));
    }

    // The first two texts and the third have a length each; `last` is what stands behind these.
    Bytes Play(const std::vector<std::string>& texts, std::uint16_t last, std::uint64_t nowMs = 0, unsigned minor = 2)
    {
        Bytes lengths;
        Bytes all;
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (i < 3)
                lengths = lengths + Little(static_cast<std::uint32_t>(texts[i].size()), 2);
            all = all + Text(texts[i]);
        }
        return AskAt(nowMs, 122, minor, lengths + Little(last, 2), all);
    }

    unsigned Stop(const std::string& name, std::uint64_t nowMs = 0)
    {
        return CodeOf(AskAt(nowMs, 122, 5, {static_cast<std::uint8_t>(name.size()), 0, 0, 0, 0, 0, 0, 0}, Text(name)));
    }

    Bytes Property(const std::string& name) { return Ask(122, 1, {0, 0, 0, 0}, Text(name)); }

    // The lines behind the head of an answer.
    static std::string Lines(const Bytes& reply, std::size_t head)
    {
        return {reply.begin() + static_cast<std::ptrdiff_t>(std::min(16 + head, reply.size())), reply.end()};
    }

    std::string Playing(std::uint64_t nowMs)
    {
        const Bytes reply = AskAt(nowMs, 122, 9, {0, 0, 0, 0});
        std::string text;
        for (const std::uint8_t byte : PayloadOf(reply))
            text += static_cast<char>('0' + byte);
        return text + " " + Lines(reply, 4);
    }
};

TEST_F(PlayerCore, AProgramTakesTheFaceAndAWindowAPartOfIt)
{
    PutPrograms();
    // The same names: with a flag behind them the program plays on the face, with a window in the window.
    EXPECT_EQ(CodeOf(Play({"shop", "two", ""}, 0)), 0U);
    EXPECT_EQ(At(0), kBlue);
    EXPECT_EQ(At(0, 11, 7), kDark);
    EXPECT_EQ(At(1500), kBlue) << "it repeats";
    EXPECT_EQ(Playing(1500), "1000 face\tSHOP\tTWO\tD:\\T\\BLUE.BMP\n");
    EXPECT_EQ(Stop(""), 0U);
    EXPECT_EQ(At(1500), kRed) << "the list";
    EXPECT_EQ(CodeOf(Play({"SHOP", "TWO", "", "2"}, 1, 1500)), 0U);
    EXPECT_EQ(At(1500, 11, 7), kBlue) << "the right half";
    EXPECT_EQ(At(1500), kRed) << "the list beside it";
}

TEST_F(PlayerCore, WindowsLieOverTheRest)
{
    PutPrograms();
    // Window 1 at the top left, window 2 at the bottom right; the dot of the list is at 7,7.
    const Bytes areas{0, 0, 0, 0, 4, 0, 4, 0, 12, 0, 12, 0, 4, 0, 4, 0};
    EXPECT_EQ(CodeOf(Ask(122, 6, {0, 0, 0, 0, 0, 0, 0, 0}, areas)), 0U);
    EXPECT_EQ(CodeOf(Play({"SHOP", "TWO", "", "1"}, 1)), 0U);
    EXPECT_EQ(CodeOf(Play({"SHOP", "ONE", "D:\\T\\RED.BMP", "2"}, 1)), 0U);
    EXPECT_EQ(At(0, 1, 1), kBlue);
    EXPECT_EQ(At(0, 13, 13), kRed);
    EXPECT_EQ(At(0), kRed) << "the list is seen beside them";
    EXPECT_EQ(At(1000, 13, 13), kGreen) << "what is missing is passed over";
    EXPECT_EQ(Playing(1000), "0020 1\tSHOP\tTWO\tD:\\T\\BLUE.BMP\n2\tSHOP\tONE\tD:\\T\\GREEN.BMP\n");
    EXPECT_EQ(CodeOf(Ask(122, 6, {1, 0, 0, 0, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(At(1000), kDark) << "alone";
    EXPECT_EQ(At(1000, 1, 1), kBlue);
    EXPECT_EQ(CodeOf(Ask(122, 6, {2, 0, 0, 0, 0, 0, 0, 0})), 0U);
    EXPECT_EQ(At(1000), kRed) << "hidden";
    EXPECT_EQ(At(1000, 1, 1), kDark);
    EXPECT_EQ(CodeOf(AskAt(1000, 122, 6, {0, 0, 0, 0, 0, 0, 0, 0}, {8, 0, 0, 0, 4, 0, 4, 0})), 0U);
    EXPECT_EQ(At(1000, 9, 1), kBlue) << "moved while it plays";
    EXPECT_EQ(Stop("TWO"), 0U);
    EXPECT_EQ(At(1000, 9, 1), kDark);
    EXPECT_EQ(At(1000, 13, 13), kGreen) << "the other one plays on";
    AskAt(1000, 4, 0);
    EXPECT_EQ(Playing(1000), "0000 ") << "a reset ends all";
    Rebuild(16, 16);
    PutPrograms();
    EXPECT_EQ(CodeOf(Play({"SHOP", "TWO", "", "1"}, 1)), 0U);
    EXPECT_EQ(At(0, 9, 1), kBlue) << "the windows are kept";
}

TEST_F(PlayerCore, WhatFollows)
{
    PutPrograms();
    EXPECT_EQ(CodeOf(Play({"SHOP", "ONE", ""}, 2, 1000)), 0U); // once
    EXPECT_EQ(At(1000), kGreen);
    EXPECT_EQ(At(3999), kRed);
    EXPECT_EQ(Playing(4000), "0000 ");
    EXPECT_EQ(At(4000), kGreen) << "the list, in its second turn";
    EXPECT_EQ(Stop("ONE", 4000), 26369U);
    EXPECT_EQ(CodeOf(AskAt(4000, 122, 11, {1, 0, 0, 0})), 26369U);
    EXPECT_EQ(CodeOf(AskAt(4000, 122, 10, {1, 3, 0, 0, 0, 0, 0, 0}, Text("TWO"))), 26369U) << "no project";

    EXPECT_EQ(CodeOf(Play({"SHOP", "TWO", ""}, 0, 5000)), 0U);
    EXPECT_EQ(CodeOf(AskAt(10000, 122, 11, {1, 0, 0, 0})), 0U); // the next program
    EXPECT_EQ(At(10000), kBlue);
    EXPECT_EQ(At(11000), kGreen);
    EXPECT_EQ(At(13000), kRed);
    EXPECT_EQ(At(14000), kBlue);
    EXPECT_EQ(CodeOf(AskAt(20000, 122, 10, {0, 3, 0, 0, 0, 0, 0, 0}, Text("one"))), 0U);
    EXPECT_EQ(Playing(20000), "1000 face\tSHOP\tONE\tD:\\T\\GREEN.BMP\n");
    EXPECT_EQ(At(23000), kGreen);
}

TEST_F(PlayerCore, AnEmergencyIsOverEverything)
{
    PutPrograms();
    Play({"SHOP", "ONE", ""}, 0);
    Ask(3, 2); // all white
    EXPECT_EQ(CodeOf(Play({"SHOP", "TWO", ""}, 0, 0, 12)), 0U);
    EXPECT_EQ(At(0), kBlue);
    EXPECT_EQ(At(0, 0, 0), kDark);
    EXPECT_EQ(Playing(0).substr(0, 4), "2000");
    EXPECT_EQ(Stop("TWO"), 26369U) << "it has a command of its own";
    Ask(4, 1);
    EXPECT_EQ(At(0), kDark) << "but not over a dark face";
    Ask(4, 2);
    EXPECT_EQ(CodeOf(Ask(122, 13)), 0U);
    EXPECT_EQ(At(0, 0, 0), kWhite);
    Ask(3, 9);
    EXPECT_EQ(At(0), kGreen);
}

TEST_F(PlayerCore, PropertiesAndProjects)
{
    PutPrograms();
    PutFile("C:\\PLAYER\\SHOP\\NOTES.TXT", Text("no program"));
    PutFile("C:\\PLAYER\\EMPTY\\A.TXT", Text("no project"));
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{0, 0, 0, 0}));
    EXPECT_EQ(CodeOf(Play({"", "", ""}, 0)), 36872U);
    // Three programs are announced, two are there, and one of them lacks a file.
    Bytes start = Text("two");
    start.resize(20);
    EXPECT_EQ(CodeOf(Ask(122, 16, Bytes{4, 0, 3, 0, 7, 0, 0, 0} + start, Text("shop"))), 0U);
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{33, 1, 0, 0}));
    EXPECT_EQ(CodeOf(Ask(122, 7, {4, 0, 2, 0, 8, 0, 0, 0}, Text("SHOP"))), 0U);
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{50, 1, 0, 0}));
    PutFile("D:\\T\\GONE.BMP", Dot(1, 1, 1));
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{100, 2, 0, 0}));
    Rebuild(16, 16);
    EXPECT_EQ(CodeOf(Play({"", "", ""}, 0)), 0U) << "the project told of last, and its start program";
    EXPECT_EQ(At(0), kBlue);

    const Bytes player = Property("");
    EXPECT_EQ(player[14], 0) << "all of an answer is extended part";
    EXPECT_EQ(Bytes(player.begin() + 16, player.begin() + 20), (Bytes{0, 3, 1, 0}));
    EXPECT_EQ(Lines(player, 16), "SHOP\n");
    const Bytes shop = Property("shop");
    EXPECT_EQ(Bytes(shop.begin() + 16, shop.begin() + 24), (Bytes{1, 3, 2, 0, 232, 0, 0, 0}));
    EXPECT_EQ(Bytes(shop.begin() + 28, shop.begin() + 32), (Bytes{2, 0, 8, 0}));
    EXPECT_EQ(Lines(shop, 16), "ONE\nTWO\n");
    const Bytes one = Property("SHOP/one");
    EXPECT_EQ(Bytes(one.begin() + 16, one.begin() + 24), (Bytes{2, 2, 3, 0, 174, 0, 0, 0}));
    EXPECT_EQ(Lines(one, 16), "D:\\T\\GREEN.BMP|2\nD:\\T\\RED.BMP|1\nD:\\T\\GONE.BMP|0\n");
    for (const char* name : {"NONE", "SHOP\\NONE", "EMPTY", "..", "SHOP\\..\\SHOP\\ONE", "\\"})
        EXPECT_EQ(CodeOf(Property(name)), 36872U) << name;
    // The sign keeps what it was told of 32 projects.
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(CodeOf(Ask(122, 7, {3, 0, 1, 0, 0, 0, 0, 0}, Text("P" + std::to_string(10 + i)))), 0U);
    EXPECT_EQ(Property("SHOP")[28], 0);
    EXPECT_EQ(std::filesystem::file_size(folder.path / "sign/projects.bin"), 32U * 56);
}

// However much a host stores, an answer is one that hosts take.
TEST_F(PlayerCore, AnswersAreBounded)
{
    std::string many;
    for (int i = 0; i < 100; ++i)
        many += "D:\\T\\" + std::string(200, 'x') + std::to_string(i) + "|3\n";
    for (int i = 0; i < 70; ++i)
        PutFile("C:\\PLAYER\\BIG\\" + std::to_string(1000 + i) + std::string(16, 'n') + ".PRG", Text("D:\\T\\X.BMP"));
    for (std::size_t at = 1; at <= (many.size() + 1023) / 1024; ++at)
        Put(13, "C:\\PLAYER\\BIG\\LONG.PRG", Text(many), static_cast<std::uint32_t>(at), 1024);
    EXPECT_LE(Property("BIG").size(), 1536U);
    EXPECT_EQ(Property("BIG")[18], 64) << "programs that a project has";
    EXPECT_LE(Property("BIG\\LONG").size(), 1536U);
    PutFile("C:\\PLAYER\\BIG\\0.PRG", Text("D:\\T\\" + std::string(260, 'x') + "\nD:\\T\\X.BMP|99999999999\n|\n"));
    EXPECT_EQ(Lines(Property("BIG\\0"), 16), "D:\\T\\X.BMP|0\n");
}

TEST_F(PlayerCore, Refusals)
{
    PutPrograms();
    for (const auto& [texts, last, code] : std::vector<std::tuple<std::vector<std::string>, int, unsigned>>{
             {{"NONE", "ONE", ""}, 0, 36872},
             {{"SHOP", "NONE", ""}, 0, 36872},
             {{"SHOP", "ONE", "D:\\T\\BLUE.BMP"}, 0, 36872},
             {{"..", "ONE", ""}, 0, 36872},
             {{"SHOP\\..\\SHOP", "ONE", ""}, 0, 36872},
             {{"SHOP", "ONE", ""}, 3, 36881},
             {{"SHOP", "ONE", ""}, 256, 36881},
             {{"SHOP", "ONE", "", "5"}, 1, 36881},
             {{"SHOP", "ONE", "", "0"}, 1, 36881},
             {{"SHOP", "ONE", "", "11"}, 2, 36881},
             {{"SHOP", "ONE", "", "1"}, 2, 36870},
             {{"SHOP", "ONE", "", "12"}, 1, 36870},
         })
        EXPECT_EQ(CodeOf(Play(texts, static_cast<std::uint16_t>(last))), code) << texts[0] << ' ' << last;
    EXPECT_EQ(Playing(0), "0000 ");
    const std::tuple<unsigned, Bytes, Bytes> cut[] = {
        {2, {1, 0, 0, 0}, {'x'}},
        {2, Bytes(8, 255), {'x'}},
        {5, {2, 0, 0, 0, 0, 0, 0, 0}, {'x'}},
        {6, Bytes(8, 0), Bytes(7, 0)},
        {6, Bytes(8, 0), Bytes(40, 0)},
        {7, {33, 0, 0, 0, 0, 0, 0, 0}, Bytes(33, 'x')},
        {7, {2, 0, 0, 0, 0, 0, 0, 0}, {'x'}},
        {10, {0, 255, 255, 0, 0, 0, 0, 0}, {'x'}},
        {11, {}, {}},
        {12, {255, 255, 0, 0, 0, 0, 0, 0}, {'x'}},
        {16, {1, 0, 0, 0, 0, 0, 0, 0}, {'x'}},
    };
    for (const auto& [minor, payload, data] : cut)
        EXPECT_EQ(CodeOf(Ask(122, minor, payload, data)), 36870U) << minor;
    EXPECT_EQ(CodeOf(Ask(122, 6, {3, 0, 0, 0, 0, 0, 0, 0})), 36881U);
    EXPECT_EQ(CodeOf(Ask(122, 6, Bytes(8, 0), {0, 0, 0, 0, 17, 0, 1, 0})), 36883U);
    EXPECT_EQ(CodeOf(Ask(122, 7, {1, 0, 0, 0, 0, 0, 0, 0}, {'\\'})), 36880U);
    EXPECT_EQ(CodeOf(Ask(122, 7, Bytes(8, 0))), 36872U) << "no project to tell of";
    EXPECT_EQ(CodeOf(Ask(122, 11, {3, 0, 0, 0})), 36881U);
    EXPECT_EQ(CodeOf(Ask(122, 3)), 36869U);
}

} // namespace
} // namespace vxsim_tests

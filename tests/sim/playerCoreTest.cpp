// Programs on the face and in windows.
#include "support/signFixture.h"

namespace vxsign::test {
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
    static Request Play(const std::vector<std::string>& texts, std::uint16_t last, unsigned minor = 2)
    {
        Request request{122, minor};
        for (std::size_t i = 0; i < texts.size(); ++i) {
            if (i < 3)
                request.payload = request.payload + Little(static_cast<std::uint32_t>(texts[i].size()), 2);
            request.extended = request.extended + Text(texts[i]);
        }
        request.payload = request.payload + Little(last, 2);
        return request;
    }

    static Request Stop(const std::string& name)
    {
        return {122, 5, {static_cast<std::uint8_t>(name.size()), 0, 0, 0, 0}, Text(name)};
    }

    Bytes Property(const std::string& name) { return Ask(122, 1, {0}, Text(name)); }

    // The lines behind the head of an answer.
    static std::string Lines(const Bytes& reply, std::size_t head) { return ToText(Part(reply, 16 + head)); }

    std::string Playing(std::uint64_t nowMs)
    {
        const Bytes reply = AskAt(nowMs, 122, 9, {0});
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
    Film({{0, Play({"shop", "two", ""}, 0), "B"}, {1500, {}, "B", "it repeats"}});
    EXPECT_EQ(At(0, 11, 7), kDark);
    EXPECT_EQ(Playing(1500), "1000 face\tSHOP\tTWO\tD:\\T\\BLUE.BMP\n");
    Film({{1500, Stop(""), "R", "the list"}, {1500, Play({"SHOP", "TWO", "", "2"}, 1), "R", "the list beside it"}});
    EXPECT_EQ(At(1500, 11, 7), kBlue) << "the right half";
}

TEST_F(PlayerCore, WindowsLieOverTheRest)
{
    PutPrograms();
    const auto mode = [](std::uint8_t number, const Bytes& areas = {}) {
        return Request{122, 6, {number, 0, 0, 0, 0}, areas};
    };
    // At (1, 1), (7, 7), (9, 1), (13, 13).
    const auto seen = [&](std::uint64_t nowMs) {
        const std::string drawing = Drawing(nowMs);
        return std::string{drawing[17 + 1], drawing[17 * 7 + 7], drawing[17 + 9], drawing[17 * 13 + 13]};
    };
    // Window 1 at the top left, window 2 at the bottom right; the dot of the list is at 7,7.
    Expect(0, {mode(0, {0, 0, 0, 0, 4, 0, 4, 0, 12, 0, 12, 0, 4, 0, 4, 0}), Play({"SHOP", "TWO", "", "1"}, 1),
               Play({"SHOP", "ONE", "D:\\T\\RED.BMP", "2"}, 1)});
    EXPECT_EQ(seen(0), "BR.R") << "the list is seen beside them";
    EXPECT_EQ(seen(1000).back(), 'G') << "what is missing is passed over";
    EXPECT_EQ(Playing(1000), "0020 1\tSHOP\tTWO\tD:\\T\\BLUE.BMP\n2\tSHOP\tONE\tD:\\T\\GREEN.BMP\n");
    const std::tuple<Request, const char*, const char*> changes[] = {
        {mode(1), "B..G", "alone"},
        {mode(2), ".R..", "hidden"},
        {mode(0, {8, 0, 0, 0, 4, 0, 4, 0}), ".RBG", "moved while it plays"},
        {Stop("TWO"), ".R.G", "the other one plays on"}};
    for (const auto& [request, wanted, why] : changes) {
        Expect(0, {request});
        EXPECT_EQ(seen(1000), wanted) << why;
    }
    AskAt(1000, 4, 0);
    EXPECT_EQ(Playing(1000), "0000 ") << "a reset ends all";
    Rebuild(16, 16);
    PutPrograms();
    Expect(0, {Play({"SHOP", "TWO", "", "1"}, 1)});
    EXPECT_EQ(At(0, 9, 1), kBlue) << "the windows are kept";
}

TEST_F(PlayerCore, WhatFollows)
{
    PutPrograms();
    Film({{1000, Play({"SHOP", "ONE", ""}, 2), "G", "once"}, {3999, {}, "R"}});
    EXPECT_EQ(Playing(4000), "0000 ");
    Film({{4000, {}, "G", "the list, in its second turn"}});
    Expect(26369, {Stop("ONE"), {122, 11, {1}}, {122, 10, {1, 3, 0, 0, 0}, Text("TWO")}});
    Film({{5000, Play({"SHOP", "TWO", ""}, 0)}, {10000, {122, 11, {1}}, "B", "the next program"}, {11000, {}, "G"}});
    Film({{13000, {}, "R"}, {14000, {}, "B"}, {20000, {122, 10, {0, 3, 0, 0, 0}, Text("one")}}});
    EXPECT_EQ(Playing(20000), "1000 face\tSHOP\tONE\tD:\\T\\GREEN.BMP\n");
    EXPECT_EQ(At(23000), kGreen);
}

TEST_F(PlayerCore, AnEmergencyIsOverEverything)
{
    PutPrograms();
    Film({{0, Play({"SHOP", "ONE", ""}, 0)}, {0, {3, 2}}, {0, Play({"SHOP", "TWO", ""}, 0, 12), "B"}});
    EXPECT_EQ(At(0, 0, 0), kDark);
    EXPECT_EQ(Playing(0).substr(0, 4), "2000");
    Expect(26369, {Stop("TWO")}); // it has a command of its own
    Film({{0, {4, 1}, ".", "but not over a dark face"}, {0, {4, 2}}, {0, {122, 13}}});
    EXPECT_EQ(At(0, 0, 0), kWhite);
    Film({{0, {3, 9}, "G"}});
}

TEST_F(PlayerCore, PropertiesAndProjects)
{
    PutPrograms();
    PutFile("C:\\PLAYER\\SHOP\\NOTES.TXT", Text("no program"));
    PutFile("C:\\PLAYER\\EMPTY\\A.TXT", Text("no project"));
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{0, 0, 0, 0}));
    Expect(36872, {Play({"", "", ""}, 0)});
    // Three programs are announced, two are there, and one of them lacks a file.
    Expect(0, {{122, 16, Bytes{4, 0, 3, 0, 7, 0, 0, 0} + Padded("two", 20), Text("shop")}});
    ExpectPayload({33, 1, 0, 0}, {{122, 8}});
    Expect(0, {{122, 7, {4, 0, 2, 0, 8}, Text("SHOP")}});
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{50, 1, 0, 0}));
    PutFile("D:\\T\\GONE.BMP", Dot({1, 1, 1}));
    EXPECT_EQ(PayloadOf(Ask(122, 8)), (Bytes{100, 2, 0, 0}));
    Rebuild(16, 16);
    Film({{0, Play({"", "", ""}, 0), "B", "the project told of last, and its start program"}});

    const Bytes player = Property("");
    EXPECT_EQ(player[14], 0) << "all of an answer is extended part";
    EXPECT_EQ(Part(player, 16, 4), (Bytes{0, 3, 1, 0}));
    EXPECT_EQ(Lines(player, 16), "SHOP\n");
    const Bytes shop = Property("shop");
    EXPECT_EQ(Part(shop, 16, 8), (Bytes{1, 3, 2, 0, 232, 0, 0, 0}));
    EXPECT_EQ(Part(shop, 28, 4), (Bytes{2, 0, 8, 0}));
    EXPECT_EQ(Lines(shop, 16), "ONE\nTWO\n");
    const Bytes one = Property("SHOP/one");
    EXPECT_EQ(Part(one, 16, 8), (Bytes{2, 2, 3, 0, 174, 0, 0, 0}));
    EXPECT_EQ(Lines(one, 16), "D:\\T\\GREEN.BMP|2\nD:\\T\\RED.BMP|1\nD:\\T\\GONE.BMP|0\n");
    for (const char* name : {"NONE", "SHOP\\NONE", "EMPTY", "..", "SHOP\\..\\SHOP\\ONE", "\\"})
        EXPECT_EQ(CodeOf(Property(name)), 36872U) << name;
    // The sign keeps what it was told of 32 projects.
    for (int i = 0; i < 40; ++i)
        EXPECT_EQ(CodeOf(Ask(122, 7, {3, 0, 1, 0, 0}, Text("P" + std::to_string(10 + i)))), 0U);
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
    const auto named = [](unsigned minor, const Bytes& payload) { return Request{122, minor, payload, {'x'}}; };
    Expect(36872, {Play({"NONE", "ONE", ""}, 0), Play({"SHOP", "NONE", ""}, 0)});
    Expect(36872, {Play({"SHOP", "ONE", "D:\\T\\BLUE.BMP"}, 0), Play({"..", "ONE", ""}, 0)});
    Expect(36872, {Play({"SHOP\\..\\SHOP", "ONE", ""}, 0), {122, 7, Bytes(8, 0)}});
    Expect(36881, {Play({"SHOP", "ONE", ""}, 3), Play({"SHOP", "ONE", ""}, 256), Play({"SHOP", "ONE", "", "5"}, 1)});
    Expect(36881, {Play({"SHOP", "ONE", "", "0"}, 1), Play({"SHOP", "ONE", "", "11"}, 2)});
    Expect(36881, {{122, 6, {3, 0, 0, 0, 0}}, {122, 11, {3}}});
    Expect(36870, {Play({"SHOP", "ONE", "", "1"}, 2), Play({"SHOP", "ONE", "", "12"}, 1), named(2, {1, 0, 0, 0})});
    Expect(36870, {named(2, Bytes(8, 255)), named(5, {2, 0, 0, 0, 0, 0, 0, 0}), {122, 6, Bytes(8, 0), Bytes(7, 0)}});
    Expect(36870, {{122, 6, Bytes(8, 0), Bytes(40, 0)}, {122, 7, {33, 0, 0, 0, 0}, Bytes(33, 'x')}});
    Expect(36870, {named(7, {2, 0, 0, 0, 0, 0, 0, 0}), named(10, {0, 255, 255, 0, 0, 0, 0, 0}), {122, 11}});
    Expect(36870, {named(12, {255, 255, 0, 0, 0, 0, 0, 0}), named(16, {1, 0, 0, 0, 0, 0, 0, 0})});
    Expect(36883, {{122, 6, Bytes(8, 0), {0, 0, 0, 0, 17, 0, 1, 0}}});
    Expect(36880, {{122, 7, {1, 0, 0, 0, 0}, {'\\'}}});
    Expect(36869, {{122, 3}});
    EXPECT_EQ(Playing(0), "0000 ");
}

} // namespace
} // namespace vxsign::test

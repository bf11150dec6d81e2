// Files on their way to the sign: records, chunks, wrapped messages, the window.
#include "support/scriptedChannel.h"
#include "support/scriptedSign.h"
#include "vxBaseCMD/packet.h"
#include "vxComm/Write/vxWriteLED.h"

namespace vxsign::test {
namespace {

class WriteFile : public ScriptedTest
{
protected:
    WriteFile()
    {
        sign.otherwise = [](const Packet&) { return Good(); };
    }

    // A local file of so many bytes.
    std::string Make(std::size_t size) { return folder.Write("a", ToText(Ramp(size))); }

    // All that was sent, without its records.
    Bytes Sent() const
    {
        Bytes sent;
        for (const Packet& request : sign.requests)
            sent = sent + request.Extended();
        return sent;
    }
};

TEST_F(WriteFile, RecordsOfEachMinor)
{
    const std::string file = Make(130);
    const char* const local = file.c_str();
    // Records; NN is the number of the packet.
    const std::tuple<std::function<std::uint32_t()>, std::uint8_t, const char*> rows[] = {
        {[&] { return vxWriteSystemFile("SEQUENT.SYS", local); }, 2,
         "53455155454E542E53595300 82000000 4000 0300 NN000000"},
        {[&] { return vxWriteFontFile("ABCDEFGH.FNTX", local); }, 3,
         "41424344454647482E464E54 82000000 4000 0300 NN000000"},
        {[&] { return vxWriteTextFile('D', "A", local); }, 4, "44 00 410000000000000000000000 82000000 4000 0300 NN00"},
        {[&] { return vxWriteStringFile('E', "A", local); }, 5,
         "45 00 410000000000000000000000 82000000 4000 0300 NN00"},
        {[&] { return vxWritePictureFile('F', "A", local); }, 6,
         "46 00 410000000000000000000000 82000000 4000 0300 NN00"},
        {[&] { return vxWriteArrPicFile('D', "A", local); }, 7,
         "44 00 410000000000000000000000 82000000 4000 0300 NN00"},
        {[&] { return vxWriteSpecFile("D:\\A", local); }, 8, "82000000 4000 0300 NN00 443A5C4100 00"},
        {[&] { return vxWriteSpecFileEx("D:\\AB", local); }, 13, "82000000 4000 03000000 NN000000 443A5C414200"},
        {[&] { return vxWriteDataFlashFile(local, 0); }, 19, "82000000 4000 03000000 NN000000 0000"},
    };
    for (const auto& [call, minor, record] : rows) {
        SCOPED_TRACE(int(minor));
        sign.Renew();
        sign.Config().dataSize = 64;
        EXPECT_EQ(call(), 0u);
        ASSERT_EQ(sign.requests.size(), 3u);
        for (const Packet& request : sign.requests) {
            EXPECT_EQ(request.Major(), 2);
            EXPECT_EQ(request.Minor(), minor);
            EXPECT_EQ(request.Payload(), Numbered(record, static_cast<long>(&request - sign.requests.data()) + 1));
        }
        EXPECT_EQ(Sent(), Ramp(130));
        EXPECT_EQ(sign.requests[2].Extended().size(), 2u);
        EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{33, 66, 100}));
    }
}

TEST_F(WriteFile, ChunkSizesAndLongPaths)
{
    const std::string file = Make(1280);
    for (const auto& [given, used] : {std::pair<std::uint16_t, std::size_t>{1280, 1280}, {0, 768}, {2000, 768}}) {
        sign.Renew();
        sign.Config().dataSize = given;
        // The longest request there is: a full record and a full chunk.
        EXPECT_EQ(vxWriteSpecFile(std::string(300, 'p').c_str(), file.c_str()), 0u);
        EXPECT_EQ(sign.requests[0].Payload().size(), 256u);
        EXPECT_EQ(sign.requests[0].Payload().back(), 'p') << "no terminator";
        EXPECT_EQ(sign.requests[0].Extended(), Part(Ramp(1280), 0, used));
    }

    // The size of a data flash is the caller's.
    sign.Renew();
    sign.Config().dataSize = 100;
    EXPECT_EQ(vxWriteDataFlashFile(Make(150).c_str(), 350), 0u);
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("5E010000 6400 04000000 01000000 0000"));
    EXPECT_EQ(sign.requests[1].Extended().size(), 50u);
    EXPECT_EQ(sign.requests[3].Extended().size(), 0u);
}

TEST_F(WriteFile, StopsAtTheFirstFailure)
{
    const std::string file = Make(300);
    sign.Config().dataSize = 100;
    sign.Then(Good()).Then(Refusal(8451));
    EXPECT_EQ(vxWriteSpecFileEx("D:\\A", file.c_str()), 8451u);
    EXPECT_EQ(sign.progress, std::vector<std::uint32_t>{33});

    // An abort between two packets.
    sign.Config().onProgress = [](vxApiConfig* config, std::uint32_t, std::uint32_t) { config->abortFlag = 1; };
    EXPECT_EQ(vxWriteSpecFileEx("D:\\A", file.c_str()), 20497u);
    EXPECT_EQ(sign.requests.size(), 3u);
}

TEST_F(WriteFile, LocalFilesThatCannotBeSent)
{
    const auto write = [&](const std::string& path) { return vxWriteSpecFile("D:\\A", path.c_str()); };
    EXPECT_EQ(write(folder.Path("missing")), 20737u);
    EXPECT_EQ(write(folder.Path()), 20737u) << "a folder";
    EXPECT_EQ(write(folder.Write("empty", "")), 20738u);
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", folder.Path("missing").c_str()), 20737u);
    EXPECT_EQ(vxWriteDataFlashFile(folder.Path("missing").c_str(), 5), 20737u);
    EXPECT_EQ(vxWriteAbsoluteAddress(0, 0, folder.Path("missing").c_str()), 2u);
    EXPECT_EQ(vxWriteAbsoluteAddress(0, 0, folder.Path("empty").c_str()), 20738u);
    EXPECT_EQ(vxWriteAbsoluteAddress(2, 0, folder.Write("full", "x").c_str()), 2u);
    // More packets than 16-bit numbers reach.
    sign.Config().dataSize = 64;
    EXPECT_EQ(write(folder.Write("large", std::string(64 * 65535 + 1, 'x'))), 2u);
    EXPECT_TRUE(sign.requests.empty());
}

TEST_F(WriteFile, WrappedMessagesAreUnwrapped)
{
    const std::string intro("\x01Z00\x02"
                            "AA",
                            7);
    const auto wrap = [](const std::string& body, std::uint32_t announced) {
        return std::string("NG\0\0\0\0", 6) + ToText(Little(announced, 4)) + std::string(8, '.') + body;
    };
    const std::string text = ToText(Ramp(5000));
    const std::string plain = "1234567PD" + text.substr(0, 50);
    const std::tuple<const char*, std::string, std::string> cases[] = {
        {"plain", wrap("hello", 5), intro + "hello" + "\x04"},
        {"what stands behind goes along", wrap("hello and more", 5), intro + "hello and more" + "\x04"},
        {"a block that is the rest ends the copy", wrap(text.substr(0, 4096) + "more", 4096),
         intro + text.substr(0, 4096) + "\x04"},
        {"a block that jumps over the end does not", wrap(text, 4500), intro + text + "\x04"},
        {"announced beyond the end", wrap("hello", 70000), intro + "hello" + "\x04"},
        {"PD goes as it is", wrap(plain, 59), plain},
        {"shorter than its header", "NG", intro + "\x04"},
    };
    for (const auto& [name, file, sent] : cases) {
        SCOPED_TRACE(name);
        sign.Renew();
        EXPECT_EQ(vxWriteSpecFileEx("D:\\A", folder.Write("m.nmg", file).c_str()), 0u);
        EXPECT_EQ(Sent(), FromText(sent));
        EXPECT_EQ(folder.Read("m.nmg.tmp"), sent) << "stays beside the source";
        EXPECT_EQ(folder.Read("m.nmg"), file);
    }
    std::filesystem::create_directory(folder.Path("m.tmp"));
    EXPECT_EQ(vxWriteSpecFile("D:\\A", folder.Write("m", wrap("x", 1)).c_str()), 20737u) << "no room for the .tmp";
}

TEST_F(WriteFile, BlocksForABoardAndTheAddressThatAFailureLeaves)
{
    const std::string file = folder.Write("a", "NG" + std::string(1100, 'x'));
    sign.Config().destinationAddress = 0x0102;
    EXPECT_EQ(vxWriteAbsoluteAddress(1, 9, file.c_str()), 0u);
    EXPECT_EQ(sign.requests[0].Word(8), 0x0901);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("00000000"));
    EXPECT_EQ(sign.requests[0].Extended().size(), 1024u);
    EXPECT_EQ(sign.requests[1].Payload(), Hex("00040000"));
    EXPECT_EQ(sign.requests[1].Extended().size(), 78u);
    EXPECT_EQ(sign.Config().destinationAddress, 0x0102);
    sign.Then(Refusal(4354));
    EXPECT_EQ(vxWriteAbsoluteAddress(1, 9, file.c_str()), 4354u);
    EXPECT_EQ(sign.Config().destinationAddress, 0x0901);
}

class Window : public WriteFile
{
protected:
    Window()
    {
        sign.raw = [](const Packet& request) { return std::deque<Bytes>{Acknowledge(request)}; };
    }

    // The number in the record of a minor 13 request.
    static std::uint32_t Number(const Packet& request) { return request.Word(26) + 65536u * request.Word(28); }

    // With the sign's own word for success.
    static Bytes Acknowledge(const Packet& request) { return MakeReply(request, 1, {0x00, 0x90, 0, 0}, {}); }

    std::uint32_t Write(std::size_t size) { return vxWriteFileOptimize("D:\\A", Make(size).c_str()); }
};

TEST_F(Window, KeepsEightOnTheirWayForLargeFilesAlone)
{
    EXPECT_EQ(Write(768), 0u);
    ASSERT_EQ(sign.requests.size(), 2u) << "a file of one packet sends it twice";
    EXPECT_EQ(sign.requests[0].Payload(), sign.requests[1].Payload());
    EXPECT_EQ(sign.requests[0].Extended(), sign.requests[1].Extended());
    EXPECT_EQ(sign.progress, std::vector<std::uint32_t>{0});
    sign.Renew();
    EXPECT_EQ(Write(769), 0u);
    EXPECT_EQ(sign.requests.size(), 2u);
    sign.Renew();

    std::vector<Packet> held;
    std::size_t mostHeld = 0;
    sign.raw = [&](const Packet& request) -> std::deque<Bytes> {
        if (Number(request) == 1 || Number(request) == 41)
            return {Acknowledge(request)};
        held.push_back(request);
        mostHeld = std::max(mostHeld, held.size());
        return {};
    };
    // Acknowledgements come back last first, two stuck together, one cut in two, with strays between.
    sign.onEmptyRead = [&] {
        Bytes all;
        for (; !held.empty(); held.pop_back())
            all = all + Hex("AA 55 10 55") + Acknowledge(held.back());
        sign.Arrive(Pieces(all, 33));
    };
    EXPECT_EQ(Write(768 * 40 + 5), 0u);
    EXPECT_EQ(mostHeld, 8u);
    EXPECT_EQ(sign.requests.size(), 41u);
    EXPECT_EQ(Sent(), Ramp(768 * 40 + 5));
}

// Lost, doubled, unknown and refused acknowledgements; a resend after 4 seconds with the same bytes.
TEST_F(Window, ResendsWhatIsNotAcknowledged)
{
    std::map<std::uint32_t, int> seen;
    std::uint16_t idOfThird = 0;
    sign.raw = [&](const Packet& request) -> std::deque<Bytes> {
        const std::uint32_t number = Number(request);
        const bool isFirst = ++seen[number] == 1;
        if (number == 2 && isFirst)
            return {};
        if (number == 3 && isFirst) {
            idOfThird = request.Id();
            return {MakeReply(request, 1, {0x12, 0x90, 0, 0}, {})}; // refused: the slot just times out
        }
        EXPECT_TRUE(number != 3 || request.Id() == idOfThird);
        Packet unknown = request;
        unknown.bytes[11] ^= 0x40;
        return {Acknowledge(request), Acknowledge(request), Acknowledge(unknown)};
    };
    sign.onEmptyRead = [] { FakeClock::Advance(1000); };
    EXPECT_EQ(Write(768 * 5), 0u);
    EXPECT_EQ(seen, (std::map<std::uint32_t, int>{{1, 1}, {2, 2}, {3, 2}, {4, 1}, {5, 1}}));
    EXPECT_EQ(FakeClock::SleptMs(), 0u);
}

TEST_F(Window, EndsWhenTheSignStaysSilentOrTheCallerAborts)
{
    sign.Config().retries = 2;
    int middle = 0;
    sign.raw = [&](const Packet& request) -> std::deque<Bytes> {
        if (Number(request) == 2)
            return ++middle, std::deque<Bytes>{};
        return {Acknowledge(request)};
    };
    sign.onEmptyRead = [] { FakeClock::Advance(1000); };
    EXPECT_EQ(Write(768 * 3), 20736u);
    EXPECT_EQ(middle, 3) << "once, and as often again as there are tries";
    ASSERT_FALSE(sign.log.empty());
    EXPECT_EQ(sign.log.back().level, 3u);
    EXPECT_EQ(sign.log.back().message, "Communication Error!");

    sign.onEmptyRead = [&] { sign.Config().abortFlag = 1; };
    EXPECT_EQ(Write(768 * 3), 20497u);
    EXPECT_EQ(sign.log.back().message, "Operation Abort!");

    // A sign that never stops talking does not hold the window either.
    sign.Config().abortFlag = 0;
    sign.onEmptyRead = [&] {
        FakeClock::Advance(10);
        sign.Arrive({Bytes(1536, 0x55)});
    };
    EXPECT_EQ(Write(768 * 3), 20736u);

    // Nor is a caller's line asked all the time.
    sign.onEmptyRead = {};
    sign.readWaits.clear();
    EXPECT_EQ(Write(768 * 3), 20736u);
    EXPECT_LT(sign.readWaits.size(), 12000u / 5 + 200);

    // The packet that gets id 0 has no slot, so that its acknowledgement is never counted.
    sign.Renew();
    sign.Config().retries = 2;
    sign.raw = [](const Packet& request) { return std::deque<Bytes>{Acknowledge(request)}; };
    int seconds = 0;
    sign.onEmptyRead = [&] {
        FakeClock::Advance(1000);
        sign.Config().abortFlag = ++seconds == 100;
    };
    packetIds::Set(65533);
    EXPECT_EQ(Write(768 * 5), 20736u);
    EXPECT_EQ(seconds, 12) << "a resend and one for each try, 4 seconds each";
    EXPECT_EQ(sign.requests.size(), 4u) << "the last packet is not sent";
    EXPECT_EQ(sign.log.back().message, "Communication Error!");

    sign.onEmptyRead = [&] { sign.Config().abortFlag = 1; };
    packetIds::Set(65533);
    EXPECT_EQ(Write(768 * 5), 20497u);
    sign.Config().abortFlag = 0;
    sign.onEmptyRead = {};
    EXPECT_EQ(Write(768 * 5), 0u) << "the ids have left 0 behind";
}

// Over a channel the sender sleeps until something comes, and sends as soon as it has.
TEST_F(Window, RestsUntilSomethingComes)
{
    const vxApiConfig nothing{};
    vxInitAPI(&nothing);
    for (const bool goes : {false, true}) {
        const std::size_t packets = goes ? 3 : 42;
        const std::string file = Make(768 * packets);
        const std::uint64_t start = FakeClock::NowMs();
        vxWriteLED sender;
        ScriptedChannel* line = nullptr;
        auto channel = std::make_unique<ScriptedChannel>([&](const Packet& request) {
            line->gone = goes && Number(request) == 2; // the far end
            return Arrivals{{goes ? 0 : 50, Acknowledge(request)}};
        });
        line = channel.get();
        sender.link.channel = std::move(channel);
        EXPECT_EQ(sender.SendFileWindowed("D:\\A", file.c_str()), goes ? 20736u : 0u);
        if (goes) {
            EXPECT_GT(FakeClock::SleptMs(), 15000u) << "all of its tries, without looking in between";
            continue;
        }
        EXPECT_EQ(FakeClock::NowMs() - start, 7u * 50) << "five windows, and a packet ahead of and behind them";
        EXPECT_LE(line->looks, 7u * 100);
        Bytes whole;
        for (const Packet& request : line->requests)
            whole = whole + request.Extended();
        EXPECT_EQ(whole, Ramp(768 * packets));
    }
}

} // namespace
} // namespace vxsign::test

// Files on their way to the sign: records, chunks, wrapped messages, the window.
#include "support/fakeClock.h"
#include "support/scriptedChannel.h"
#include "support/scriptedSign.h"
#include "support/tempFolder.h"
#include "vxBaseCMD/packet.h"
#include "vxComm/Write/vxWriteLED.h"

#include <gtest/gtest.h>
#include <numeric>
#include <optional>
#include <set>
#include <tuple>

namespace vxsign::test {
namespace {

std::string Pattern(std::size_t size)
{
    std::string text(size, '\0');
    for (std::size_t i = 0; i < size; ++i)
        text[i] = static_cast<char>(i * 7 + i / 251);
    return text;
}

TEST(WriteFile, RecordsOfEachMinor)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(100));
    const char* const local = file.c_str();
    using Row = std::tuple<std::function<std::uint32_t()>, std::uint8_t, const char*>;
    const Row rows[] = {
        {[&] { return vxWriteSystemFile("SEQUENT.SYS", local); }, 2,
         "53455155454E542E53595300 64000000 4000 0200 0100 0000"},
        {[&] { return vxWriteFontFile("ABCDEFGH.FNTX", local); }, 3,
         "41424344454647482E464E54 64000000 4000 0200 0100 0000"},
        {[&] { return vxWriteTextFile('D', "A", local); }, 4, "44 00 410000000000000000000000 64000000 4000 0200 0100"},
        {[&] { return vxWriteStringFile('E', "A", local); }, 5,
         "45 00 410000000000000000000000 64000000 4000 0200 0100"},
        {[&] { return vxWritePictureFile('F', "A", local); }, 6,
         "46 00 410000000000000000000000 64000000 4000 0200 0100"},
        {[&] { return vxWriteArrPicFile('D', "A", local); }, 7,
         "44 00 410000000000000000000000 64000000 4000 0200 0100"},
        {[&] { return vxWriteSpecFile("D:\\A", local); }, 8, "64000000 4000 0200 0100 443A5C4100 00"},
        {[&] { return vxWriteSpecFileEx("D:\\AB", local); }, 13, "64000000 4000 02000000 01000000 443A5C414200"},
        {[&] { return vxWriteDataFlashFile(local, 0); }, 19, "64000000 4000 02000000 01000000 0000"},
    };
    for (const auto& [call, minor, payload] : rows) {
        SCOPED_TRACE(int(minor));
        ScriptedSign sign;
        sign.Config().dataSize = 64;
        sign.Then(2, Good());
        EXPECT_EQ(call(), 0u);
        ASSERT_EQ(sign.requests.size(), 2u);
        EXPECT_EQ(sign.requests[0].Major(), 2);
        EXPECT_EQ(sign.requests[0].Minor(), minor);
        Bytes expected = Hex(payload);
        expected.resize((expected.size() + 3) / 4 * 4);
        EXPECT_EQ(sign.requests[0].Payload(), expected);
        EXPECT_EQ(sign.requests[0].Extended() + sign.requests[1].Extended(), FromText(Pattern(100)));
        EXPECT_EQ(sign.requests[1].Extended().size(), 36u);
        EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{50, 100}));
    }
}

TEST(WriteFile, ChunkSizesAndLongPaths)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(1280));
    ScriptedSign sign;
    sign.otherwise = [](const Packet&) { return Good(); };
    for (const auto& [given, used] : {std::pair<std::uint16_t, std::size_t>{1280, 1280}, {0, 768}, {2000, 768}}) {
        sign.Config().dataSize = given;
        sign.requests.clear();
        // The longest request there is: a full record and a full chunk.
        EXPECT_EQ(vxWriteSpecFile(std::string(300, 'p').c_str(), file.c_str()), 0u);
        EXPECT_EQ(sign.requests[0].Extended().size(), used);
        EXPECT_EQ(sign.requests[0].Payload().size(), 256u);
        EXPECT_EQ(sign.requests[0].Payload().back(), 'p') << "no terminator";
        EXPECT_EQ(sign.requests[0].Extended(), FromText(Pattern(used)));
    }
}

TEST(WriteFile, StopsAtTheFirstFailure)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(300));
    ScriptedSign sign;
    sign.Config().dataSize = 100;
    sign.Then(Good()).Then(Refusal(8451));
    EXPECT_EQ(vxWriteSpecFileEx("D:\\A", file.c_str()), 8451u);
    EXPECT_EQ(sign.progress, std::vector<std::uint32_t>{33});

    // An abort between two packets.
    sign.Config().onProgress = [](vxApiConfig* config, std::uint32_t, std::uint32_t) { config->abortFlag = 1; };
    sign.Then(Good());
    EXPECT_EQ(vxWriteSpecFileEx("D:\\A", file.c_str()), 20497u);
    EXPECT_EQ(sign.requests.size(), 3u);
}

TEST(WriteFile, LocalFilesThatCannotBeSent)
{
    const TempFolder folder;
    ScriptedSign sign;
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

struct Wrapped
{
    const char* name;
    std::string file;
    std::string sent;
};

TEST(WriteFile, WrappedMessagesAreUnwrapped)
{
    const std::string intro("\x01Z00\x02"
                            "AA",
                            7);
    const auto wrap = [](const std::string& body, std::uint32_t announced) {
        std::string file("NG\0\0\0\0........\0\0\0\0", 18);
        for (int i = 0; i < 4; ++i)
            file[6 + static_cast<std::size_t>(i)] = static_cast<char>(announced >> (8 * i));
        return file + body;
    };
    const std::string text = Pattern(5000);
    const std::string plain = "1234567PD" + Pattern(50);
    const Wrapped cases[] = {
        {"plain", wrap("hello", 5), intro + "hello" + "\x04"},
        {"what stands behind goes along", wrap("hello and more", 5), intro + "hello and more" + "\x04"},
        {"a block that is the rest ends the copy", wrap(text.substr(0, 4096) + "more", 4096),
         intro + text.substr(0, 4096) + "\x04"},
        {"a block that jumps over the end does not", wrap(text, 4500), intro + text + "\x04"},
        {"announced beyond the end", wrap("hello", 70000), intro + "hello" + "\x04"},
        {"PD goes as it is", wrap(plain, 59), plain},
        {"shorter than its header", "NG", intro + "\x04"},
    };
    for (const Wrapped& wrapped : cases) {
        SCOPED_TRACE(wrapped.name);
        const TempFolder folder;
        const std::string file = folder.Write("m.nmg", wrapped.file);
        ScriptedSign sign;
        sign.otherwise = [](const Packet&) { return Good(); };
        EXPECT_EQ(vxWriteSpecFileEx("D:\\A", file.c_str()), 0u);
        Bytes sent;
        for (const Packet& request : sign.requests)
            sent = sent + request.Extended();
        EXPECT_EQ(sent, FromText(wrapped.sent));
        EXPECT_EQ(folder.Read("m.nmg.tmp"), wrapped.sent) << "stays beside the source";
        EXPECT_EQ(folder.Read("m.nmg"), wrapped.file);
    }
    const TempFolder folder;
    ScriptedSign sign;
    std::filesystem::create_directory(folder.Path("m.tmp"));
    EXPECT_EQ(vxWriteSpecFile("D:\\A", folder.Write("m", wrap("x", 1)).c_str()), 20737u) << "no room for the .tmp";
}

TEST(WriteDataFlash, TheCallersSizeRules)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(150));
    ScriptedSign sign;
    sign.Config().dataSize = 100;
    sign.otherwise = [](const Packet&) { return Good(); };
    EXPECT_EQ(vxWriteDataFlashFile(file.c_str(), 350), 0u);
    ASSERT_EQ(sign.requests.size(), 4u);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("5E010000 6400 04000000 01000000 0000"));
    EXPECT_EQ(sign.requests[1].Extended().size(), 50u);
    EXPECT_EQ(sign.requests[3].Extended().size(), 0u);
}

TEST(WriteAbsolute, BlocksOffsetsAndTheAddressThatAFailureLeaves)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", "NG" + Pattern(1100));
    ScriptedSign sign;
    sign.Config().destinationAddress = 0x0102;
    sign.Then(2, Good());
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

const Answer kAcknowledged{1, {0x00, 0x90, 0, 0}, {}, Fault::None};

TEST(Window, SmallFilesSkipIt)
{
    const TempFolder folder;
    ScriptedSign sign;
    sign.otherwise = [](const Packet&) { return kAcknowledged; };
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", folder.Write("one", Pattern(768)).c_str()), 0u);
    ASSERT_EQ(sign.requests.size(), 2u) << "a file of one packet sends it twice";
    EXPECT_EQ(sign.requests[0].Payload(), sign.requests[1].Payload());
    EXPECT_EQ(sign.requests[0].Extended(), sign.requests[1].Extended());
    EXPECT_EQ(sign.progress, std::vector<std::uint32_t>{0});
    sign.requests.clear();
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", folder.Write("two", Pattern(769)).c_str()), 0u);
    EXPECT_EQ(sign.requests.size(), 2u);
}

// The number in the record of a minor 13 request.
std::uint32_t Number(const Packet& request)
{
    return request.Word(26) + 65536u * request.Word(28);
}

TEST(Window, KeepsEightOnTheirWayAndTakesAnyOrder)
{
    const TempFolder folder;
    const std::string text = Pattern(768 * 40 + 5);
    const std::string file = folder.Write("a", text);
    ScriptedSign sign;
    std::vector<Packet> held;
    std::size_t mostHeld = 0;
    std::map<std::uint32_t, Bytes> arrived;
    std::deque<Bytes> due;
    sign.raw = [&](const Packet& request) -> std::deque<Bytes> {
        const std::uint32_t number = Number(request);
        arrived[number] = request.Extended();
        const Bytes reply = MakeReply(request, 1, {0x00, 0x90, 0, 0}, {});
        if (number == 1 || number == 41)
            return {reply};
        held.push_back(request);
        mostHeld = std::max(mostHeld, held.size());
        return {};
    };
    // Acknowledgements come back last first, two stuck together, one cut in two, with strays between.
    sign.onEmptyRead = [&] {
        std::deque<Bytes> pieces;
        Bytes all;
        while (!held.empty()) {
            all = all + Hex("AA 55 10 55") + MakeReply(held.back(), 1, {0x00, 0x90, 0, 0}, {});
            held.pop_back();
        }
        for (std::size_t at = 0; at < all.size(); at += 33)
            due.emplace_back(all.begin() + static_cast<std::ptrdiff_t>(at),
                             all.begin() + static_cast<std::ptrdiff_t>(std::min(at + 33, all.size())));
    };

    static std::deque<Bytes>* dueNow;
    static vxOnRead scripted;
    dueNow = &due;
    scripted = sign.MakeConfig().onRead;
    sign.Config().onRead = [](vxApiConfig* config, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs) {
        if (dueNow->empty() || waitMs != 0)
            return scripted(config, buffer, capacity, waitMs);
        const Bytes piece = dueNow->front();
        dueNow->pop_front();
        std::copy(piece.begin(), piece.end(), buffer);
        return static_cast<std::int32_t>(piece.size());
    };
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 0u);
    EXPECT_EQ(mostHeld, 8u);
    EXPECT_EQ(sign.requests.size(), 41u);
    Bytes whole;
    for (const auto& [number, bytes] : arrived)
        whole = whole + bytes;
    EXPECT_EQ(whole, FromText(text));
}

// Lost, doubled, unknown and refused acknowledgements; a resend after 4 seconds with the same bytes.
TEST(Window, ResendsWhatIsNotAcknowledged)
{
    const FakeClock clock;
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(768 * 5));
    ScriptedSign sign;
    std::map<std::uint32_t, int> seen;
    std::uint16_t idOfThird = 0;
    sign.raw = [&](const Packet& request) -> std::deque<Bytes> {
        const std::uint32_t number = Number(request);
        const Bytes good = MakeReply(request, 1, {0x00, 0x90, 0, 0}, {});
        ++seen[number];
        if (number == 2 && seen[number] == 1)
            return {};
        if (number == 3) {
            if (seen[number] == 1) {
                idOfThird = request.Id();
                return {MakeReply(request, 1, {0x12, 0x90, 0, 0}, {})}; // refused: the slot just times out
            }
            EXPECT_EQ(request.Id(), idOfThird);
        }
        Packet unknown = request;
        unknown.bytes[11] ^= 0x40;
        return {good, good, MakeReply(unknown, 1, {0x00, 0x90, 0, 0}, {})};
    };
    sign.onEmptyRead = [] { FakeClock::Advance(1000); };
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 0u);
    EXPECT_EQ(seen, (std::map<std::uint32_t, int>{{1, 1}, {2, 2}, {3, 2}, {4, 1}, {5, 1}}));
    EXPECT_EQ(FakeClock::SleptMs(), 0u);
}

TEST(Window, EndsWhenTheSignStaysSilentOrTheCallerAborts)
{
    const FakeClock clock;
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(768 * 3));
    ScriptedSign sign;
    sign.Config().retries = 2;
    int middle = 0;
    sign.raw = [&](const Packet& request) -> std::deque<Bytes> {
        if (Number(request) == 2)
            return ++middle, std::deque<Bytes>{};
        return {MakeReply(request, 1, {0x00, 0x90, 0, 0}, {})};
    };
    sign.onEmptyRead = [] { FakeClock::Advance(1000); };
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 20736u);
    EXPECT_EQ(middle, 3) << "once, and as often again as there are tries";
    ASSERT_FALSE(sign.log.empty());
    EXPECT_EQ(sign.log.back().level, 3u);
    EXPECT_EQ(sign.log.back().message, "Communication Error!");

    sign.onEmptyRead = [&] { sign.Config().abortFlag = 1; };
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 20497u);
    EXPECT_EQ(sign.log.back().message, "Operation Abort!");

    // A sign that never stops talking does not hold the window either.
    sign.Config().abortFlag = 0;
    static vxOnRead scripted;
    scripted = sign.MakeConfig().onRead;
    sign.Config().onRead = [](vxApiConfig* config, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs) {
        if (waitMs != 0)
            return scripted(config, buffer, capacity, waitMs);
        FakeClock::Advance(10);
        std::fill_n(buffer, capacity, std::uint8_t{0x55});
        return static_cast<std::int32_t>(capacity);
    };
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 20736u);
}

// The packet that gets id 0 has no slot, so that its acknowledgement is never counted.
TEST(Window, EndsWhenAnIdOfZeroFallsIntoIt)
{
    const FakeClock clock;
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(768 * 5));
    ScriptedSign sign;
    sign.Config().retries = 2;
    sign.raw = [](const Packet& request) -> std::deque<Bytes> {
        return {MakeReply(request, 1, {0x00, 0x90, 0, 0}, {})};
    };
    int seconds = 0;
    sign.onEmptyRead = [&] {
        FakeClock::Advance(1000);
        sign.Config().abortFlag = ++seconds == 100;
    };
    packetIds::Set(65533);
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 20736u);
    EXPECT_EQ(seconds, 12) << "a resend and one for each try, 4 seconds each";
    EXPECT_EQ(sign.requests.size(), 4u) << "the last packet is not sent";
    EXPECT_EQ(sign.log.back().message, "Communication Error!");

    sign.onEmptyRead = [&] { sign.Config().abortFlag = 1; };
    packetIds::Set(65533);
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 20497u);
    sign.Config().abortFlag = 0;
    sign.onEmptyRead = {};
    EXPECT_EQ(vxWriteFileOptimize("D:\\A", file.c_str()), 0u) << "the ids have left 0 behind";
}

// A sender over a channel whose bytes come when the fake clock says so.
struct ChannelSender
{
    explicit ChannelSender(std::function<Arrivals(const Packet& request)> answer)
    {
        const vxApiConfig config{};
        vxInitAPI(&config);
        sign.emplace();
        auto channel = std::make_unique<ScriptedChannel>(std::move(answer));
        line = channel.get();
        sign->link.channel = std::move(channel);
    }

    const FakeClock clock;
    std::optional<vxWriteLED> sign;
    ScriptedChannel* line = nullptr;
};

// Over a channel the sender sleeps until something comes, and sends as soon as it has.
TEST(Window, RestsUntilSomethingComes)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(768 * 42));
    ChannelSender sender([](const Packet& request) {
        return Arrivals{{50, MakeReply(request, 1, {0x00, 0x90, 0, 0}, {})}};
    });
    const std::uint64_t start = FakeClock::NowMs();
    EXPECT_EQ(sender.sign->SendFileWindowed("D:\\A", file.c_str()), 0u);
    EXPECT_EQ(FakeClock::NowMs() - start, 7u * 50) << "five windows, and a packet ahead of and behind them";
    EXPECT_LE(sender.line->looks, 7u * 100);
    Bytes whole;
    for (const Packet& request : sender.line->requests)
        whole = whole + request.Extended();
    EXPECT_EQ(whole, FromText(Pattern(768 * 42)));
}

TEST(Window, RestsWhenTheFarEndHasGone)
{
    const TempFolder folder;
    const std::string file = folder.Write("a", Pattern(768 * 3));
    ChannelSender sender([&](const Packet& request) {
        sender.line->gone = Number(request) == 2;
        return Arrivals{{0, MakeReply(request, 1, {0x00, 0x90, 0, 0}, {})}};
    });
    EXPECT_EQ(sender.sign->SendFileWindowed("D:\\A", file.c_str()), 20736u);
    EXPECT_GT(FakeClock::SleptMs(), 15000u) << "all of its tries, without looking in between";
}

} // namespace
} // namespace vxsign::test

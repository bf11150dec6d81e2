// The exchange as applications see it: through exports, with replies that go right and wrong in every way.
#include "support/scriptedChannel.h"
#include "support/scriptedSign.h"
#include "vxBaseCMD/vxBaseCMD.h"

#include <numeric>
#include <thread>
#if !defined(_WIN32)
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace vxsign::test {
namespace {

class Exchange : public ScriptedTest
{
protected:
    // The result of one command in so many tries, to which these bytes come back.
    std::uint32_t Try(std::uint32_t retries, std::uint32_t timeoutMs,
                      std::function<std::deque<Bytes>(const Packet& request)> answer = {})
    {
        sign.Renew();
        sign.Config().retries = retries;
        sign.Config().timeoutMs = timeoutMs;
        sign.raw = std::move(answer);
        return vxBlackScreen();
    }
};

TEST_F(Exchange, CarriesBothAddressesAndANewId)
{
    packetIds::Set(0);
    sign.Then(Good());
    EXPECT_EQ(vxBlackScreen(), 0u);
    EXPECT_EQ(sign.requests.at(0).bytes, Hex("55A7 0600 0000 0000 0000 0100 04 01 00 00"));
    sign.requests.clear();

    sign.Config().sourceAddress = 0x1234;
    sign.Config().destinationAddress = 0xABCD;
    packetIds::Set(65534);
    sign.Then(2, Good());
    EXPECT_EQ(vxBlackScreen(), 0u);
    EXPECT_EQ(vxBlackScreen(), 0u);
    EXPECT_EQ(Part(sign.requests[0].bytes, 4), Hex("0000 3412 CDAB FFFF 04 01 00 00"));
    EXPECT_EQ(sign.requests[1].Id(), 0u) << "the counter wraps silently";
}

TEST_F(Exchange, EachFaultCostsATryOrIsOvercome)
{
    for (const Fault fault : {Fault::None, Fault::Late, Fault::Noise, Fault::Drop, Fault::Truncate, Fault::WrongId,
                              Fault::WrongMajor, Fault::BadSum}) {
        const std::uint32_t result = fault <= Fault::Noise ? 0 : 20736; // with a single try
        SCOPED_TRACE(static_cast<int>(fault));
        sign.Renew();
        Answer answer = Good({1, 2, 3, 4});
        answer.fault = fault;
        sign.Config().retries = 1;
        sign.Then(answer);
        EXPECT_EQ(vxBlackScreen(), result);

        // With a second try the same bytes go out again, and the good answer counts.
        sign.Config().retries = 2;
        const std::size_t before = sign.requests.size();
        sign.Then(answer);
        if (result != 0)
            sign.Then(Good());
        EXPECT_EQ(vxBlackScreen(), 0u);
        if (result != 0) {
            EXPECT_EQ(sign.requests.at(before).bytes, sign.requests.at(before + 1).bytes);
        }
    }
}

TEST_F(Exchange, StatusBecomesAResultWord)
{
    sign.Config().retries = 2;
    sign.Then(Refusal(0x9000));
    EXPECT_EQ(vxBlackScreen(), 0u);
    sign.Then(Refusal(36912));
    EXPECT_EQ(vxBlackScreen(), 36912u);
    sign.Then({3, {}, {}});
    EXPECT_EQ(vxBlackScreen(), 20484u);
    // A status of 2 reads like a garbled reply: the command goes out again.
    sign.Then({2, {}, {}}).Then(Good());
    EXPECT_EQ(vxBlackScreen(), 0u);
    EXPECT_EQ(sign.requests.size(), 5u);

    // Failed tries and failed commands are logged.
    Answer dropped = Good();
    dropped.fault = Fault::Drop;
    sign.Renew();
    sign.Then(dropped).Then(Refusal(0x1234));
    EXPECT_EQ(vxBlackScreen(), 4660u);
    ASSERT_EQ(sign.log.size(), 2u);
    for (const LogLine& line : sign.log)
        EXPECT_EQ(line.source, "..\\..\\src\\vxBaseCMD\\vxBaseCMD");
    EXPECT_EQ(sign.log[0].line, 606u);
    EXPECT_EQ(sign.log[0].level, 6u);
    EXPECT_EQ(sign.log[0].message, "Read Data Timeout Or Error");
    EXPECT_EQ(sign.log[1].line, 635u);
    EXPECT_EQ(sign.log[1].level, 3u);
    EXPECT_EQ(sign.log[1].message, "Unknow Error!");
}

TEST_F(Exchange, AnAbortSendsNothingMoreAndStands)
{
    sign.Config().abortFlag = 7;
    EXPECT_EQ(vxBlackScreen(), 20497u);
    EXPECT_TRUE(sign.requests.empty());
    EXPECT_TRUE(sign.log.empty());
    EXPECT_EQ(sign.Config().abortFlag, 7u);

    // Set while a try runs, it ends the command before the next try.
    sign.Config().abortFlag = 0;
    sign.onEmptyRead = [&] { sign.Config().abortFlag = 1; };
    EXPECT_EQ(vxBlackScreen(), 20497u);
    EXPECT_EQ(sign.requests.size(), 1u);
}

TEST_F(Exchange, ReadsInTheStatedPace)
{
    EXPECT_EQ(Try(1, 600), 20736u);
    EXPECT_EQ(sign.readWaits, (std::vector<std::uint32_t>{500, 200, 200, 200, 200, 200}));
    // Below two polls there is the first read alone.
    EXPECT_EQ(Try(1, 199), 20736u);
    EXPECT_EQ(sign.readWaits, (std::vector<std::uint32_t>{500}));
    // Stray bytes with no reply among the first ten: the polls pass without a read.
    EXPECT_EQ(Try(1, 3000, [](const Packet&) { return Pieces(Bytes(80, 0xEE), 40); }), 20736u);
    EXPECT_EQ(sign.readWaits.size(), 1u);

    // A header in two pieces uses up the search of three polls; the payload still gets three reads.
    EXPECT_EQ(Try(1, 300,
                  [](const Packet& request) {
                      const Bytes reply = MakeReply(request, 0, Bytes(12, 7), {});
                      std::deque<Bytes> pieces = Pieces(Part(reply, 16), 4);
                      pieces.push_front(Part(reply, 0, 16));
                      return pieces;
                  }),
              0u);
    EXPECT_EQ(sign.readWaits, (std::vector<std::uint32_t>{500, 200, 200, 200}));

    // The longest that a try may read: the header is whole just in time, and nothing follows.
    for (const auto& [polls, longest] : {std::pair{2u, 900u}, {3u, 1300u}, {30u, 12100u}}) {
        const auto answer = [empty = polls - 2](const Packet& request) {
            std::deque<Bytes> pieces(empty);
            pieces.push_back(Part(MakeReply(request, 0, Bytes(12, 7), {}), 0, 16));
            return pieces;
        };
        EXPECT_EQ(Try(1, polls * 100, answer), 20736u);
        EXPECT_EQ(std::accumulate(sign.readWaits.begin(), sign.readWaits.end(), 0u), longest);
    }
}

// Where stray bytes ahead of the reply may end: 9 are skipped while gathering, 5 while checking.
TEST_F(Exchange, ResynchronisesInBothPlaces)
{
    const auto resultWith = [&](std::size_t stray, std::uint32_t timeoutMs) {
        return Try(1, timeoutMs, [stray](const Packet& request) {
            return std::deque<Bytes>{Bytes(stray, 0x55) + MakeReply(request, 0, {1, 2, 3, 4}, {})};
        });
    };
    EXPECT_EQ(resultWith(9, 3000), 0u);
    EXPECT_EQ(resultWith(10, 3000), 20736u);
    EXPECT_EQ(resultWith(5, 50), 0u);
    EXPECT_EQ(resultWith(6, 50), 20736u);
}

TEST_F(Exchange, CrcRepliesAndMixedMethods)
{
    for (const auto& [sync, result] : {std::pair{0xA4, 0u}, {0xB2, 0u}, {0xA8, 20736u}, {0xA9, 20736u}}) {
        packetIds::Set(0x0100);
        const auto answer = [sync = static_cast<std::uint8_t>(sync)](const Packet&) {
            const Bytes reply = Bytes{0x55, sync} + Hex("0000 0000 0000 0000 0101 04 01 00 00");
            return std::deque<Bytes>{Part(reply, 0, 2) + Little(CrcField(reply), 2) + Part(reply, 4)};
        };
        EXPECT_EQ(Try(1, 3000, answer), result) << sync;
    }
}

// A reply longer than its buffer runs on, up to 4608 bytes in all; one that declares more fails its try. In both cases
// the tries that follow send the same bytes.
TEST_F(Exchange, LongRepliesEndWhereTheBuffersEnd)
{
    for (const auto& [length, result] :
         {std::pair<std::size_t, std::uint32_t>{4592, 0}, {4593, 20736}, {65535, 20736}}) {
        int served = 0;
        EXPECT_EQ(Try(2, 3000,
                      [&, size = length](const Packet& request) {
                          Bytes reply = MakeReply(request, 0, {}, Bytes(size, 0x31));
                          if (served++ == 0)
                              reply[2] ^= 1;
                          return Pieces(reply, 1536);
                      }),
                  result);
        ASSERT_EQ(sign.requests.size(), 2u);
        EXPECT_EQ(sign.requests[0].bytes, sign.requests[1].bytes);
    }
}

// Over a channel: how many pieces a reply comes in does not matter, only when the last one comes.
TEST_F(Exchange, ManySmallPiecesAreInTimeUntilTheTimeIsOver)
{
    constexpr std::size_t kNever = 1000000;
    const struct
    {
        const char* name;
        std::uint32_t timeoutMs;
        std::size_t piece;   // bytes
        std::uint64_t gapMs; // between two pieces
        std::size_t pauseAt; // the piece that comes late
        std::uint64_t pauseMs;
        std::uint32_t result;
        std::uint64_t tookMs; // at most
    } rows[] = {
        {"a device server of 32 bytes", 3000, 32, 1, kNever, 0, 0, 100},
        {"slower", 3000, 32, 70, kNever, 0, 0, 2900},
        {"a pause within them", 3000, 32, 1, 39, 700, 0, 1000},
        {"byte by byte", 1500, 1, 1, kNever, 0, 0, 1400},
        {"in half a poll", 50, 700, 20, kNever, 0, 0, 50},
        {"too slow", 3000, 32, 80, kNever, 0, 20736, 3100},
        {"much too slow", 3000, 32, 195, kNever, 0, 20736, 6000},
        {"a header and then silence", 3000, 16, 0, 1, 100000, 20736, 6000},
        {"the time is over before the polls are", 3000, 16, 100, 2, 100000, 20736, 6000},
        {"no reply begins there", 3000, 0, 0, kNever, 0, 20736, 3000},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        vxApiConfig config{};
        config.retries = 1;
        config.timeoutMs = row.timeoutMs;
        vxInitAPI(&config);
        CBaseCMD command;
        command.link.channel = std::make_unique<ScriptedChannel>([&row](const Packet& request) {
            if (row.piece == 0)
                return Arrivals{{0, Bytes(500, 0xEE)}};
            Arrivals arrivals;
            std::size_t number = 0;
            for (const Bytes& piece : Pieces(MakeReply(request, 0, {}, Bytes(1280, 7)), row.piece)) {
                arrivals.emplace(number * row.gapMs + (number >= row.pauseAt ? row.pauseMs : 0), piece);
                ++number;
            }
            return arrivals;
        });
        const std::uint64_t start = FakeClock::NowMs();
        EXPECT_EQ(command.Request(4, 1), row.result);
        EXPECT_LE(FakeClock::NowMs() - start, row.tookMs);
    }
}

TEST_F(Exchange, ASignThatNeverStopsTalkingIsLeftInTime)
{
    sign.raw = [](const Packet&) { return std::deque<Bytes>(1000, Bytes(1536, 0x55)); };
    EXPECT_EQ(vxBlackScreen(), 20736u);
    EXPECT_EQ(sign.requests.size(), 3u);
    EXPECT_LE(sign.readWaits.size(), 3u * 30);

    // Nor does a read that lies about its count.
    for (const std::int32_t lie : {-1, -2000000000, 1537, 2000000000}) {
        static std::int32_t told;
        told = lie;
        sign.Renew();
        sign.Config().onRead = [](vxApiConfig*, std::uint8_t*, std::uint32_t, std::uint32_t) { return told; };
        EXPECT_EQ(vxBlackScreen(), 20736u);
    }
}

TEST_F(Exchange, ReceivingAFrameEndsAtTheCallersCapacity)
{
    sign.raw = [](const Packet&) { return std::deque<Bytes>{{0x43, 0x06}, {0x15}}; };
    CBaseCMD command;
    command.BuildPacket(command.requestBuffer, 1, 1, nullptr, 0, nullptr, 0);
    std::uint8_t reply[2] = {0xEE, 0xEE};
    EXPECT_EQ(command.ReceiveFrame(command.requestBuffer, 16, reply, 1), 1u);
    EXPECT_EQ(reply[0], 0x43);
    EXPECT_EQ(reply[1], 0xEE);
    EXPECT_EQ(sign.readWaits.size(), 1u);
}

TEST(PacketIds, AreUniqueAcrossThreadsAndGoOnInAForkedChild)
{
    packetIds::Set(0);
    std::vector<std::uint16_t> seen[2];
    {
        std::jthread threads[2];
        for (int i = 0; i < 2; ++i)
            threads[i] = std::jthread([&ids = seen[i]] {
                for (int n = 0; n < 20000; ++n)
                    ids.push_back(packetIds::Next());
            });
    }
    std::vector<int> times(65536);
    for (const auto& ids : seen)
        for (const std::uint16_t id : ids)
            ++times[id];
    EXPECT_EQ(std::count(times.begin(), times.end(), 1), 40000);

#if !defined(_WIN32) // which knows no fork
    // A lock that another thread holds at that moment would never be free in the child.
    std::atomic<bool> ending = false;
    std::jthread busy([&] {
        while (!ending)
            packetIds::Next();
    });
    int hung = 0;
    for (int i = 0; i < 30 && hung == 0; ++i) {
        const ::pid_t child = ::fork();
        if (child == 0) {
            ::alarm(10);
            packetIds::Next();
            ::_exit(0);
        }
        int status = -1;
        ::waitpid(child, &status, 0);
        hung += status != 0 ? 1 : 0;
    }
    ending = true;
    EXPECT_EQ(hung, 0);
#endif
}

} // namespace
} // namespace vxsign::test

// Field devices on a Modbus line: frames, registers, noise, tries.
#include "support/bytes.h"
#include "support/fakeClock.h"
#include "vxComm/MB/vxMBLED.h"

#include <vxsign/vxsign.h>

#include <algorithm>
#include <deque>
#include <functional>
#include <gtest/gtest.h>
#include <pty.h>
#include <string>
#include <thread>
#include <tuple>
#include <unistd.h>

namespace vxsign::test {
namespace {

// The thread's line, through onWrite and onRead: keeps what was sent and gives each read what is scripted.
class Modbus : public ::testing::Test
{
protected:
    void SetUp() override
    {
        sent.clear();
        replies.clear();
        logged.clear();
        vxApiConfig config{};
        config.retries = 3;
        config.timeoutMs = 700;
        config.onWrite = [](vxApiConfig*, const std::uint8_t* bytes, std::uint32_t length, std::uint32_t) {
            sent.emplace_back(bytes, bytes + length);
            return static_cast<std::int32_t>(length);
        };
        config.onRead = [](vxApiConfig*, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs) {
            EXPECT_EQ(capacity, 1536u);
            EXPECT_EQ(waitMs, 700u);
            if (replies.empty())
                return 0;
            const Bytes reply = replies.front();
            replies.pop_front();
            std::copy_n(reply.begin(), std::min<std::size_t>(reply.size(), capacity), buffer);
            return static_cast<std::int32_t>(reply.size());
        };
        config.onLog = [](vxApiConfig*, const char*, std::uint32_t, std::uint32_t, const char* message) {
            logged.emplace_back(message);
        };
        vxInitAPI(&config);
    }
    void TearDown() override
    {
        EXPECT_TRUE(replies.empty());
        const vxApiConfig nothing{};
        vxInitAPI(&nothing);
    }

    inline static std::vector<Bytes> sent;
    inline static std::deque<Bytes> replies;
    inline static std::vector<std::string> logged;
};

TEST_F(Modbus, Frames)
{
    std::uint16_t value = 0;
    const std::tuple<const char*, std::function<std::uint32_t()>, const char*> rows[] = {
        {"vxMB_LCGet", [&] { return vxMB_LCGet(7, 5, &value); }, "07 03 FF05 0001 A479"},
        {"vxMB_TLSGet", [&] { return vxMB_TLSGet(7, 3, 5, &value); }, "07 03 0131 0001 D45F"},
        {"vxMB_TLSGet of the device", [&] { return vxMB_TLSGet(7, 255, 5, &value); }, "07 03 FF05 0001 A479"},
        {"vxMB_ALCSGet", [&] { return vxMB_ALCSGet(7, 1, 65535, &value); }, "07 03 0063 0001 7472"},
        {"vxMB_MLCSGet", [&] { return vxMB_MLCSGet(7, 3, 29, &value); }, "07 03 0149 0001 5446"},
        {"vxMB_VSLSGet", [&] { return vxMB_VSLSGet(7, 3, 29, &value); }, "07 03 0149 0001 5446"},
        {"vxMB_TORGet", [&] { return vxMB_TORGet(7, 3, 23, &value); }, "07 03 0143 0001 7444"},
        {"vxMB_VMSGet", [&] { return vxMB_VMSGet(7, 3, 100, &value); }, "07 03 0190 0001 85BD"},
        {"vxMB_PVMSGet", [&] { return vxMB_PVMSGet(7, 67, &value); }, "07 03 FF43 0001 45AC"},
        {"vxMB_LCSet", [] { return vxMB_LCSet(7, 63, 0x1234); }, "07 06 FF3F 1234 84C3"},
        {"vxMB_TLSSet", [] { return vxMB_TLSSet(7, 3, 26, 0x1234); }, "07 06 0146 1234 64F2"},
        {"vxMB_ALCSSet", [] { return vxMB_ALCSSet(7, 3, 28, 0x1234); }, "07 06 0148 1234 0531"},
        {"vxMB_MLCSSet", [] { return vxMB_MLCSSet(7, 3, 29, 0x1234); }, "07 06 0149 1234 54F1"},
        {"vxMB_VSLSSet", [] { return vxMB_VSLSSet(7, 3, 30, 0x1234); }, "07 06 014A 1234 A4F1"},
        {"vxMB_TORSet", [] { return vxMB_TORSet(7, 3, 24, 0x1234); }, "07 06 0144 1234 C532"},
        {"vxMB_VMSSet", [] { return vxMB_VMSSet(7, 3, 100, 0x1234); }, "07 06 0190 1234 850A"},
        {"vxMB_PVMSSet", [] { return vxMB_PVMSSet(7, 67, 0x1234); }, "07 06 FF43 1234 451B"},
    };
    for (const auto& [name, call, frame] : rows) {
        SCOPED_TRACE(name);
        sent.clear();
        EXPECT_EQ(call(), 20736u);
        EXPECT_EQ(sent, std::vector<Bytes>(3, Hex(frame))) << "each of the tries";
    }
}

TEST_F(Modbus, RegistersOfTheClasses)
{
    auto* const live = static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    live->retries = 1;
    using Get = std::uint32_t (*)(std::uint8_t, std::uint8_t, std::uint16_t, std::uint16_t*);
    using Set = std::uint32_t (*)(std::uint8_t, std::uint8_t, std::uint16_t, std::uint16_t);
    const Get lcGet = [](std::uint8_t d, std::uint8_t, std::uint16_t r, std::uint16_t* v) {
        return vxMB_LCGet(d, r, v);
    };
    const Set lcSet = [](std::uint8_t d, std::uint8_t, std::uint16_t r, std::uint16_t v) {
        return vxMB_LCSet(d, r, v);
    };
    const Get pvmsGet = [](std::uint8_t d, std::uint8_t, std::uint16_t r, std::uint16_t* v) {
        return vxMB_PVMSGet(d, r, v);
    };
    const Set pvmsSet = [](std::uint8_t d, std::uint8_t, std::uint16_t r, std::uint16_t v) {
        return vxMB_PVMSSet(d, r, v);
    };
    const std::tuple<const char*, Get, Set, int, int, const char*, std::uint16_t> rows[] = {
        {"LC", lcGet, lcSet, 63, 63, "08090A 11 16 3738393A3B3C3D3E", 7},
        {"TLS", vxMB_TLSGet, vxMB_TLSSet, 26, 26, "0B0C0D 0F 16", 0},
        {"ALCS", vxMB_ALCSGet, vxMB_ALCSSet, 200, 28, "0B0C0D 0F 1314 16", 0},
        {"MLCS", vxMB_MLCSGet, vxMB_MLCSSet, 29, 29, "0B 0D0E0F 16", 0},
        {"VSLS", vxMB_VSLSGet, vxMB_VSLSSet, 29, 30, "0B0C 0E0F 16", 0},
        {"TOR", vxMB_TORGet, vxMB_TORSet, 23, 24, "0E0F 16", 0},
        {"VMS", vxMB_VMSGet, vxMB_VMSSet, 100, 100, "0B 0D0E0F 1213 16 19 1E1F20 2223", 0},
        {"PVMS", pvmsGet, pvmsSet, 67, 67, "08 16 3F404142", 7},
    };
    for (const auto& [name, get, set, lastRead, lastWritten, refusedDigits, unread] : rows) {
        Bytes refused;
        for (int number = 0; number <= 200; ++number) {
            SCOPED_TRACE(name + std::to_string(number));
            const auto registerNumber = static_cast<std::uint16_t>(number);
            sent.clear();
            std::uint16_t value = 7;
            const bool readable = number <= lastRead;
            EXPECT_EQ(get(1, 1, registerNumber, &value), readable ? 20736u : 2u);
            EXPECT_EQ(value, unread);
            EXPECT_EQ(sent.size(), readable ? 1u : 0u);
            if (set(1, 1, registerNumber, 9) == 20736u)
                EXPECT_EQ(sent.size(), readable ? 2u : 1u);
            else if (number <= lastWritten)
                refused.push_back(static_cast<std::uint8_t>(number));
        }
        EXPECT_EQ(refused, Hex(refusedDigits)) << name;
        EXPECT_EQ(set(1, 1, static_cast<std::uint16_t>(lastWritten), 9), 20736u);
        EXPECT_EQ(set(1, 1, static_cast<std::uint16_t>(lastWritten + 1), 9), 2u);

        live->initialised = 0;
        std::uint16_t value = 7;
        EXPECT_EQ(get(1, 1, 0, &value), 20736u);
        EXPECT_EQ(value, unread) << "a thread without configuration";
        live->initialised = 1;
    }
}

TEST_F(Modbus, ExceptionsAreLogged)
{
    const std::tuple<const char*, const char*, bool> rows[] = {
        {"07 83 01 60F1", "illegal function", false},
        {"07 83 02 20F0", "illegal data address", false},
        {"07 83 03 E130", "illegal data value", false},
        {"07 83 04 A0F2", "server device failure", false},
        {"07 83 05 6132", "acknowledge", false},
        {"07 83 06 2133", "server device busy", false},
        {"07 83 07 E0F3", "negative acknowledge", false},
        {"07 83 08 A0F7", "memory parity error", false},
        {"07 83 09 6137", "exception 9", false},
        {"07 83 0A 2136", "gateway path unavailable", false},
        {"07 83 0B E0F6", "gateway target device failed to respond", false},
        {"07 83 0C A134", "exception 12", false},
        {"07 83 FF E171", "exception 255", false},
        {"FF83 07 83 02 20F0 83", "illegal data address", false},
        {"07 86 02 23A0", "illegal data address", true},
        {"FF 83 03 60C1", "illegal data value", false},
        {"07 83 02 21F0", "", false},
        {"08 83 02 10F3", "", false},
        {"07 83 02 20F0", "", true},
        {"07 83 02 20F0 07 03 02 1234 3D33", "", false},
    };
    static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION))->retries = 2;
    for (const auto& [reply, tells, set] : rows) {
        SCOPED_TRACE(reply);
        logged.clear();
        replies = {Hex(reply), Hex("07 06 FF07 0102 8828") + Hex("07 03 02 1234 3D33")};
        std::uint16_t value = 0;
        EXPECT_EQ(set ? vxMB_LCSet(7, 7, 0x0102) : vxMB_LCGet(7, 5, &value), 0u) << "in the second try, or the first";
        replies.clear();
        std::vector<std::string> told;
        if (*tells != '\0')
            told.push_back(std::string("the device refused: ") + tells);
        EXPECT_EQ(logged, told);
    }
}

TEST_F(Modbus, Answers)
{
    constexpr char kGood[] = "07 03 02 1234 3D33";
    const Bytes full = Bytes(1529, 0x03) + Hex(kGood);
    struct Row
    {
        const char* name;
        std::vector<Bytes> replies;
        std::uint32_t result;
        std::uint16_t value;
        std::size_t tries;
    };
    const Row reads[] = {
        {"clean", {Hex(kGood)}, 0, 0x1234, 1},
        {"noise ahead", {Hex("0703") + Hex(kGood)}, 0, 0x1234, 1},
        {"noise to the end of the buffer", {full}, 0, 0x1234, 1},
        {"noise behind", {Hex(kGood) + Hex("FF03025678AE12")}, 0, 0x1234, 1},
        {"from address 255", {Hex("FF 03 02 5678 AE12")}, 0, 0x5678, 1},
        {"from another device", {Hex("08 03 02 1234 6932"), Hex(kGood)}, 0, 0x1234, 2},
        {"cut, bad checksum, silence", {Hex("0703021234 3D"), Hex("07 03 02 1235 3D33"), {}}, 20736, 0, 3},
        {"exception", {Hex("078302 20F0"), Hex("078302 20F0"), Hex("078302 20F0")}, 20736, 0, 3},
        {"a confirmed write", {Hex("07 06 FF05 0005 69BA"), {}, {}}, 20488, 0, 3},
        {"a confirmed write ahead", {Hex("07 06 FF05 0005 69BA") + Hex(kGood)}, 0, 0x1234, 1},
        {"only functions", {Bytes(1536, 3), Bytes(1536, 6), Bytes(1, 3)}, 20736, 0, 3},
    };
    const Row writes[] = {
        {"clean", {Hex("07 06 FF07 0102 8828")}, 0, 0, 1},
        {"low byte differs", {Hex("07 06 FF07 01FF 49A9")}, 0, 0, 1},
        {"another device", {Hex("09 06 FF07 0102 8906")}, 0, 0, 1},
        {"high byte differs", {Hex("07 06 FF07 0202 88D8"), {}, {}}, 20488, 0, 3},
        {"another register", {Hex("07 06 FF08 0102 B82B"), Hex("07 06 FF07 0102 8828")}, 0, 0, 2},
        {"another one ahead", {Hex("07 06 FF08 0102 B82B 07 06 FF07 0102 8828")}, 0, 0, 1},
        {"another one behind", {Hex("07 06 FF07 0102 8828 07 06 FF08 0102 B82B"), {}, {}}, 20488, 0, 3},
        {"a read register", {Hex(kGood)}, 0, 0, 1},
        {"a read register of another device", {Hex("08 03 02 1234 6932"), {}, {}}, 20736, 0, 3},
        {"a read register between others",
         {Hex("07 06 FF08 0102 B82B") + Hex(kGood) + Hex("07 06 FF08 0102 B82B")},
         0,
         0,
         1},
        {"cut", {Hex("07 06 FF07 0102 88"), {}, {}}, 20736, 0, 3},
    };
    const auto run = [](const Row& row, std::uint32_t result) {
        EXPECT_EQ(result, row.result) << row.name;
        EXPECT_EQ(sent.size(), row.tries) << row.name;
        EXPECT_TRUE(replies.empty()) << row.name;
        sent.clear();
    };
    for (const Row& row : reads) {
        replies.assign(row.replies.begin(), row.replies.end());
        std::uint16_t value = 7;
        run(row, vxMB_TLSGet(7, 3, 5, &value));
        EXPECT_EQ(value, row.value) << row.name;
    }
    for (const Row& row : writes) {
        replies.assign(row.replies.begin(), row.replies.end());
        run(row, vxMB_LCSet(7, 7, 0x0102));
    }
    replies.push_back(Hex(kGood));
    EXPECT_EQ(vxMB_LCGet(7, 7, nullptr), 0u) << "a value that nobody wants";
}

// What a read gives, and how long after the one before it.
struct Piece
{
    std::uint64_t gapMs;
    const char* bytes;
};

// A line that brings one list of pieces after the other, a list for each request. It waits by the clock's seam.
class PiecewiseLine : public VXCommBase
{
public:
    explicit PiecewiseLine(std::vector<std::vector<Piece>> answers) : toCome(answers.begin(), answers.end()) {}

    bool Open(const Route&, std::uint32_t) override { return true; }
    std::uint32_t Write(const char*, std::uint32_t length, std::uint32_t) override
    {
        ++requests;
        if (!toCome.empty()) {
            pieces.insert(pieces.end(), toCome.front().begin(), toCome.front().end());
            toCome.pop_front();
        }
        return length;
    }
    std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) override
    {
        const std::uint64_t gap = pieces.empty() ? timeoutMs + 1 : pieces.front().gapMs;
        FakeClock::Advance(std::min<std::uint64_t>(gap, timeoutMs));
        if (gap > timeoutMs) {
            if (!pieces.empty())
                pieces.front().gapMs -= timeoutMs;
            return 0;
        }
        const Bytes bytes = Hex(pieces.front().bytes);
        EXPECT_GE(capacity, bytes.size());
        pieces.pop_front();
        std::copy(bytes.begin(), bytes.end(), buffer);
        return static_cast<std::uint32_t>(bytes.size());
    }
    void Close() override {}

    int requests = 0;

private:
    std::deque<std::vector<Piece>> toCome;
    std::deque<Piece> pieces;
};

TEST(ModbusLine, AnswersInPieces)
{
    constexpr std::uint32_t kUdp = VX_CHANNEL_UDP;
    constexpr std::uint32_t kTcp = VX_CHANNEL_TCP;
    const std::tuple<const char*, std::uint32_t, std::vector<std::vector<Piece>>, std::uint32_t, int, std::uint64_t>
        rows[] = {
            {"one piece", kTcp, {{{5, "07 03 02 1234 3D33"}}}, 0, 1, 5},
            {"3 and 4 bytes", kTcp, {{{10, "07 03 02"}, {100, "1234 3D33"}}}, 0, 1, 110},
            {"noise ahead, a byte alone", kTcp, {{{1, "0703 07"}, {300, "03 02 1234 3D"}, {399, "33"}}}, 0, 1, 700},
            {"the rest comes too late", kTcp, {{{1, "07 03 02"}, {700, "1234 3D33"}}}, 20736, 2, 1400},
            {"the second try", kTcp, {{{1, "07 03 02"}}, {{0, "07 03"}, {100, "02 1234 3D33"}}}, 0, 2, 800},
            {"a bad checksum, then silence", kTcp, {{{1, "07 03 02 1235 3D33"}}}, 20736, 2, 1400},
            {"datagrams", kUdp, {{{10, "07 03 02"}, {100, "1234 3D33"}}}, 20736, 2, 110},
        };
    for (const auto& [name, kind, answers, wanted, tries, tookMs] : rows) {
        SCOPED_TRACE(name);
        const FakeClock clock;
        vxApiConfig config{};
        config.kind = kind;
        config.retries = 2;
        config.timeoutMs = 700;
        vxInitAPI(&config);
        vxMBLED device;
        auto line = std::make_unique<PiecewiseLine>(answers);
        const PiecewiseLine& seen = *line;
        device.link.channel = std::move(line);
        const std::uint64_t start = FakeClock::NowMs();
        std::uint16_t value = 0;
        EXPECT_EQ(device.ModbusExchange(7, 255, modbus::Function::kRead, 5, value), wanted);
        EXPECT_EQ(value, wanted == 0 ? 0x1234 : 0);
        EXPECT_EQ(seen.requests, tries);
        EXPECT_EQ(FakeClock::NowMs() - start, tookMs);
    }
    const vxApiConfig nothing{};
    vxInitAPI(&nothing);
}

TEST(ModbusLine, SerialAnswerWithNoiseAhead)
{
    int master = -1;
    int slave = -1;
    char name[128];
    ASSERT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
    vxApiConfig config{};
    config.kind = VX_CHANNEL_SERIAL;
    config.retries = 1;
    config.timeoutMs = 60000;
    config.baudRate = 115200;
    std::string(name).copy(config.serialName, sizeof config.serialName - 1);
    vxInitAPI(&config);
    std::thread device([=] {
        const Bytes reply = Hex("0703") + Hex("07 03 02 1234 3D33");
        std::uint8_t request[8];
        for (std::size_t got = 0; got < sizeof request;)
            got += static_cast<std::size_t>(std::max<ssize_t>(0, ::read(master, request + got, sizeof request - got)));
        EXPECT_EQ(::write(master, reply.data(), reply.size()), static_cast<ssize_t>(reply.size()));
    });
    std::uint16_t value = 0;
    EXPECT_EQ(vxMB_LCGet(7, 5, &value), 0u);
    EXPECT_EQ(value, 0x1234);
    device.join();
    ::close(slave);
    ::close(master);
    const vxApiConfig nothing{};
    vxInitAPI(&nothing);
}

} // namespace
} // namespace vxsign::test

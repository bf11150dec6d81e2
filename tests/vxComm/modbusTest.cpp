// Field devices on a Modbus line: frames, registers, noise, tries.
#include "support/scriptedChannel.h"
#include "support/scriptedSign.h"
#include "vxComm/MB/vxMBLED.h"

#if !defined(_WIN32)
#include "support/ptyRelay.h"
#endif

namespace vxsign::test {
namespace {

// Devices that answer one request after the other by script, then no more.
class Modbus : public ScriptedTest
{
protected:
    Modbus()
    {
        sign.isForeign = true;
        sign.Config().timeoutMs = 700;
        sign.raw = [this](const Packet&) -> std::deque<Bytes> {
            const std::size_t number = sign.requests.size() - 1;
            return {number < replies.size() ? replies[number] : Bytes()};
        };
    }

    std::vector<Bytes> replies;
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
        sign.Renew();
        EXPECT_EQ(call(), 20736u);
        ASSERT_EQ(sign.requests.size(), 3u);
        for (const Packet& sent : sign.requests)
            EXPECT_EQ(sent.bytes, Hex(frame)) << "each of the tries";
        EXPECT_EQ(sign.readWaits, std::vector<std::uint32_t>(3, 3000));
    }
}

TEST_F(Modbus, RegistersOfTheClasses)
{
    sign.Config().retries = 1;
    using Get = std::function<std::uint32_t(std::uint8_t, std::uint8_t, std::uint16_t, std::uint16_t*)>;
    using Set = std::function<std::uint32_t(std::uint8_t, std::uint8_t, std::uint16_t, std::uint16_t)>;
    const auto whole = [](auto call) { // without sections
        return [call](auto device, auto, auto number, auto value) { return call(device, number, value); };
    };
    const std::tuple<const char*, Get, Set, int, int, const char*, std::uint16_t> rows[] = {
        {"LC", whole(vxMB_LCGet), whole(vxMB_LCSet), 63, 63, "08090A 11 16 3738393A3B3C3D3E", 7},
        {"TLS", vxMB_TLSGet, vxMB_TLSSet, 26, 26, "0B0C0D 0F 16", 0},
        {"ALCS", vxMB_ALCSGet, vxMB_ALCSSet, 200, 28, "0B0C0D 0F 1314 16", 0},
        {"MLCS", vxMB_MLCSGet, vxMB_MLCSSet, 29, 29, "0B 0D0E0F 16", 0},
        {"VSLS", vxMB_VSLSGet, vxMB_VSLSSet, 29, 30, "0B0C 0E0F 16", 0},
        {"TOR", vxMB_TORGet, vxMB_TORSet, 23, 24, "0E0F 16", 0},
        {"VMS", vxMB_VMSGet, vxMB_VMSSet, 100, 100, "0B 0D0E0F 1213 16 19 1E1F20 2223", 0},
        {"PVMS", whole(vxMB_PVMSGet), whole(vxMB_PVMSSet), 67, 67, "08 16 3F404142", 7},
    };
    for (const auto& [name, get, set, lastRead, lastWritten, refusedDigits, unread] : rows) {
        Bytes refused;
        for (int number = 0; number <= 200; ++number) {
            SCOPED_TRACE(name + std::to_string(number));
            const auto registerNumber = static_cast<std::uint16_t>(number);
            sign.requests.clear();
            std::uint16_t value = 7;
            const bool readable = number <= lastRead;
            EXPECT_EQ(get(1, 1, registerNumber, &value), readable ? 20736u : 2u);
            EXPECT_EQ(value, unread);
            EXPECT_EQ(sign.requests.size(), readable ? 1u : 0u);
            if (set(1, 1, registerNumber, 9) == 20736u)
                EXPECT_EQ(sign.requests.size(), readable ? 2u : 1u);
            else if (number <= lastWritten)
                refused.push_back(static_cast<std::uint8_t>(number));
        }
        EXPECT_EQ(refused, Hex(refusedDigits)) << name;
        EXPECT_EQ(set(1, 1, static_cast<std::uint16_t>(lastWritten), 9), 20736u);
        EXPECT_EQ(set(1, 1, static_cast<std::uint16_t>(lastWritten + 1), 9), 2u);

        sign.Config().initialised = 0;
        std::uint16_t value = 7;
        EXPECT_EQ(get(1, 1, 0, &value), 20736u);
        EXPECT_EQ(value, unread) << "a thread without configuration";
        sign.Config().initialised = 1;
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
    for (const auto& [reply, tells, set] : rows) {
        SCOPED_TRACE(reply);
        sign.Renew();
        sign.Config().retries = 2;
        replies = {Hex(reply), Hex("07 06 FF07 0102 8828") + Hex("07 03 02 1234 3D33")};
        std::uint16_t value = 0;
        EXPECT_EQ(set ? vxMB_LCSet(7, 7, 0x0102) : vxMB_LCGet(7, 5, &value), 0u) << "in the second try, or the first";
        ASSERT_EQ(sign.log.size(), *tells != '\0' ? 1u : 0u);
        if (*tells != '\0') {
            EXPECT_EQ(sign.log[0].message, std::string("the device refused: ") + tells);
        }
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
    std::uint16_t value = 0;
    const auto run = [&](const Row& row, const std::function<std::uint32_t()>& call) {
        replies = row.replies;
        sign.requests.clear();
        value = 7;
        EXPECT_EQ(call(), row.result) << row.name;
        EXPECT_EQ(sign.requests.size(), row.tries) << row.name;
    };
    for (const Row& row : reads) {
        run(row, [&] { return vxMB_TLSGet(7, 3, 5, &value); });
        EXPECT_EQ(value, row.value) << row.name;
    }
    for (const Row& row : writes)
        run(row, [] { return vxMB_LCSet(7, 7, 0x0102); });
    sign.requests.clear();
    replies = {Hex(kGood)};
    EXPECT_EQ(vxMB_LCGet(7, 7, nullptr), 0u) << "a value that nobody wants";
}

TEST_F(Modbus, AnswersInPieces)
{
    constexpr std::uint32_t kUdp = VX_CHANNEL_UDP;
    constexpr std::uint32_t kTcp = VX_CHANNEL_TCP;
    const Bytes head = Hex("07 03 02");
    const Bytes rest = Hex("1234 3D33");
    const Arrivals apart{{1, Hex("0703 07")}, {301, Hex("03 02 1234 3D")}, {700, Hex("33")}};
    const std::tuple<const char*, std::uint32_t, std::vector<Arrivals>, std::uint32_t, std::size_t, std::uint64_t>
        rows[] = {
            {"one piece", kTcp, {{{5, head + rest}}}, 0, 1, 5},
            {"3 and 4 bytes", kTcp, {{{10, head}, {110, rest}}}, 0, 1, 110},
            {"noise ahead, a byte alone", kTcp, {apart}, 0, 1, 700},
            {"the rest comes too late", kTcp, {{{1, head}, {701, rest}}}, 20736, 2, 1400},
            {"the second try", kTcp, {{{1, head}}, {{0, Hex("07 03")}, {100, Hex("02") + rest}}}, 0, 2, 800},
            {"a bad checksum, then silence", kTcp, {{{1, Hex("07 03 02 1235 3D33")}}}, 20736, 2, 1400},
            {"datagrams", kUdp, {{{10, head}, {110, rest}}}, 20736, 2, 110},
        };
    for (const auto& [name, kind, answers, wanted, tries, tookMs] : rows) {
        SCOPED_TRACE(name);
        vxApiConfig config{};
        config.kind = kind;
        config.retries = 2;
        config.timeoutMs = 700;
        vxInitAPI(&config);
        vxMBLED device;
        std::size_t requests = 0;
        device.link.channel = std::make_unique<ScriptedChannel>(
            [&, all = answers](const Packet&) { return requests++ < all.size() ? all[requests - 1] : Arrivals(); });
        const std::uint64_t start = FakeClock::NowMs();
        std::uint16_t value = 0;
        EXPECT_EQ(device.ModbusExchange(7, 255, modbus::Function::kRead, 5, value), wanted);
        EXPECT_EQ(value, wanted == 0 ? 0x1234 : 0);
        EXPECT_EQ(requests, tries);
        EXPECT_EQ(FakeClock::NowMs() - start, tookMs);
    }
}

#if !defined(_WIN32) // which has no pseudo-terminals
TEST(ModbusLine, SerialAnswerWithNoiseAhead)
{
    const PtyRelay line;
    line.Configure(60000);
    std::jthread device([&] {
        const Bytes reply = Hex("0703") + Hex("07 03 02 1234 3D33");
        std::uint8_t request[8];
        for (std::size_t got = 0; got < sizeof request;)
            got += static_cast<std::size_t>(
                std::max<ssize_t>(0, ::read(line.FarEnd(), request + got, sizeof request - got)));
        EXPECT_EQ(::write(line.FarEnd(), reply.data(), reply.size()), static_cast<ssize_t>(reply.size()));
    });
    std::uint16_t value = 0;
    EXPECT_EQ(vxMB_LCGet(7, 5, &value), 0u);
    EXPECT_EQ(value, 0x1234);
}
#endif

} // namespace
} // namespace vxsign::test

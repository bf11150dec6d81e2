// The channels over real sockets on loopback and real pseudo-terminals.
#include "channels/CommLink.h"
#include "channels/VXClientTCP.h"
#include "channels/VXClientUDP.h"
#include "platform/serialLine.h"
#include "platform/sockets.h"
#include "support/servedSign.h"
#include "support/udpPeer.h"

#include <vxsign/vxsign.h>

#include <csignal>
#include <future>
#include <pty.h>
#include <sys/time.h>

namespace vxsign::test {
namespace {

// Sets the thread's library up for one try.
vxApiConfig& Use(std::uint32_t kind, const std::string& host, std::uint16_t port, const std::string& serial = {},
                 std::uint32_t timeoutMs = 1000)
{
    vxApiConfig config{};
    config.kind = kind;
    config.port = port;
    config.retries = 1;
    config.timeoutMs = timeoutMs;
    config.baudRate = 115200;
    std::snprintf(config.host, sizeof config.host, "%s", host.c_str());
    std::snprintf(config.serialName, sizeof config.serialName, "%s", serial.c_str());
    vxInitAPI(&config);
    return *static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
}

constexpr std::uint32_t kPatienceMs = 60000;

// A TCP port on loopback that nobody accepts from, with room for so many who wait.
struct Listener
{
    explicit Listener(int backlog) { EXPECT_EQ(::listen(descriptor, backlog), 0); }
    ~Listener() { ::close(descriptor); }
    Listener(const Listener&) = delete;
    Listener& operator=(const Listener&) = delete;

    std::uint16_t port = 0;
    const int descriptor = BoundSocket(SOCK_STREAM, port);
};

// Every kind of channel carries a file there and back, with chunks that the sign's replies fill to the last byte.
TEST(Channels, CarryFilesBothWays)
{
    const ServedSign sign;
    const TempFolder folder;
    const std::string content = ToText(Ramp(4000));
    const std::string file = folder.Write("up", content);
    const std::string back = folder.Path("down");
    for (const std::uint32_t kind : {VX_CHANNEL_UDP, VX_CHANNEL_TCP, VX_CHANNEL_SERIAL}) {
        SCOPED_TRACE(kind);
        Use(kind, "127.0.0.1", sign.Port(), sign.SerialPath()).dataSize = 1280;
        const std::string path = "D:\\T\\FILE" + std::to_string(kind);
        EXPECT_EQ(vxWriteSpecFileEx(path.c_str(), file.c_str()), 0u);
        EXPECT_EQ(vxReadSpecPathFileEx(path.c_str(), back.c_str()), 0u);
        EXPECT_EQ(folder.Read("down"), content);
        EXPECT_EQ(vxWriteFileOptimize((path + "W").c_str(), file.c_str()), 0u);
        EXPECT_EQ(sign.Read("D/T/FILE" + std::to_string(kind) + "W"), content);
        EXPECT_EQ(vxInitProperty(), 0u);
        EXPECT_EQ(vxGetDirLongFileEx("D:\\T", back.c_str()), 0u) << "a call inside a call has a channel of its own";
    }
}

TEST(Channels, FaultsOnTheLineCostTriesAlone)
{
    vxsim::ServerSettings settings;
    settings.faults.drop = 0.1;
    settings.faults.badSum = 0.1;
    settings.faults.truncate = 0.1;
    settings.faults.wrongId = 0.1;
    settings.faults.noise = 4;
    const ServedSign sign(settings);
    const TempFolder folder;
    const std::string content(3000, 'x');
    const std::string file = folder.Write("up", content);
    for (const std::uint32_t kind : {VX_CHANNEL_UDP, VX_CHANNEL_TCP}) {
        SCOPED_TRACE(kind);
        Use(kind, "127.0.0.1", sign.Port(), {}, 50).retries = 100;
        EXPECT_EQ(vxWriteSpecFileEx("D:\\T\\A", file.c_str()), 0u);
        EXPECT_EQ(vxReadSpecPathFileEx("D:\\T\\A", folder.Path("down").c_str()), 0u);
        EXPECT_EQ(folder.Read("down"), content);
    }
}

TEST(Channels, AddressesAreReadInEveryFormOfTheSystem)
{
    const ServedSign sign;
    for (const char* const host : {"127.1", "0177.0.0.1", "0x7f000001", "127.0.0.1 sign", "127.000.000.001 "})
        for (const std::uint32_t kind : {VX_CHANNEL_UDP, VX_CHANNEL_TCP}) {
            Use(kind, host, sign.Port());
            EXPECT_EQ(vxBlackScreen(), 0u) << host << " over kind " << kind;
        }
    EXPECT_EQ(platform::ParseIpv4("010.0.0.255"), 0x080000FFu);
    EXPECT_EQ(platform::ParseIpv4("255.255.255.255"), 0xFFFFFFFFu);
    for (const char* const host : {"", " 127.0.0.1", "127.0.0.1x", "127.0.0.256", "127.0.0.1.2", "127.08", "sign"})
        EXPECT_FALSE(platform::ParseIpv4(host)) << host;
}

TEST(Channels, SignsThatCannotBeReached)
{
    // A port that was free a moment ago.
    std::uint16_t deadPort = 0;
    {
        const UdpPeer peer([](const Bytes&) { return Bytes(); });
        deadPort = peer.Port();
    }
    const std::tuple<std::uint32_t, const char*, std::uint16_t, const char*> rows[] = {
        {VX_CHANNEL_TCP, "127.0.0.1", deadPort, ""},
        {VX_CHANNEL_TCP, "", 1, ""},
        {VX_CHANNEL_TCP, "localhost", 1, ""},
        {VX_CHANNEL_TCP, "127.0.0.1.2", 1, ""},
        {VX_CHANNEL_SERIAL, "", 0, "/dev/null"},
        {VX_CHANNEL_SERIAL, "", 0, "COM77777777"},
        {VX_CHANNEL_SERIAL, "", 0, ""},
        {3, "127.0.0.1", 1, ""}};
    for (const auto& [kind, host, port, serial] : rows) {
        SCOPED_TRACE(std::string(host) + serial);
        vxApiConfig& config = Use(kind, host, port, serial);
        EXPECT_EQ(vxBlackScreen(), 20736u);
        // A host that fills its field, without terminator.
        std::fill(std::begin(config.host), std::end(config.host), '1');
        std::fill(std::begin(config.serialName), std::end(config.serialName), 'y');
        EXPECT_EQ(vxBlackScreen(), 20736u);
    }
    // Nobody answers a datagram to a host that is none; the reads still wait their time.
    Use(VX_CHANNEL_UDP, "no.such.sign", 1, {}, 50);
    EXPECT_EQ(vxBlackScreen(), 20736u);
}

TEST(ClientUDP, TakesWhateverComesToItsSocket)
{
    VXClientUDP client;
    EXPECT_FALSE(client.Open(0, nullptr, 1));
    char buffer[64];
    EXPECT_EQ(client.Read(buffer, sizeof buffer, 0), 0u);
    EXPECT_EQ(client.Write("x", 1, 0), 0u);

    UdpPeer peer([](const Bytes& request) { return Bytes(100, request.at(0)); });
    ASSERT_TRUE(client.Open(0, "127.0.0.1", peer.Port()));
    EXPECT_FALSE(client.Open(0, "127.0.0.1", peer.Port())) << "open already";
    EXPECT_EQ(client.Write("a", 1, 1000), 1u);
    EXPECT_EQ(client.Write(nullptr, 1, 1000), 0u);
    EXPECT_EQ(client.Read(buffer, sizeof buffer, 5000), 64u) << "a datagram longer than the buffer fills it";
    EXPECT_EQ(std::string(buffer, 64), std::string(64, 'a'));
    EXPECT_EQ(client.Read(buffer, sizeof buffer, 0), 0u);
    EXPECT_EQ(buffer[0], 0) << "the buffer is cleared at each read";
    client.Close();
    client.Close();
    EXPECT_EQ(client.Read(buffer, sizeof buffer, 0), 0u);
}

TEST(ClientTCP, TheSignsEndReadsAsNothing)
{
    const Listener listener(1);
    VXClientTCP client;
    ASSERT_TRUE(client.Open(0, "127.0.0.1", listener.port, kPatienceMs));
    const int peer = ::accept(listener.descriptor, nullptr, nullptr);
    EXPECT_EQ(client.Write("abc", 3, 1000), 3u);
    char buffer[8];
    EXPECT_EQ(::recv(peer, buffer, sizeof buffer, 0), 3);
    ::send(peer, "xy", 2, 0);
    EXPECT_EQ(client.Read(buffer, sizeof buffer, 5000), 2u);
    ::close(peer);
    EXPECT_EQ(client.Read(buffer, sizeof buffer, 5000), 0u);
    // Writing to a sign that has gone raises no signal.
    for (int i = 0; i < 3; ++i)
        client.Write("abc", 3, 100);
    client.Close();
}

// A host that drops packets behaves like a listener whose queue is full.
TEST(SilentHost, CostsNoMoreThanTheTriesOfTheCommand)
{
    const Listener listener(0);
    VXClientTCP filler;
    ASSERT_TRUE(filler.Open(0, "127.0.0.1", listener.port, kPatienceMs));
    Use(VX_CHANNEL_TCP, "127.0.0.1", listener.port, {}, 50).retries = 2;
    const auto start = std::chrono::steady_clock::now();
    EXPECT_EQ(vxBlackScreen(), 20736u);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(30)) << "not the time of the system";
}

// The time of a wait goes on behind a signal: it neither begins anew nor ends.
TEST(Waiting, GoesOnBehindASignalWithTheTimeThatIsLeft)
{
    struct sigaction former = {};
    struct sigaction action = {};
    action.sa_handler = [](int) {};
    ASSERT_EQ(::sigaction(SIGALRM, &action, &former), 0);
    UdpPeer peer([](const Bytes&) { return Bytes(); });
    VXClientUDP client;
    ASSERT_TRUE(client.Open(0, "127.0.0.1", peer.Port()));
    client.Write("x", 1, 1000);
    constexpr auto kWait = std::chrono::milliseconds(40);
    auto shortest = std::chrono::steady_clock::duration::max();
    for (int round = 0; round < 20 && shortest >= kWait * 3 / 2; ++round) {
        const itimerval late{{0, 0}, {0, 35000}};
        const auto start = std::chrono::steady_clock::now();
        ::setitimer(ITIMER_REAL, &late, nullptr);
        char byte = 0;
        EXPECT_EQ(client.Read(&byte, 1, 40), 0u);
        const auto took = std::chrono::steady_clock::now() - start;
        EXPECT_GE(took, kWait);
        shortest = std::min(shortest, took);
    }
    EXPECT_LT(shortest, kWait * 3 / 2);
    ::sigaction(SIGALRM, &former, nullptr);
}

TEST(SerialLine, NamesOfDevices)
{
    using platform::SerialDevicePath;
    EXPECT_EQ(SerialDevicePath("/dev/pts/3"), "/dev/pts/3");
    EXPECT_EQ(SerialDevicePath("COM1"), "/dev/ttyS0");
    EXPECT_EQ(SerialDevicePath("COM12"), "/dev/ttyS11");
    EXPECT_EQ(SerialDevicePath("ttyUSB0"), "/dev/ttyUSB0");
    EXPECT_EQ(SerialDevicePath("COM0"), "/dev/COM0");
    EXPECT_EQ(SerialDevicePath("COMX"), "/dev/COMX");
}

class Pty : public testing::Test
{
protected:
    void SetUp() override
    {
        char name[128];
        ASSERT_EQ(::openpty(&master, &slave, name, nullptr, nullptr), 0);
        path = name;
    }
    void TearDown() override
    {
        ::close(slave);
        ::close(master);
    }
    void Say(std::string_view text) const
    {
        EXPECT_EQ(::write(master, text.data(), text.size()), static_cast<ssize_t>(text.size()));
    }

    int master = -1;
    int slave = -1;
    std::string path;
};

TEST_F(Pty, ReadsRawBytesUntilTheLineFallsSilentOrTheBufferIsFull)
{
    platform::SerialLine line;
    line.Open(path, 123456); // any rate
    const std::string raw("\x00\x03\x04\x0A\x0D\x11\x13\x1A\xFF\x7F", 10);
    Say(raw);
    char buffer[64] = {};
    EXPECT_EQ(line.Read(buffer, sizeof buffer, 5000, 50), 10u);
    EXPECT_EQ(std::string(buffer, 10), raw);
    Say("12345678");
    EXPECT_EQ(line.Read(buffer, 5, 5000, 50), 5u);
    EXPECT_EQ(line.Read(buffer, 5, 5000, 50), 3u);
    EXPECT_EQ(line.Read(buffer, 5, 1, 50), 0u);

    EXPECT_EQ(line.Write(raw.data(), 10, 1000), 10u);
    EXPECT_EQ(::read(master, buffer, sizeof buffer), 10);
    EXPECT_EQ(std::string(buffer, 10), raw);

    // A line that takes nothing ends in time.
    const std::string much(1 << 20, 'x');
    const std::uint32_t written = line.Write(much.data(), static_cast<std::uint32_t>(much.size()), 20);
    EXPECT_LT(written, much.size());
}

TEST_F(Pty, IsForOneProgramAtATime)
{
    platform::SerialLine outer;
    platform::SerialLine inner;
    const auto another = [this] {
        return std::async(std::launch::async, [this] { platform::SerialLine().Open(path, 9600); });
    };
    outer.Open(path, 9600);
    EXPECT_THROW(another().get(), std::system_error);

    // But a call inside a call goes over the line of the outer one.
    inner.Open(path, 9600);
    inner.Close();
    EXPECT_THROW(another().get(), std::system_error);
    Say("still");
    char buffer[16] = {};
    EXPECT_EQ(outer.Read(buffer, 5, 5000, 50), 5u);

    outer.Close();
    EXPECT_NO_THROW(another().get());
    EXPECT_THROW(outer.Open("/nowhere", 9600), std::system_error);
}

// Whatever a command waits for, abortFlag ends it long before its time is over.
class StandStill : public Pty
{
protected:
    using Export = std::function<std::uint32_t()>;

    static std::uint32_t Stop(vxApiConfig config, const Export& call)
    {
        config.retries = 100;
        config.timeoutMs = 60000;
        vxInitAPI(&config);
        auto* const record = static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
        const std::jthread caller([record] {
            std::this_thread::sleep_for(std::chrono::milliseconds(20));
            std::atomic_ref(record->abortFlag).store(1);
        });
        return call();
    }
    void TearDown() override
    {
        const vxApiConfig config{};
        vxInitAPI(&config);
        Pty::TearDown();
    }

    const Listener silent{1};
    const Listener full{0};
    UdpPeer mute{[](const Bytes&) { return Bytes(); }};
    const TempFolder folder;
};

TEST_F(StandStill, EndsWithTheFlag)
{
    VXClientTCP filler;
    ASSERT_TRUE(filler.Open(0, "127.0.0.1", full.port, kPatienceMs));
    const std::string file = folder.Write("file", "x");
    const vxApiConfig udp = Use(VX_CHANNEL_UDP, "127.0.0.1", mute.Port());
    const vxApiConfig tcp = Use(VX_CHANNEL_TCP, "127.0.0.1", silent.port);
    const vxApiConfig unconnected = Use(VX_CHANNEL_TCP, "127.0.0.1", full.port);
    const vxApiConfig serial = Use(VX_CHANNEL_SERIAL, "", 0, path);
    const Export modbus = [] { return vxMB_LCGet(1, 0, nullptr); };
    const Export plain = [] { return vxWriteCmdBuf(reinterpret_cast<const std::uint8_t*>("x"), 1); };
    const std::tuple<const char*, vxApiConfig, Export, std::uint32_t> rows[] = {
        {"connection", unconnected, vxBlackScreen, VX_ABORTED},
        {"answer over TCP", tcp, vxBlackScreen, VX_ABORTED},
        {"answer over UDP", udp, vxBlackScreen, VX_ABORTED},
        {"answer of a serial line", serial, vxBlackScreen, VX_ABORTED},
        {"answer of a field device", serial, modbus, VX_ABORTED},
        {"datagram of a field device", udp, modbus, VX_ABORTED},
        {"any bytes", udp, plain, VX_ABORTED},
        {"window", udp, [&] { return vxWriteFileOptimize("D:\\A", file.c_str()); }, VX_ABORTED},
        {"boot loader", serial, [&] { return vxXModem_Upgrade(file.c_str()); }, VX_UPGRADE_FAILED},
    };
    for (const auto& [name, config, call, wanted] : rows)
        EXPECT_EQ(Stop(config, call), wanted) << name;

    platform::SerialLine line;
    line.Open(path, 9600);
    const std::string much(1 << 20, 'x');
    line.Write(much.data(), static_cast<std::uint32_t>(much.size()), 20);
    line.Close();
    EXPECT_EQ(Stop(serial, vxBlackScreen), VX_ABORTED) << "room on a line that takes nothing";
}

} // namespace
} // namespace vxsign::test

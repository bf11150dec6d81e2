// The sign's server: datagrams, connections, the serial line.
#include "support/servedSign.h"
#include "support/signFixture.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <netinet/in.h>
#include <optional>
#include <poll.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <termios.h>

namespace vxsign::test {
namespace {

// What a request and its reply look like for the commands used here.
const Bytes kBlack1{0x55, 0xA7, 0x06, 0, 0, 0, 0, 0, 0, 0, 1, 0, 4, 1, 0, 0};
const Bytes kBlack1Reply{0x55, 0xA8, 0x06, 0, 0, 0, 0, 0, 0, 0, 1, 0, 4, 1, 0, 0};
const Bytes kBlack2{0x55, 0xA7, 0x07, 0, 0, 0, 0, 0, 0, 0, 2, 0, 4, 1, 0, 0};
const Bytes kBlack2Reply{0x55, 0xA8, 0x07, 0, 0, 0, 0, 0, 0, 0, 2, 0, 4, 1, 0, 0};

class ServerTest : public testing::Test
{
protected:
    void Start(const vxsim::ServerSettings& how = {}) { served.emplace(how); }

    vxsim::Descriptor Connect(int type) const
    {
        vxsim::Descriptor socket(::socket(AF_INET, type | SOCK_CLOEXEC, 0));
        sockaddr_in peer = {};
        peer.sin_family = AF_INET;
        peer.sin_port = htons(served->Port());
        peer.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&peer), sizeof peer), 0);
        return socket;
    }

    vxsim::Descriptor OpenDevice() const
    {
        vxsim::Descriptor device(::open(served->SerialPath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC));
        EXPECT_TRUE(device);
        return device;
    }

    static void Send(const vxsim::Descriptor& line, const Bytes& bytes)
    {
        EXPECT_EQ(::write(line.Get(), bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
    }

    // As many bytes as asked for, or what came within five seconds.
    static Bytes Receive(const vxsim::Descriptor& line, std::size_t count)
    {
        Bytes bytes;
        pollfd watched{line.Get(), POLLIN, 0};
        while (bytes.size() < count && ::poll(&watched, 1, 5000) > 0) {
            Bytes piece(count - bytes.size());
            const ssize_t got = ::read(line.Get(), piece.data(), piece.size());
            if (got <= 0)
                break;
            bytes = bytes + Part(piece, 0, static_cast<std::size_t>(got));
        }
        return bytes;
    }

    std::optional<ServedSign> served;
};

TEST_F(ServerTest, ADatagramIsExactlyOneRequest)
{
    Start();
    const auto first = Connect(SOCK_DGRAM);
    const auto second = Connect(SOCK_DGRAM);
    Send(first, Bytes{0x55});
    Send(first, kBlack1 + kBlack1);
    Send(first, Bytes(9000, 0x55));
    Send(first, kBlack1);
    Send(second, kBlack2);
    EXPECT_EQ(Receive(second, 16), kBlack2Reply);
    EXPECT_EQ(Receive(first, 16), kBlack1Reply);
}

TEST_F(ServerTest, ConnectionsBringRequestsInPiecesSideBySide)
{
    Start();
    const auto first = Connect(SOCK_STREAM);
    const auto second = Connect(SOCK_STREAM);
    Send(first, Bytes{0x00, 0x55, 0xFF} + Part(kBlack1, 0, 7));
    Send(second, kBlack2 + kBlack1 + kBlack2);
    EXPECT_EQ(Receive(second, 48), kBlack2Reply + kBlack1Reply + kBlack2Reply);
    Send(first, Part(kBlack1, 7));
    EXPECT_EQ(Receive(first, 16), kBlack1Reply);
}

TEST_F(ServerTest, SilenceEndsABrokenRequest)
{
    Start();
    const auto line = Connect(SOCK_STREAM);
    const Bytes broken{0x55, 0xA7, 0, 0, 0, 8, 0, 0, 0, 0, 1, 0, 2, 8, 0, 0};
    Send(line, broken + kBlack1);
    EXPECT_EQ(Receive(line, 16), kBlack1Reply);
}

TEST_F(ServerTest, AHostThatReadsNothingDoesNotStopTheOthers)
{
    Start();
    const auto deaf = Connect(SOCK_STREAM);
    ::fcntl(deaf.Get(), F_SETFL, O_NONBLOCK);
    Bytes many;
    for (int i = 0; i < 4096; ++i)
        many = many + MakeRequest(1, 11, {}); // a reply of 120 bytes for 16
    for (int i = 0; i < 400 && ::write(deaf.Get(), many.data(), many.size()) > 0; ++i) {
    }
    const auto line = Connect(SOCK_STREAM);
    Send(line, kBlack1);
    EXPECT_EQ(Receive(line, 16), kBlack1Reply);
}

TEST_F(ServerTest, TheConnectionThatIsSilentLongestMakesRoom)
{
    for (const bool makesRoom : {false, true}) {
        vxsim::ServerSettings how;
        how.idle = std::chrono::hours(makesRoom ? 0 : 1);
        Start(how);
        std::vector<vxsim::Descriptor> lines;
        const auto serve = [&](std::size_t i) {
            Send(lines[i], kBlack1);
            EXPECT_EQ(Receive(lines[i], 16), kBlack1Reply) << i;
        };
        for (std::size_t i = 0; i < 63; ++i) { // with the serial line all there may be
            lines.push_back(Connect(SOCK_STREAM));
            serve(i);
        }
        serve(0);
        const auto late = Connect(SOCK_STREAM);
        Send(late, kBlack2);
        if (makesRoom) {
            EXPECT_EQ(Receive(late, 16), kBlack2Reply);
            EXPECT_EQ(Receive(lines[1], 16), Bytes()) << "its end";
        }
        serve(0); // whoever waits for room has had his chance by the second time
        serve(makesRoom ? 2 : 1);
        serve(makesRoom ? 2 : 1);
    }
}

TEST_F(ServerTest, TheDeviceServesOneHostAfterTheOther)
{
    Start();
    for (int round = 0; round < 3; ++round) {
        const auto device = OpenDevice();
        ::ioctl(device.Get(), TIOCEXCL);
        termios line = {};
        ::tcgetattr(device.Get(), &line);
        EXPECT_EQ(line.c_lflag & (ECHO | ICANON), 0U);
        Send(device, Bytes{0x0A, 0x03, 0x00} + kBlack1);
        EXPECT_EQ(Receive(device, 16), kBlack1Reply);
    }
}

TEST_F(ServerTest, DelayedRepliesKeepTheirOrderAndTheirPeer)
{
    vxsim::ServerSettings how;
    how.delay = std::chrono::milliseconds(30);
    Start(how);
    const auto datagrams = Connect(SOCK_DGRAM);
    const auto stream = Connect(SOCK_STREAM);
    {
        const auto gone = Connect(SOCK_STREAM);
        Send(gone, kBlack1);
    }
    const auto begin = vxsim::Clock::now();
    Send(datagrams, kBlack1);
    Send(stream, kBlack1);
    Send(stream, kBlack2);
    EXPECT_EQ(Receive(stream, 32), kBlack1Reply + kBlack2Reply);
    EXPECT_EQ(Receive(datagrams, 16), kBlack1Reply);
    EXPECT_GE(vxsim::Clock::now() - begin, how.delay);
}

TEST(EndpointsTest, ATakenPortAndABadHostAreErrors)
{
    vxsim::ListenSettings listen;
    listen.port = 0;
    const vxsim::Endpoints first(listen);
    EXPECT_NE(first.port, 0);
    listen.port = first.port;
    EXPECT_THROW(vxsim::Endpoints{listen}, std::system_error);
    listen.host = "localhost";
    EXPECT_THROW(vxsim::Endpoints{listen}, std::invalid_argument);
}

} // namespace
} // namespace vxsign::test

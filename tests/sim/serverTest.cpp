// The sign's server: datagrams, connections, the serial line, and the faults that it puts into replies.
#include "sim/server/faults.h"
#include "support/servedSign.h"
#include "support/signFixture.h"

#include <arpa/inet.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/ioctl.h>
#include <termios.h>

namespace vxsign::test {
namespace {

// What a request and its reply look like for the commands used here.
const Bytes kBlack1 = Hex("55A7 0600 0000 0000 0000 0100 0401 0000");
const Bytes kBlack1Reply = Hex("55A8 0600 0000 0000 0000 0100 0401 0000");
const Bytes kBlack2 = Hex("55A7 0700 0000 0000 0000 0200 0401 0000");
const Bytes kBlack2Reply = Hex("55A8 0700 0000 0000 0000 0200 0401 0000");

class ServerTest : public testing::Test
{
protected:
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

    std::optional<ServedSign> served{std::in_place};
};

TEST_F(ServerTest, ADatagramIsOneRequestAndConnectionsBringThemInPieces)
{
    const auto one = Connect(SOCK_DGRAM);
    const auto other = Connect(SOCK_DGRAM);
    Send(one, Bytes{0x55});
    Send(one, kBlack1 + kBlack1);
    Send(one, Bytes(9000, 0x55));
    Send(one, kBlack1);
    Send(other, kBlack2);
    EXPECT_EQ(Receive(other, 16), kBlack2Reply);
    EXPECT_EQ(Receive(one, 16), kBlack1Reply);

    const auto first = Connect(SOCK_STREAM);
    const auto second = Connect(SOCK_STREAM);
    Send(first, Bytes{0x00, 0x55, 0xFF} + Part(kBlack1, 0, 7));
    Send(second, kBlack2 + kBlack1 + kBlack2);
    EXPECT_EQ(Receive(second, 48), kBlack2Reply + kBlack1Reply + kBlack2Reply);
    Send(first, Part(kBlack1, 7));
    EXPECT_EQ(Receive(first, 16), kBlack1Reply);

    // Silence ends a broken request.
    const Bytes broken{0x55, 0xA7, 0, 0, 0, 8, 0, 0, 0, 0, 1, 0, 2, 8, 0, 0};
    Send(first, broken + kBlack1);
    EXPECT_EQ(Receive(first, 16), kBlack1Reply);
}

TEST_F(ServerTest, AHostThatReadsNothingDoesNotStopTheOthers)
{
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
        served.emplace(how);
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
    served.emplace(how);
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

TEST(LoopTest, WhoOverwhelmsASignReachesTheOthersAllTheSame)
{
    constexpr std::chrono::milliseconds kAnswer{1};
    const TempFolder folder;
    vxsim::VirtualSign sign({.folder = folder.path});
    vxsim::Endpoints crowded({"127.0.0.1", 0, false});
    vxsim::Endpoints quiet({"127.0.0.1", 0, false});
    const vxsim::Descriptor end(::eventfd(0, EFD_CLOEXEC));
    vxsim::Loop loop;
    int answered = 0;
    int before = -1;
    const auto answerSlowly = [&](std::uint64_t) {
        for (const auto until = vxsim::Clock::now() + kAnswer; vxsim::Clock::now() < until;) {
        }
        ++answered;
        return &sign;
    };
    const auto answerLast = [&](std::uint64_t) {
        before = answered;
        ::eventfd_write(end.Get(), 1);
        return &sign;
    };
    const vxsim::Server one(loop, crowded, answerSlowly, {});
    const vxsim::Server other(loop, quiet, answerLast, {});
    const vxsim::Descriptor host(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    const auto send = [&](const vxsim::Endpoints& to) {
        sockaddr_in peer = {};
        peer.sin_family = AF_INET;
        peer.sin_port = htons(to.port);
        peer.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_GT(::sendto(host.Get(), kBlack1.data(), kBlack1.size(), 0, reinterpret_cast<const sockaddr*>(&peer),
                           sizeof peer),
                  0);
    };
    for (int i = 0; i < 200; ++i)
        send(crowded);
    send(quiet);
    loop.Run(end.Get());
    EXPECT_GE(before, 0);
    EXPECT_LT(before, 20) << "of 200";
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

const Bytes kReply = Hex("55A8 0701 0000 0000 0000 0100 0401 0100 FF000100");

Bytes Through(const char* faults, const Bytes& reply = kReply)
{
    return vxsim::FaultInjector(vxsim::ParseFaults(faults)).Apply(reply);
}

TEST(Faults, EachDoesWhatItsNameSays)
{
    EXPECT_EQ(Through("drop=0"), kReply);
    EXPECT_EQ(Through("drop=1,noise=5"), Bytes{});
    for (int seed = 1; seed < 200; ++seed) {
        const std::string suffix = ",seed=" + std::to_string(seed);
        const Bytes cut = Through(("truncate=1" + suffix).c_str());
        ASSERT_GE(cut.size(), 1U);
        ASSERT_LT(cut.size(), kReply.size());
        EXPECT_TRUE(std::equal(cut.begin(), cut.end(), kReply.begin()));

        Bytes stranger = Through(("wrongid=1" + suffix).c_str());
        EXPECT_NE(stranger[10] | stranger[11] << 8, 1);
        // The sum grows by what the id has grown.
        EXPECT_EQ(stranger[2] | stranger[3] << 8, 0x0107 - 1 + stranger[10] + stranger[11]);

        Bytes wrong = Through(("badsum=1" + suffix).c_str());
        EXPECT_NE(wrong[2] | wrong[3] << 8, 0x0107);
        wrong[2] = 0x07;
        EXPECT_EQ(wrong, kReply);

        const Bytes noisy = Through(("noise=9" + suffix).c_str());
        ASSERT_EQ(noisy.size(), kReply.size() + 9);
        EXPECT_TRUE(std::equal(kReply.begin(), kReply.end(), noisy.begin() + 9));
        EXPECT_EQ(std::count(noisy.begin(), noisy.begin() + 9, 0x55), 0);
    }

    // A seed repeats a run, and probabilities are kept.
    vxsim::FaultInjector first(vxsim::ParseFaults("drop=0.25,noise=2,seed=11"));
    vxsim::FaultInjector second(vxsim::ParseFaults("seed=11,noise=2,drop=0.25"));
    int dropped = 0;
    for (int i = 0; i < 4000; ++i) {
        const Bytes reply = first.Apply(kReply);
        ASSERT_EQ(reply, second.Apply(kReply));
        dropped += reply.empty() ? 1 : 0;
    }
    EXPECT_NEAR(dropped, 1000, 150);
}

TEST(Faults, TextsThatMakeNoSenseAreRefusedByName)
{
    for (const char* text :
         {"", "drop", "drop=", "drop=x", "drop=1.1", "drop=-0.1", "drop=nan", "drop=0.1x", "noise=65", "noise=-1",
          "noise=1.5", "seed=4294967296", "lose=0.1", "drop=0.1,", ",drop=0.1", "drop=0.1,drop=0.1", "drop =0.1"}) {
        try {
            vxsim::ParseFaults(text);
            ADD_FAILURE() << text;
        } catch (const std::invalid_argument& error) {
            EXPECT_EQ(std::string(error.what()).rfind("fault '", 0), 0U) << error.what();
        }
    }
}

} // namespace
} // namespace vxsign::test

// Whatever hosts send to a virtual sign on all its lines, and its face afterwards.
#include "fuzz/signSteps.h"
#include "fuzz/support.h"
#include "sim/protocol/checksum.h"
#include "sim/protocol/frame.h"
#include "sim/server/answers.h"
#include "sim/server/streamLine.h"
#include "sim/stage/stage.h"
#include "sim/virtualSign.h"

#include <optional>

using namespace vxsign::fuzz;

namespace {

constexpr std::size_t kLongestReply = 4608; // that a host has room for
constexpr std::size_t kMostSteps = 64;
constexpr std::uint8_t kLogins = 10; // the major number

vxsim::SignSettings Settings(Input& input)
{
    vxsim::SignSettings settings;
    settings.folder = EmptyFolder();
    settings.width = 48;
    settings.height = 32;
    settings.localSecondsAtZero = 1589365230;
    const std::uint8_t kind = input.U8();
    settings.controller = (kind & 1) != 0;
    settings.drives = (kind & 2) != 0 ? "CDE" : "CDEF";
    return settings;
}

class SignRun
{
public:
    explicit SignRun(Input& steps) : input(steps), settings(Settings(steps))
    {
        tcp.Finder().KeepSkipped();
        rtu.Use(vxsim::Speech::kModbusRtu);
        modbus.Use(vxsim::Speech::kModbusTcp);
        xmodem.Use(vxsim::Speech::kXmodem);
    }

    void Run()
    {
        for (std::size_t steps = 0; !input.IsOver() && steps < kMostSteps; ++steps)
            Step();
        Pass(1000);
        vxsim::VirtualSign next(settings); // with what the hosts left on its drives
        vxsim::Stage(next).Draw(0);
    }

private:
    void Step()
    {
        const std::uint8_t step = input.U8() % kSteps;
        switch (step) {
        case kRequest:
            return Request();
        case kPath:
            return RequestWithPath();
        case kDatagram: {
            const View bytes = input.Block();
            return Check(answers.ToDatagram(vxsim::Speech::kPackets, bytes, {nowMs, 1, 1}), true);
        }
        case kStream:
            tcp.Finder().Append(input.Block());
            return Check(*AnswersTo(tcp), false);
        case kXmodem:
            Give(xmodem);
            return Check(answers.OfBootLoader(nowMs), false);
        case kModbusRtu:
            return Give(rtu);
        case kModbusTcp:
            return Give(modbus);
        default:
            return Pass(input.U32() % 100'000'000);
        }
    }

    // To all that the line has received, in as many turns as that takes.
    std::optional<vxsim::Replies> AnswersTo(vxsim::StreamLine& line)
    {
        vxsim::Replies all;
        do {
            vxsim::Shares shares;
            const auto replies = answers.ToLine(line, nowMs, shares);
            if (!replies)
                return std::nullopt;
            all.insert(all.end(), replies->begin(), replies->end());
        } while (line.IsPending());
        return all;
    }

    void Give(vxsim::StreamLine& line)
    {
        const View bytes = input.Block();
        line.Bytes().insert(line.Bytes().end(), bytes.begin(), bytes.end());
        if (!AnswersTo(line))
            line.Bytes().clear();
    }

    void Request()
    {
        const std::uint8_t major = input.U8();
        const std::uint8_t minor = input.U8();
        const std::size_t words = input.U8();
        const std::size_t extended = input.U16() % 2048;
        const std::uint16_t destination = input.U16();
        const std::uint8_t check = input.U8();
        const Bytes payload = input.Whole(4 * words);
        Ask(major, minor, payload, input.Whole(extended), destination, check);
    }

    void RequestWithPath()
    {
        const std::uint8_t major = input.U8();
        const std::uint8_t minor = input.U8();
        Bytes payload = input.Whole(input.U8());
        const std::string path = input.Text();
        payload.insert(payload.end(), path.begin(), path.end());
        payload.resize(payload.size() / 4 * 4 + 4);
        Ask(major, minor, payload, {}, 0, 0);
    }

    void Ask(std::uint8_t major, std::uint8_t minor, const Bytes& payload, const Bytes& extended,
             std::uint16_t destination, std::uint8_t check)
    {
        Bytes packet(vxsim::kHeaderSize);
        const std::uint8_t syncs[] = {vxsim::kSumRequest, vxsim::kCrcRequest, vxsim::kTileRequest};
        packet[0] = vxsim::kSync;
        packet[1] = syncs[check % 3];
        packet[4] = static_cast<std::uint8_t>(extended.size());
        packet[5] = static_cast<std::uint8_t>(extended.size() >> 8);
        packet[6] = check / 3 % 3; // the bus
        packet[8] = static_cast<std::uint8_t>(destination);
        packet[9] = static_cast<std::uint8_t>(destination >> 8);
        packet[10] = ++id;
        packet[12] = major;
        packet[13] = minor;
        packet[14] = static_cast<std::uint8_t>(payload.size() / 4);
        packet.insert(packet.end(), payload.begin(), payload.end());
        packet.insert(packet.end(), extended.begin(), extended.end());
        const View body = View(packet).subspan(4);
        const unsigned sum = packet[1] == vxsim::kSumRequest ? vxsim::Sum16(body) : vxsim::Crc16(body);
        packet[2] = static_cast<std::uint8_t>(sum);
        packet[3] = static_cast<std::uint8_t>(sum >> 8);
        const vxsim::Replies replies = answers.ToDatagram(vxsim::Speech::kPackets, packet, {nowMs, 1, 1});
        Require(!replies.empty() || packet.size() > vxsim::kMaxRequest || major == kLogins,
                "a whole request is answered, unless it is a login that has to wait");
        Check(replies, true);
        nowMs += 10;
    }

    static void Check(const vxsim::Replies& replies, bool arePackets)
    {
        for (const Bytes& reply : replies) {
            Require(reply.size() <= kLongestReply, "hosts have room for a reply");
            Require(!arePackets || (reply.size() >= 16 && reply.size() == vxsim::DeclaredLength(reply)),
                    "a reply is as long as it says");
        }
    }

    void Pass(std::uint64_t ms)
    {
        nowMs += ms;
        sign.KeepUp(nowMs);
        stage.KeepUp(nowMs);
        stage.Draw(nowMs);
    }

    Input& input;
    vxsim::SignSettings settings;
    vxsim::VirtualSign sign{settings};
    vxsim::Stage stage{sign};
    vxsim::BootLoader boot{settings.folder / "firmware", false};
    vxsim::ModbusDevices devices{settings.folder / "registers", true};
    vxsim::Answers answers{[this](std::uint64_t) { return &sign; }, &boot, &devices, {}};
    vxsim::StreamLine tcp{1, {}, 1};
    vxsim::StreamLine rtu{2, {}, {}};
    vxsim::StreamLine modbus{3, {}, 1};
    vxsim::StreamLine xmodem{4, {}, {}};
    std::uint64_t nowMs = 1000;
    std::uint8_t id = 0;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Input input(bytes, size);
    SignRun(input).Run();
    return 0;
}

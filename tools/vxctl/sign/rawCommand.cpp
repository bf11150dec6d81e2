// raw: any command of the protocol.
#include "vxctl/cli/tables.h"
#include "vxctl/sign/packetDump.h"

#include <vxsign/test.h>

#include <array>
#include <limits>
#include <vector>

namespace vxctl {

namespace {

constexpr std::uint32_t kLongestPart = std::numeric_limits<std::uint8_t>::max();

std::uint32_t Raw(Session& session, const Args& args)
{
    const std::vector<std::uint8_t> payload = args.Bytes("--payload");
    const std::vector<std::uint8_t> extended = args.Bytes("--extended");
    std::array<std::uint8_t, kRequestRoom> requestOut{};
    std::array<std::uint8_t, kReplyRoom> replyOut{};
    const std::uint32_t result = vxCustomTest(
        args.Number<std::uint8_t>("MAJOR"), args.Number<std::uint8_t>("MINOR"), payload.data(),
        static_cast<std::uint8_t>(payload.size()), extended.data(), static_cast<std::uint8_t>(extended.size()),
        args.Has("--crc") ? 1 : 0, requestOut.data(), nullptr, replyOut.data(), nullptr);
    const auto request = PacketAt(requestOut.data(), requestOut.size());
    const auto reply = PacketAt(replyOut.data(), replyOut.size());
    session.report.Lines("request\n" + DumpPacket(request) + "reply\n" + DumpPacket(reply));
    session.report.Put("request", DescribePacket(request));
    session.report.Put("reply", DescribePacket(reply));
    return result;
}

const Command kCommands[] = {
    {
        .name = "raw",
        .help = "Send any command and show both packets",
        .details = "Payload and extended part are bytes in hexadecimal, 255 at most each. A sign may do anything it is "
                   "told: take care.",
        .examples = R"(vxctl raw 4 1                                    turn the face dark
vxctl raw 1 26 --payload "01 00 00 00"           read a statistics record
vxctl --json raw 1 16 | jq -r .reply.payload)",
        .arguments = {Number("MAJOR", 0, 255, "the family of the command"), Number("MINOR", 0, 255, "the command"),
                      Hex("--payload", 0, kLongestPart, "bytes of the payload"),
                      Hex("--extended", 0, kLongestPart, "bytes of the extended part"),
                      Flag("--crc", "CRC in place of the sum")},
        .signs = Signs::kMany,
        .run = Raw,
    },
};

} // namespace

const CommandTable kRawCommands{"Protocol", kCommands};

} // namespace vxctl

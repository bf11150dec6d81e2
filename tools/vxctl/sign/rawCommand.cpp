#include "vxctl/cli/command.h"
#include "vxctl/sign/packetDump.h"

#include <vxsign/test.h>

#include <array>
#include <limits>
#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr std::size_t kLongestPart = std::numeric_limits<std::uint8_t>::max();

struct RawRequest
{
    std::uint32_t major = 0;
    std::uint32_t minor = 0;
    std::string payload;
    std::string extended;
    bool crc = false;
};

void Raw(Session& session, const RawRequest& raw)
{
    const std::vector<std::uint8_t> payload = HexArgument(raw.payload, "--payload", 0, kLongestPart);
    const std::vector<std::uint8_t> extended = HexArgument(raw.extended, "--extended", 0, kLongestPart);
    session.Connect();
    std::array<std::uint8_t, kRequestRoom> requestOut{};
    std::array<std::uint8_t, kReplyRoom> replyOut{};
    const std::uint32_t result = vxCustomTest(
        static_cast<std::uint8_t>(raw.major), static_cast<std::uint8_t>(raw.minor), payload.data(),
        static_cast<std::uint8_t>(payload.size()), extended.data(), static_cast<std::uint8_t>(extended.size()),
        raw.crc ? 1 : 0, requestOut.data(), nullptr, replyOut.data(), nullptr);
    const auto request = PacketAt(requestOut.data(), requestOut.size());
    const auto reply = PacketAt(replyOut.data(), replyOut.size());
    session.report.Lines("request\n" + DumpPacket(request) + "reply\n" + DumpPacket(reply));
    session.report.Put("request", DescribePacket(request));
    session.report.Put("reply", DescribePacket(reply));
    Check(result);
}

} // namespace

void AddRawCommand(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Protocol", "raw", "Send any command and show both packets",
         R"(Payload and extended part are bytes in hexadecimal, 255 at most each. A sign may do anything it is told: take care.

Examples:
  vxctl raw 4 1                                    turn the face dark
  vxctl raw 1 26 --payload "01 00 00 00"           read a statistics record
  vxctl --json raw 1 16 | jq -r .reply.payload)"});
    const auto raw = std::make_shared<RawRequest>();
    AddNumber(*command, "MAJOR", raw->major, 0, 255, "the family of the command")->required();
    AddNumber(*command, "MINOR", raw->minor, 0, 255, "the command")->required();
    command->add_option("--payload", raw->payload, "bytes of the payload")->type_name("HEX");
    command->add_option("--extended", raw->extended, "bytes of the extended part")->type_name("HEX");
    command->add_flag("--crc", raw->crc, "CRC in place of the sum");
    command->callback([&session, raw] { Raw(session, *raw); });
}

} // namespace vxctl

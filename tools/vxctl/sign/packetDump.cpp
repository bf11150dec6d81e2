// Shows the fields of a packet.
#include "vxctl/sign/packetDump.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/numbers.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <string_view>

namespace vxctl {

namespace {

constexpr std::size_t kHeaderSize = 16;
constexpr std::size_t kBytesInLine = 16;

struct Field
{
    std::size_t offset;
    std::size_t size;
    std::string_view name;
    std::string_view key; // in JSON
};

constexpr Field kHeader[] = {
    {0, 2, "sync", "sync"},
    {2, 2, "checksum", "checksum"},
    {4, 2, "extended length", "extendedLength"},
    {6, 2, "source address", "sourceAddress"},
    {8, 2, "destination address", "destinationAddress"},
    {10, 2, "packet id", "packetId"},
    {12, 1, "major", "major"},
    {13, 1, "minor", "minor"},
    {14, 1, "payload words", "payloadWords"},
    {15, 1, "status", "status"},
};

std::uint32_t ValueOf(const std::vector<std::uint8_t>& packet, const Field& field)
{
    return LoadNumber(packet, field.offset, field.size);
}

std::size_t PayloadSize(const std::vector<std::uint8_t>& packet)
{
    return std::min(packet[14] * std::size_t{4}, packet.size() - kHeaderSize);
}

std::string Line(std::size_t offset, const std::uint8_t* bytes, std::size_t size, std::string_view remark)
{
    std::array<char, 16> place{};
    std::snprintf(place.data(), place.size(), "  %04zX  ", offset);
    std::string line = place.data() + FormatHex(bytes, size);
    line.append(3 * (kBytesInLine - size), ' ');
    return line.append("  ").append(remark).append("\n");
}

std::string Readable(const std::uint8_t* bytes, std::size_t size)
{
    std::string text;
    std::transform(bytes, bytes + size, std::back_inserter(text),
                   [](std::uint8_t byte) { return byte >= ' ' && byte <= '~' ? static_cast<char>(byte) : '.'; });
    return text;
}

// A part behind the header: its name, then its bytes as figures and text.
std::string DumpPart(const std::vector<std::uint8_t>& packet, std::size_t begin, std::size_t size,
                     std::string_view name)
{
    if (size == 0)
        return {};
    std::string text = std::string(name) + " (" + std::to_string(size) + " bytes)\n";
    for (std::size_t at = 0; at < size; at += kBytesInLine) {
        const std::uint8_t* const bytes = packet.data() + begin + at;
        const std::size_t count = std::min(kBytesInLine, size - at);
        text += Line(begin + at, bytes, count, Readable(bytes, count));
    }
    return text;
}

} // namespace

std::vector<std::uint8_t> PacketAt(const std::uint8_t* buffer, std::size_t room)
{
    if (room < kHeaderSize || buffer[0] != 0x55)
        return {};
    const std::size_t total = kHeaderSize + std::size_t{4} * buffer[14] + buffer[4] + std::size_t{256} * buffer[5];
    return {buffer, buffer + std::min(total, room)};
}

std::string DumpPacket(const std::vector<std::uint8_t>& packet)
{
    if (packet.empty())
        return "  nothing\n";
    std::string text;
    for (const Field& field : kHeader) {
        const std::uint32_t value = ValueOf(packet, field);
        std::string remark(field.name);
        if (field.offset != 0)
            remark.append(1, ' ').append(std::to_string(value));
        text += Line(field.offset, packet.data() + field.offset, field.size, remark);
    }
    const std::size_t payload = PayloadSize(packet);
    const std::size_t extended = kHeaderSize + payload;
    return text + DumpPart(packet, kHeaderSize, payload, "payload") +
           DumpPart(packet, extended, packet.size() - extended, "extended part");
}

nlohmann::ordered_json DescribePacket(const std::vector<std::uint8_t>& packet)
{
    if (packet.empty())
        return nullptr;
    nlohmann::ordered_json object = {{"packet", FormatHex(packet.data(), packet.size(), "")}};
    for (const Field& field : kHeader)
        object[std::string(field.key)] = ValueOf(packet, field);
    const std::size_t payload = PayloadSize(packet);
    const std::uint8_t* const behindHeader = packet.data() + kHeaderSize;
    object["payload"] = FormatHex(behindHeader, payload, "");
    object["extended"] = FormatHex(behindHeader + payload, packet.size() - kHeaderSize - payload, "");
    return object;
}

} // namespace vxctl

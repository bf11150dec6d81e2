// Packets for a tile itself, and the exports that need no file.
#include "vxComm/Ondra/vxOndraLED.h"

#include <vxsign/directtile.h>

using namespace vxsign;

namespace vxsign {
namespace {

constexpr std::uint8_t kMajor = 0x7C;
constexpr std::uint8_t kRequestTile = 0xB1;

} // namespace

bool vxOndraLED::BuildDirectPacket(std::uint8_t minor, std::uint16_t tile, std::span<const std::uint8_t> payload,
                                   std::span<const std::uint8_t> extended)
{
    if (payload.size() > kLongestPayload || extended.size() > kLongestExtended)
        return false;
    const auto payloadLength = static_cast<std::uint32_t>(payload.size());
    const auto extendedLength = static_cast<std::uint32_t>(extended.size());
    if (!Fits(payloadLength, extendedLength, kRequestSize))
        return false;

    // As any packet, with the tile in place of the destination, no source, and always the CRC.
    BuildPacket(requestBuffer, kMajor, minor, payload.data(), payloadLength, extended.data(), extendedLength);
    requestBuffer[1] = kRequestTile;
    Store16(requestBuffer + header::kSourceAddress, 0);
    Store16(requestBuffer + header::kDestinationAddress, tile);
    const std::uint32_t crc = vxChkSum(requestBuffer, header::kExtendedLength, TotalLength(requestBuffer), kCrcMode);
    Store16(requestBuffer + header::kChecksum, static_cast<std::uint16_t>(crc));
    return true;
}

std::uint32_t vxOndraLED::DirectRequest(std::uint8_t minor, std::uint16_t tile, std::span<const std::uint8_t> payload,
                                        std::span<const std::uint8_t> extended)
{
    if (!BuildDirectPacket(minor, tile, payload, extended))
        return VX_ARGUMENTS;
    return Exchange(requestBuffer, TotalLength(requestBuffer), replyBuffer);
}

std::uint32_t vxOndraLED::DirectCommand(std::uint8_t command, std::uint8_t port, std::uint16_t tile,
                                        std::span<const std::uint8_t> data)
{
    return DirectRequest(direct::kCommand, tile, Fields<4>(port, command), data);
}

} // namespace vxsign

std::uint32_t vxDirectTileTest(std::uint8_t testCode, std::uint8_t port, std::uint16_t tile)
{
    return Call<vxOndraLED>(
        [=](vxOndraLED& sign) { return sign.DirectRequest(direct::kTest, tile, Fields<4>(port, testCode)); });
}

std::uint32_t vxDirectTileCMD(std::uint8_t command, std::uint8_t port, std::uint16_t tile, const std::uint8_t* data,
                              std::uint32_t dataLength)
{
    const Block block = Bytes(data, dataLength);
    return Call<vxOndraLED>(!block.refused,
                            [=](vxOndraLED& sign) { return sign.DirectCommand(command, port, tile, block.bytes); });
}

std::uint32_t vxDirectTilePHYWriteCoefficent1(std::uint8_t port, std::uint16_t tile)
{
    return Call<vxOndraLED>([=](vxOndraLED& sign) { return sign.DirectCommand(15, port, tile); });
}

std::uint32_t vxWriteCmdBuf(const std::uint8_t* buffer, std::uint32_t length)
{
    return Call<vxOndraLED>(!Bytes(buffer, length).refused, [=](vxOndraLED& sign) -> std::uint32_t {
        const std::uint32_t timeoutMs = sign.config->timeoutMs;
        sign.RawSend(buffer, length, timeoutMs);
        if (sign.RawRecv(sign.replyBuffer, kReplySize, timeoutMs) != 0)
            return VX_OK;
        return sign.Aborted() ? VX_ABORTED : VX_NO_ANSWER;
    });
}

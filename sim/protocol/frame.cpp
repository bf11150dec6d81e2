#include "sim/protocol/frame.h"

#include "sim/protocol/bytes.h"
#include "sim/protocol/checksum.h"

namespace vxsim {

std::size_t DeclaredLength(std::span<const std::uint8_t> header)
{
    return kHeaderSize + std::size_t{4} * header[14] + Load16(header, 4);
}

bool LooksLikeRequest(std::span<const std::uint8_t> header)
{
    return header.size() >= kHeaderSize && header[0] == kSync && IsRequestSync(header[1]) && header[15] == 0 &&
           DeclaredLength(header) <= kMaxRequest;
}

std::optional<Frame> ParseFrame(std::span<const std::uint8_t> bytes)
{
    if (!LooksLikeRequest(bytes) || DeclaredLength(bytes) != bytes.size())
        return std::nullopt;
    Frame frame;
    frame.tile = bytes[1] == kTileRequest;
    frame.crc = frame.tile || bytes[1] == kCrcRequest;
    const auto checked = bytes.subspan(4);
    if (Load16(bytes, 2) != (frame.crc ? Crc16(checked) : Sum16(checked)))
        return std::nullopt;
    frame.source = Load16(bytes, 6);
    frame.destination = Load16(bytes, 8);
    frame.id = Load16(bytes, 10);
    frame.major = bytes[12];
    frame.minor = bytes[13];
    frame.payload = bytes.subspan(kHeaderSize, std::size_t{4} * bytes[14]);
    frame.extended = bytes.subspan(kHeaderSize + frame.payload.size());
    frame.bytes = bytes;
    return frame;
}

} // namespace vxsim

// Lays XMODEM blocks out.
#include "vxComm/XModem/xmodemFrame.h"

#include <numeric>

namespace vxsign::xmodem {
namespace {

constexpr std::array<std::uint16_t, 256> kTable = [] {
    std::array<std::uint16_t, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned crc = byte << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000) != 0 ? crc << 1 ^ 0x1021 : crc << 1;
        table[byte] = static_cast<std::uint16_t>(crc);
    }
    return table;
}();

} // namespace

std::uint16_t Crc(std::span<const std::uint8_t> bytes)
{
    unsigned crc = 0;
    for (const std::uint8_t byte : bytes)
        crc = (crc << 8 ^ kTable[(crc >> 8 ^ byte) & 0xFF]) & 0xFFFF;
    return static_cast<std::uint16_t>(crc);
}

void Frame::Seal(std::uint32_t blockNumber, Check check)
{
    constexpr std::size_t kCheckAt = kDataAt + kDataSize;
    bytes[0] = kSoh;
    bytes[1] = static_cast<std::uint8_t>(blockNumber);
    bytes[2] = static_cast<std::uint8_t>(~blockNumber);
    if (check == Check::kCrc) {
        const std::uint16_t crc = Crc(Data());
        bytes[kCheckAt] = static_cast<std::uint8_t>(crc >> 8);
        bytes[kCheckAt + 1] = static_cast<std::uint8_t>(crc);
        length = kCheckAt + 2;
    } else {
        bytes[kCheckAt] = static_cast<std::uint8_t>(std::accumulate(Data().begin(), Data().end(), 0U));
        length = kCheckAt + 1;
    }
}

} // namespace vxsign::xmodem

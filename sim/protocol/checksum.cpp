#include "sim/protocol/checksum.h"

#include <array>
#include <cstddef>

namespace vxsim {
namespace {

constexpr std::array<std::uint16_t, 256> MakeCrcTable()
{
    std::array<std::uint16_t, 256> table{};
    for (std::size_t i = 0; i < table.size(); ++i) {
        unsigned value = static_cast<unsigned>(i);
        for (int bit = 0; bit < 8; ++bit)
            value = (value & 1U) != 0 ? value >> 1 ^ 0x8408U : value >> 1;
        table[i] = static_cast<std::uint16_t>(value);
    }
    return table;
}

constexpr auto kCrcTable = MakeCrcTable();

} // namespace

std::uint16_t Sum16(std::span<const std::uint8_t> bytes)
{
    // Blocks of a fixed size are what the compiler turns into vector code.
    constexpr std::size_t kBlock = 32;
    std::uint32_t sum = 0;
    while (bytes.size() >= kBlock) {
        for (std::size_t i = 0; i < kBlock; ++i)
            sum += bytes[i];
        bytes = bytes.subspan(kBlock);
    }
    for (const std::uint8_t byte : bytes)
        sum += byte;
    return static_cast<std::uint16_t>(sum);
}

std::uint16_t Crc16(std::span<const std::uint8_t> bytes)
{
    if (bytes.empty())
        return 0;
    unsigned crc = 0xFFFF;
    for (const std::uint8_t byte : bytes)
        crc = crc >> 8 ^ kCrcTable[(byte ^ crc) & 0xFFU];
    crc = ~crc & 0xFFFFU;
    return static_cast<std::uint16_t>(crc >> 8 | crc << 8);
}

} // namespace vxsim

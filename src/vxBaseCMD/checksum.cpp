// Sum and CRC, many bytes at a time.
#include "vxBaseCMD/checksum.h"

#include "vxBaseCMD/packet.h"

#include <vxsign/result.h>

#include <array>

namespace vxsign {
namespace {

constexpr std::size_t kSlices = 16;
using CrcTable = std::array<std::uint16_t, 256>;

// Table k holds what a byte becomes after k further zero bytes, so that one step takes kSlices bytes at a time.
constexpr std::array<CrcTable, kSlices> MakeTables()
{
    std::array<CrcTable, kSlices> tables{};
    for (unsigned byte = 0; byte < 256; ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ 0x8408 : crc >> 1;
        tables[0][byte] = static_cast<std::uint16_t>(crc);
    }
    for (std::size_t k = 1; k < kSlices; ++k)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint16_t crc = tables[k - 1][byte];
            tables[k][byte] = static_cast<std::uint16_t>(crc >> 8 ^ tables[0][crc & 0xFF]);
        }
    return tables;
}
constexpr std::array<CrcTable, kSlices> kTables = MakeTables();

// What the register becomes after these bytes.
std::uint32_t Crc(std::uint32_t crc, const std::uint8_t* bytes, std::size_t length)
{
    for (; length >= kSlices; bytes += kSlices, length -= kSlices) {
        std::uint32_t next = kTables[kSlices - 1][(bytes[0] ^ crc) & 0xFF] ^ kTables[kSlices - 2][bytes[1] ^ crc >> 8];
        for (std::size_t i = 2; i < kSlices; ++i)
            next ^= kTables[kSlices - 1 - i][bytes[i]];
        crc = next;
    }
    for (; length != 0; ++bytes, --length)
        crc = crc >> 8 ^ kTables[0][(*bytes ^ crc) & 0xFF];
    return crc;
}

// Adds eight bytes at a time as four lanes of 16 bits, in four such words at once, which compilers turn into vector
// code. A lane takes 128 steps of two bytes before it could run over. The order of the bytes does not matter to a sum.
std::uint32_t Sum(const std::uint8_t* bytes, std::size_t length)
{
    constexpr std::uint64_t kEvenBytes = 0x00FF00FF00FF00FF;
    constexpr std::size_t kWords = 4;
    constexpr std::size_t kStep = kWords * sizeof(std::uint64_t);
    constexpr std::size_t kStepsInLane = 128;
    std::uint32_t sum = 0;
    while (length >= kStep) {
        const std::size_t steps = std::min(length / kStep, kStepsInLane);
        std::uint64_t lanes[kWords] = {};
        for (std::size_t step = 0; step < steps; ++step)
            for (std::size_t i = 0; i < kWords; ++i) {
                std::uint64_t word = 0;
                std::memcpy(&word, bytes + step * kStep + i * sizeof word, sizeof word);
                lanes[i] += (word & kEvenBytes) + (word >> 8 & kEvenBytes);
            }
        for (const std::uint64_t lane : lanes)
            sum += static_cast<std::uint32_t>((lane & 0xFFFF) + (lane >> 16 & 0xFFFF) + (lane >> 32 & 0xFFFF) +
                                              (lane >> 48));
        bytes += steps * kStep;
        length -= steps * kStep;
    }
    for (; length != 0; ++bytes, --length)
        sum += *bytes;
    return sum & 0xFFFF;
}

} // namespace

void RunningCrc::Add(std::span<const std::uint8_t> bytes)
{
    crc = Crc(crc, bytes.data(), bytes.size());
}

std::uint16_t RunningCrc::Value() const
{
    // The complement goes out high byte first: the one big-endian field of a packet.
    const std::uint32_t complement = ~crc & 0xFFFF;
    return static_cast<std::uint16_t>(complement >> 8 | complement << 8);
}

} // namespace vxsign

std::uint32_t vxChkSum(const void* buffer, std::uint32_t start, std::uint32_t end, std::uint32_t mode)
{
    if (buffer == nullptr || end <= start)
        return 0;
    const auto* const bytes = static_cast<const std::uint8_t*>(buffer) + start;
    if (mode != vxsign::kCrcMode)
        return vxsign::Sum(bytes, end - start);
    vxsign::RunningCrc crc;
    crc.Add({bytes, end - start});
    return crc.Value();
}

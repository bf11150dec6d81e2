// Frames of Modbus RTU, as far as single holding registers need them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace vxsign::modbus {

enum class Function : std::uint8_t
{
    kRead = 3, // holding registers
    kWrite = 6 // one register
};

constexpr std::size_t kRequestLength = 8;
constexpr std::size_t kReadReplyLength = 7;
constexpr std::size_t kWriteReplyLength = 8;
constexpr std::size_t kExceptionLength = 5;

using RequestBytes = std::span<std::uint8_t, kRequestLength>;

/// Lays out a request. For a read the last number is the count of registers, for a write the value.
void BuildRequest(RequestBytes request, std::uint8_t device, Function function, std::uint16_t address,
                  std::uint16_t last);

/// What was found in the bytes that came back.
struct Answer
{
    enum class Kind : std::uint8_t
    {
        kNone,     // no valid frame
        kValue,    // a register that was read
        kDone,     // the write, confirmed
        kOther,    // another write, confirmed
        kException // nothing but a refusal
    };
    Kind kind = Kind::kNone;
    std::uint16_t value = 0; // of the register; the code of an exception
};

/// Looks for the answer to a request among bytes with bus noise ahead of it or behind it. The first valid frame of a
/// read register, from the device or from address 255, ends the search, for a write too. Of confirmed writes the last
/// one counts; the address and the low byte of the value are not compared. An exception counts if there is nothing
/// else.
Answer FindAnswer(std::span<const std::uint8_t, kRequestLength> request, std::span<const std::uint8_t> bytes);

/// What an exception says, in the words of the protocol, such as "illegal data address".
std::string ExceptionName(std::uint16_t code);

/// The checksum of frames, which is sent low byte first: CRC-16, reflected polynomial 0xA001, seed 0xFFFF.
std::uint16_t Crc(std::span<const std::uint8_t> bytes);

} // namespace vxsign::modbus

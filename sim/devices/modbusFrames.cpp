#include "sim/devices/modbusFrames.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

namespace vxsim {
namespace {

using Bytes = std::vector<std::uint8_t>;
using View = std::span<const std::uint8_t>;

constexpr std::size_t kCrcSize = 2;
constexpr std::size_t kShortestRtu = 4; // device, function, checksum
constexpr std::size_t kLongestRtu = 256;
constexpr std::size_t kShortRequest = 8; // with an address and one number
constexpr std::size_t kByteCountAt = 6;  // of a request with several values
constexpr std::uint8_t kExceptionBit = 0x80;

constexpr std::size_t kProtocolAt = 2;
constexpr std::size_t kLengthAt = 4;
constexpr std::size_t kUnitAt = 6; // what the length counts begins here
constexpr std::size_t kShortestUnit = 2;
constexpr std::size_t kLongestUnit = 254;

// In place of the size of a request.
constexpr std::size_t kNone = 0;
constexpr std::size_t kUnfinished = SIZE_MAX;

std::uint16_t ModbusCrc(View bytes)
{
    std::uint32_t crc = 0xFFFF;
    for (const std::uint8_t byte : bytes) {
        crc ^= byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ 0xA001 : crc >> 1;
    }
    return static_cast<std::uint16_t>(crc);
}

// Bytes of a request with this function, checksum included; 0 if that cannot be told.
std::size_t DeclaredSize(View bytes)
{
    switch (bytes[1]) {
    case ModbusDevices::kReadRegisters:
    case ModbusDevices::kWriteRegister:
        return kShortRequest;
    case ModbusDevices::kWriteRegisters:
        return bytes.size() > kByteCountAt ? kByteCountAt + 1 + bytes[kByteCountAt] + kCrcSize : kLongestRtu;
    default:
        return 0;
    }
}

// Bytes of the whole request that begins here.
std::size_t RtuSize(View bytes)
{
    if (!ModbusDevices::Has(bytes[0]))
        return kNone;
    if (bytes.size() == 1)
        return kUnfinished;
    const std::size_t declared = DeclaredSize(bytes);
    const std::size_t size = declared != 0 ? declared : bytes.size();
    if (bytes[1] == 0 || bytes[1] >= kExceptionBit || size > kLongestRtu)
        return kNone;
    if (size > bytes.size() || size < kShortestRtu)
        return kUnfinished;
    if (ModbusCrc(bytes.first(size - kCrcSize)) == Load16(bytes, size - kCrcSize))
        return size;
    return declared != 0 ? kNone : kUnfinished;
}

Bytes RtuFrame(std::uint8_t device, View answer)
{
    Bytes frame{device};
    frame.insert(frame.end(), answer.begin(), answer.end());
    const std::uint16_t crc = ModbusCrc(frame);
    frame.push_back(static_cast<std::uint8_t>(crc));
    frame.push_back(static_cast<std::uint8_t>(crc >> 8));
    return frame;
}

// The header is that of the request but for the length.
Bytes TcpFrame(View header, View answer)
{
    Bytes frame(header.begin(), header.end());
    const std::size_t length = 1 + answer.size();
    frame[kLengthAt] = static_cast<std::uint8_t>(length >> 8);
    frame[kLengthAt + 1] = static_cast<std::uint8_t>(length);
    frame.insert(frame.end(), answer.begin(), answer.end());
    return frame;
}

void Drop(Bytes& bytes, std::size_t count)
{
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(count));
}

} // namespace

ModbusAnswers AnswerModbusRtu(ModbusDevices& devices, Bytes& bytes)
{
    ModbusAnswers answers;
    std::size_t unfinished = SIZE_MAX; // the first that may become a request, behind the last whole one
    for (std::size_t at = 0; at < bytes.size();) {
        const View rest = View(bytes).subspan(at);
        const std::size_t size = RtuSize(rest);
        if (size == kUnfinished)
            unfinished = std::min(unfinished, at);
        if (size == kUnfinished || size == kNone) {
            ++at;
            continue;
        }
        if (const Bytes answer = devices.Answer(rest[0], rest.subspan(1, size - 1 - kCrcSize)); !answer.empty())
            answers.push_back(RtuFrame(rest[0], answer));
        at += size;
        unfinished = SIZE_MAX;
    }
    Drop(bytes, std::min(unfinished, bytes.size()));
    return answers;
}

std::optional<ModbusAnswers> AnswerModbusTcp(ModbusDevices& devices, Bytes& bytes)
{
    ModbusAnswers answers;
    std::size_t at = 0;
    while (bytes.size() - at >= kUnitAt) {
        const View rest = View(bytes).subspan(at);
        const std::size_t length = HighFirst(rest, kLengthAt);
        if (HighFirst(rest, kProtocolAt) != 0 || length < kShortestUnit || length > kLongestUnit)
            return std::nullopt;
        if (rest.size() - kUnitAt < length)
            break;
        const std::uint8_t device = rest[kUnitAt];
        if (const Bytes answer = devices.Answer(device, rest.subspan(kUnitAt + 1, length - 1)); !answer.empty())
            answers.push_back(TcpFrame(rest.first(kUnitAt + 1), answer));
        at += kUnitAt + length;
    }
    Drop(bytes, at);
    return answers;
}

} // namespace vxsim

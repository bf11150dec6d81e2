// Builds Modbus requests and finds their answers in noise.
#include "vxComm/MB/modbusFrame.h"

#include "util/littleEndian.h"

#include <algorithm>

namespace vxsign::modbus {
namespace {

constexpr std::uint8_t kAnyDevice = 255;
constexpr std::uint8_t kRefused = 0x80; // on top of the function

// By their codes. Those without a name are not in use.
constexpr const char* kExceptions[] = {
    nullptr,
    "illegal function",
    "illegal data address",
    "illegal data value",
    "server device failure",
    "acknowledge",
    "server device busy",
    "negative acknowledge",
    "memory parity error",
    nullptr,
    "gateway path unavailable",
    "gateway target device failed to respond",
};

constexpr std::array<std::uint16_t, 256> kTable = [] {
    std::array<std::uint16_t, 256> table{};
    for (unsigned byte = 0; byte < table.size(); ++byte) {
        unsigned crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 1) != 0 ? crc >> 1 ^ 0xA001 : crc >> 1;
        table[byte] = static_cast<std::uint16_t>(crc);
    }
    return table;
}();

// Everything but the checksum is sent high byte first.
void StoreHighFirst(std::uint8_t* bytes, std::uint16_t value)
{
    bytes[0] = static_cast<std::uint8_t>(value >> 8);
    bytes[1] = static_cast<std::uint8_t>(value);
}

// Whether a whole frame of this length, with a good checksum, begins here.
bool FrameHere(std::span<const std::uint8_t> bytes, std::size_t length)
{
    if (bytes.size() < length)
        return false;
    return Crc(bytes.first(length - 2)) == Load16(bytes.data() + length - 2);
}

} // namespace

std::uint16_t Crc(std::span<const std::uint8_t> bytes)
{
    unsigned crc = 0xFFFF;
    for (const std::uint8_t byte : bytes)
        crc = crc >> 8 ^ kTable[(crc ^ byte) & 0xFF];
    return static_cast<std::uint16_t>(crc);
}

void BuildRequest(RequestBytes request, std::uint8_t device, Function function, std::uint16_t address,
                  std::uint16_t last)
{
    request[0] = device;
    request[1] = static_cast<std::uint8_t>(function);
    StoreHighFirst(request.data() + 2, address);
    StoreHighFirst(request.data() + 4, last);
    Store16(request.data() + 6, Crc(request.first<6>()));
}

Answer FindAnswer(std::span<const std::uint8_t, kRequestLength> request, std::span<const std::uint8_t> bytes)
{
    Answer answer;
    for (; bytes.size() > 1; bytes = bytes.subspan(1)) {
        const auto function = static_cast<Function>(bytes[1]);
        const bool fromDevice = bytes[0] == request[0] || bytes[0] == kAnyDevice;
        if (function == Function::kRead && fromDevice && FrameHere(bytes, kReadReplyLength))
            return {Answer::Kind::kValue, static_cast<std::uint16_t>(bytes[3] << 8 | bytes[4])};
        if (function == Function::kWrite && FrameHere(bytes, kWriteReplyLength)) {
            // Function, register and the high byte of the value.
            const bool same = std::equal(request.begin() + 1, request.begin() + 5, bytes.begin() + 1);
            answer.kind = same ? Answer::Kind::kDone : Answer::Kind::kOther;
        }
        if (answer.kind == Answer::Kind::kNone && fromDevice && bytes[1] == (request[1] | kRefused) &&
            FrameHere(bytes, kExceptionLength))
            answer = {Answer::Kind::kException, bytes[2]};
    }
    return answer;
}

std::string ExceptionName(std::uint16_t code)
{
    const char* const name = code < std::size(kExceptions) ? kExceptions[code] : nullptr;
    return name != nullptr ? name : "exception " + std::to_string(code);
}

} // namespace vxsign::modbus

// The exchange of one Modbus register: its tries, and what a serial line needs to be quick.
#include "platform/clock.h"
#include "vxComm/MB/vxMBLED.h"

#include <algorithm>
#include <cstring>

namespace vxsign {
namespace {

constexpr std::uint8_t kNoSection = 255;
constexpr std::uint16_t kNoSectionBase = 0xFF00;
constexpr std::uint16_t kSectionSize = 100;

constexpr std::uint32_t kRefusedLine = 620; // as applications see it in their logs

constexpr std::uint32_t kQuietMs = 50; // behind the last byte of a serial answer

std::uint16_t RegisterAddress(std::uint8_t section, std::uint16_t registerNumber)
{
    const std::uint32_t base = section == kNoSection ? kNoSectionBase : std::uint32_t{section} * kSectionSize;
    return static_cast<std::uint16_t>(base + registerNumber);
}

} // namespace

std::uint32_t vxMBLED::ModbusExchange(std::uint8_t device, std::uint8_t section, modbus::Function function,
                                      std::uint16_t registerNumber, std::uint16_t& value)
{
    using Kind = modbus::Answer::Kind;
    constexpr std::uint16_t kOneRegister = 1;
    modbus::BuildRequest(modbus::RequestBytes(requestBuffer, modbus::kRequestLength), device, function,
                         RegisterAddress(section, registerNumber),
                         function == modbus::Function::kRead ? kOneRegister : value);
    requestLength = modbus::kRequestLength;
    functionCode = function;

    std::uint32_t result = VX_COMMUNICATION;
    for (std::uint32_t tries = 0; result != VX_OK && tries < config->retries; ++tries) {
        if (Aborted())
            return VX_ABORTED;
        const modbus::Answer answer = FindAnswer(ModbusTransact());
        if (answer.kind == Kind::kValue)
            value = answer.value;
        if (answer.kind == Kind::kValue || answer.kind == Kind::kDone)
            result = VX_OK;
        else if (answer.kind == Kind::kOther)
            result = VX_INCONSISTENT_MAJOR; // and stays so if nothing better comes
        else if (answer.kind == Kind::kException)
            Log(kRefusedLine, 6, ("the device refused: " + modbus::ExceptionName(answer.value)).c_str());
    }
    return result == VX_COMMUNICATION && Aborted() ? static_cast<std::uint32_t>(VX_ABORTED) : result;
}

std::uint32_t vxMBLED::ModbusTransact()
{
    RawSend(requestBuffer, requestLength, config->timeoutMs);
    std::memset(replyBuffer, 0, kReplySize);
    const bool stream = config->kind == VX_CHANNEL_TCP || config->kind == VX_CHANNEL_SERIAL;
    if (useChannel != 0 && stream)
        return GatherAnswer();
    return RawRecv(replyBuffer, kReplySize, config->timeoutMs);
}

// A stream may bring an answer in pieces, with gaps between them. A serial line is read until the buffer is full or the
// line has been quiet for a while, which is longer than all the rest of an exchange takes. So no more than an answer is
// asked for; what noise has pushed back follows byte by byte.
std::uint32_t vxMBLED::GatherAnswer()
{
    const bool serial = config->kind == VX_CHANNEL_SERIAL;
    const bool reading = functionCode == modbus::Function::kRead;
    std::uint32_t wanted = serial ? (reading ? modbus::kReadReplyLength : modbus::kWriteReplyLength) : kReplySize;
    const std::uint64_t start = platform::clock.monotonicMs();
    std::uint32_t got = 0;
    while (got < kReplySize && FindAnswer(got).kind == modbus::Answer::Kind::kNone) {
        const std::uint64_t gone = platform::clock.monotonicMs() - start;
        if (gone >= config->timeoutMs)
            break;
        const auto left = static_cast<std::uint32_t>(config->timeoutMs - gone);
        const std::uint32_t waitMs = serial && got != 0 ? std::min(left, kQuietMs) : left;
        const std::uint32_t more = RawRecv(replyBuffer + got, std::min(wanted, kReplySize - got), waitMs);
        if (more == 0)
            break;
        got += more;
        wanted = serial ? 1 : kReplySize;
    }
    return got;
}

modbus::Answer vxMBLED::FindAnswer(std::uint32_t length) const
{
    const std::span<const std::uint8_t, modbus::kRequestLength> request(requestBuffer, modbus::kRequestLength);
    return modbus::FindAnswer(request, {replyBuffer, length});
}

} // namespace vxsign

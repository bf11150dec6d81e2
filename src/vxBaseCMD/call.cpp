// The frame around every command, and the flat command inside it.
#include "vxBaseCMD/call.h"

#include <algorithm>
#include <cstring>

namespace vxsign {

std::uint32_t RunFrame(CBaseCMD& command, Step step) noexcept
{
    std::uint32_t result = VX_COMMUNICATION;
    if (command.config == nullptr || command.state == nullptr || command.config->initialised != 1)
        return result;
    const bool channel = command.useChannel == 1;
    if (channel && !command.link.OpenChannel(command.config->retries * command.config->timeoutMs))
        return command.Aborted() ? static_cast<std::uint32_t>(VX_ABORTED) : result;
    try {
        result = step();
    } catch (...) { // nothing thrown leaves an export
        result = VX_COMMUNICATION;
    }
    if (channel)
        command.link.channel->Close();
    return result;
}

std::uint32_t SendRow(CBaseCMD& command, const CommandRow& row)
{
    const bool missing = std::any_of(row.reply.begin(), row.reply.end(),
                                     [](const ReplyField& field) { return field.required && field.target == nullptr; });
    if (missing || row.payload.refused || row.extended.refused)
        return VX_ARGUMENTS;
    const std::uint32_t result = command.Request(row.code.major, row.code.minor, row.payload.bytes, row.extended.bytes);
    if (result == VX_OK)
        for (const ReplyField& field : row.reply)
            field.Take(command.Reply());
    return result;
}

void ReplyField::Take(const ReplyView& reply) const
{
    if (target == nullptr)
        return;
    switch (kind) {
    case Kind::kNumber:
        if (size == 1)
            *static_cast<std::uint8_t*>(target) = reply.U8(offset);
        else if (size == 2)
            *static_cast<std::uint16_t*>(target) = reply.U16(offset);
        else if (size == 4)
            *static_cast<std::uint32_t*>(target) = reply.U32(offset);
        else
            *static_cast<std::uint64_t*>(target) = reply.U64(offset);
        break;
    case Kind::kCount:
        *static_cast<std::uint32_t*>(target) = reply.U16(offset);
        break;
    case Kind::kBytes:
        reply.Copy(target, offset, size);
        break;
    case Kind::kShort:
        reply.Copy(target, 0, std::min(size, reply.PayloadLength()));
        break;
    case Kind::kExtended: {
        const auto extended = reply.Extended();
        const std::size_t records = std::min<std::size_t>(size, extended.size()) / recordSize;
        std::memcpy(target, extended.data(), records * recordSize);
        break;
    }
    }
}

} // namespace vxsign

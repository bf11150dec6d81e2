// Files from the sign, one packet after the other.
#include "vxComm/Read/vxReadLED.h"

#include "platform/stop.h"
#include "vxBaseCMD/call.h"

namespace vxsign {
namespace {

constexpr std::uint8_t kMajor = 1;
constexpr std::uint8_t kDataFlashInfoMinor = 28;
constexpr std::uint8_t kDataFlashMinor = 29;
constexpr std::uint32_t kDataFlashWaitMs = 3000;

// The record of a request without its packet number; false for a minor that reads no file.
bool LayOut(FileRecord& record, std::uint8_t minor, const char* name, char disk, std::uint16_t chunk)
{
    if (minor == 2 || minor == 3)
        record.Name(name).U16(chunk).PacketNumber16();
    else if (minor >= 4 && minor <= 7)
        record.U8(static_cast<std::uint8_t>(disk)).Zeros(3).Name(name).U16(chunk).PacketNumber16();
    else if (minor == 8)
        record.U16(chunk).PacketNumber16().Path(name);
    else if (minor == 9)
        record.U16(chunk).PacketNumber16();
    else if (minor == 17 || minor == 31)
        record.U16(chunk).Zeros(2).PacketNumber32().Path(name);
    else
        return false;
    return true;
}

// The size that the first reply announces: 32 bits behind the first four in a payload of 8 bytes, else 16 bits.
std::uint32_t AnnouncedSize(const ReplyView& reply)
{
    constexpr std::uint32_t kLongForm = 8;
    if (reply.PayloadLength() == 0)
        return 0;
    return reply.PayloadLength() == kLongForm ? reply.U32(4) : reply.U16(0);
}

} // namespace

std::uint32_t vxReadLED::AskForChunk(std::uint8_t minor, std::uint32_t number, FileRecord& record)
{
    record.SetPacketNumber(number);
    return Request(kMajor, minor, record.Bytes());
}

std::uint32_t vxReadLED::KeepChunk(const File& file) const
{
    const auto piece = Reply().Extended();
    return WriteAll(file, piece.data(), piece.size()) ? VX_OK : VX_CALL;
}

std::uint32_t vxReadLED::ReceiveAll(std::uint8_t minor, std::uint32_t first, std::uint32_t total, FileRecord& record,
                                    File& file)
{
    for (std::uint32_t number = first; number <= total; ++number) {
        std::uint32_t result = AskForChunk(minor, number, record);
        if (result == VX_OK)
            result = KeepChunk(file);
        if (result != VX_OK)
            return result;
        Progress(Percent(number, total));
    }
    return CloseFile(file) ? VX_OK : VX_CALL;
}

std::uint32_t vxReadLED::ReceiveFileChunks(std::uint8_t minor, const char* name, const char* local, char disk)
{
    const std::uint16_t chunkSize = config->dataSize;
    FileRecord record;
    if (local == nullptr || !LayOut(record, minor, name, disk, chunkSize))
        return VX_ARGUMENTS;
    File file = OpenFile(local, "wb");
    if (!file)
        return VX_OPEN_FILE;
    std::uint32_t result = AskForChunk(minor, 1, record);
    if (result != VX_OK)
        return result;
    const std::uint32_t size = AnnouncedSize(Reply());
    if (size == 0) // no file: what came with this reply is none of it
        return VX_FILE_NOT_EXISTS;
    result = KeepChunk(file);
    if (result != VX_OK)
        return result;
    const std::uint32_t total = PacketCount(size, chunkSize);
    if (total > record.LastPacketNumber()) // a number that wraps would bring the beginning of the file again
        return VX_READ_TOO_LONG;
    return ReceiveAll(minor, 2, total, record, file);
}

std::uint32_t vxReadLED::ReceiveDataFlash(const char* local, std::uint32_t size)
{
    const std::uint16_t chunkSize = config->dataSize;
    File file = OpenFile(local, "wb");
    if (!file)
        return VX_OPEN_FILE;
    // The sign is asked for its size in every case: that makes it get the data ready.
    std::uint8_t info[4] = {};
    const std::uint32_t result =
        SendOn(*this, {kMajor, kDataFlashInfoMinor}, vxsign::Reply(OutExtended(info, sizeof info)));
    if (result != VX_OK)
        return result;
    if (size == 0)
        size = std::uint32_t{Load16(info)} * Load16(info + 2);
    if (size == 0)
        return VX_FILE_NOT_EXISTS;
    platform::Rest(kDataFlashWaitMs);
    FileRecord record;
    record.U16(chunkSize).Zeros(2).PacketNumber32();
    return ReceiveAll(kDataFlashMinor, 1, PacketCount(size, chunkSize), record, file);
}

} // namespace vxsign

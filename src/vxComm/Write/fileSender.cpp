// Files to the sign, one packet after the other.
#include "vxComm/Write/vxWriteLED.h"

#include "vxComm/Write/ngFile.h"
#include "vxComm/shared/boardAddress.h"

namespace vxsign {
namespace {

constexpr std::uint8_t kMajor = 2;
constexpr std::uint8_t kAbsoluteMinor = 1;
constexpr std::uint8_t kDataFlashMinor = 19;
constexpr std::uint32_t kAbsoluteBlock = 1024;

// The record of a file without its packet number; false for a minor that sends no file.
bool LayOut(FileRecord& record, std::uint8_t minor, const char* name, char disk, std::uint32_t size,
            std::uint16_t chunk, std::uint32_t total)
{
    const auto total16 = static_cast<std::uint16_t>(total);
    if (minor == 2 || minor == 3)
        record.Name(name).U32(size).U16(chunk).U16(total16).PacketNumber16().Zeros(2);
    else if (minor >= 4 && minor <= 7)
        record.U8(static_cast<std::uint8_t>(disk))
            .Zeros(1)
            .Name(name)
            .U32(size)
            .U16(chunk)
            .U16(total16)
            .PacketNumber16();
    else if (minor == 8)
        record.U32(size).U16(chunk).U16(total16).PacketNumber16().Path(name);
    else if (minor == 13)
        record.U32(size).U16(chunk).U32(total).PacketNumber32().Path(name);
    else
        return false;
    return true;
}

} // namespace

std::uint32_t vxWriteLED::OpenSource(const char* local, Source& source) const
{
    const std::uint32_t result = ExpandNgFile(local, source.file);
    if (result != VX_OK)
        return result;
    const auto size = SignFileSize(source.file);
    if (!size)
        return VX_ARGUMENTS;
    source.size = *size;
    source.chunkSize = config->dataSize;
    return source.size != 0 ? VX_OK : VX_EMPTY_FILE;
}

std::uint32_t vxWriteLED::SendAll(std::uint8_t minor, FileRecord& record, std::uint32_t total, const Source& source)
{
    for (std::uint32_t number = 1; number <= total; ++number) {
        record.SetPacketNumber(number);
        const std::size_t count = ReadSome(source.file, Staging(), source.chunkSize);
        const std::uint32_t result = Request(kMajor, minor, record.Bytes(), {Staging(), count});
        if (result != VX_OK)
            return result;
        Progress(Percent(number, total));
    }
    return VX_OK;
}

std::uint32_t vxWriteLED::SendFileChunks(std::uint8_t minor, const char* name, const char* local, char disk)
{
    Source source;
    if (const std::uint32_t result = OpenSource(local, source); result != VX_OK)
        return result;
    const std::uint32_t total = PacketCount(source.size, source.chunkSize);
    FileRecord record;
    if (!LayOut(record, minor, name, disk, source.size, static_cast<std::uint16_t>(source.chunkSize), total))
        return VX_ARGUMENTS;
    if (total > record.LastPacketNumber()) // a number that wraps would overwrite the beginning of the file
        return VX_ARGUMENTS;
    return SendAll(minor, record, total, source);
}

std::uint32_t vxWriteLED::SendDataFlashFile(const char* local, std::uint32_t size)
{
    Source source;
    if (const std::uint32_t result = OpenSource(local, source); result != VX_OK)
        return result;
    const std::uint32_t dataSize = size != 0 ? size : source.size;
    const std::uint32_t total = PacketCount(dataSize, source.chunkSize);
    FileRecord record;
    record.U32(dataSize).U16(static_cast<std::uint16_t>(source.chunkSize)).U32(total).PacketNumber32().Zeros(2);
    return SendAll(kDataFlashMinor, record, total, source);
}

std::uint32_t vxWriteLED::SendAbsoluteFile(std::uint8_t addrLow, std::uint8_t addrHigh, const char* local)
{
    const File file = OpenFile(local, "rb");
    if (addrLow > 1 || !file)
        return VX_ARGUMENTS;
    std::size_t count = ReadSome(file, Staging(), kAbsoluteBlock);
    if (count == 0)
        return VX_EMPTY_FILE;

    BoardAddress address(*config, addrLow, addrHigh);
    for (std::uint32_t offset = 0; count != 0; count = ReadSome(file, Staging(), kAbsoluteBlock)) {
        FileRecord record;
        record.U32(offset);
        const std::uint32_t result = Request(kMajor, kAbsoluteMinor, record.Bytes(), {Staging(), count});
        if (result != VX_OK) {
            // A failure leaves the board's address in the thread's record, for the calls that follow.
            address.LeaveChanged();
            return result;
        }
        offset += static_cast<std::uint32_t>(count);
    }
    return VX_OK;
}

} // namespace vxsign

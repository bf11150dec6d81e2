// Records of files in transfer.
#pragma once

#include "util/littleEndian.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <span>

namespace vxsign {

/// The record that goes with each packet of a file, laid down field by field as its table lists them.
class FileRecord
{
public:
    FileRecord& U8(std::uint8_t value) { return Number(value); }
    FileRecord& U16(std::uint16_t value) { return Number(value); }
    FileRecord& U32(std::uint32_t value) { return Number(value); }

    FileRecord& Zeros(std::size_t count)
    {
        used += count;
        return *this;
    }

    /// A bare file name: 12 bytes, cut or zero padded, no terminator when full.
    FileRecord& Name(const char* name)
    {
        constexpr std::size_t kNameSize = 12;
        std::memcpy(bytes.data() + used, name, ::strnlen(name, kNameSize));
        used += kNameSize;
        return *this;
    }

    /// A path with its terminator: the last field, cut where the record ends.
    FileRecord& Path(const char* path)
    {
        const std::size_t room = bytes.size() - used;
        const std::size_t length = std::min(::strnlen(path, room) + 1, room);
        std::memcpy(bytes.data() + used, path, length);
        used += length;
        return *this;
    }

    /// The place of the packet number, in 2 or 4 bytes.
    FileRecord& PacketNumber16() { return Place(sizeof(std::uint16_t)); }
    FileRecord& PacketNumber32() { return Place(sizeof(std::uint32_t)); }

    void SetPacketNumber(std::uint32_t number)
    {
        if (numberSize == sizeof(std::uint16_t))
            Store16(bytes.data() + numberOffset, static_cast<std::uint16_t>(number));
        else
            Store32(bytes.data() + numberOffset, number);
    }

    /// The highest packet number that its place holds.
    std::uint32_t LastPacketNumber() const { return numberSize == sizeof(std::uint16_t) ? 0xFFFF : 0xFFFFFFFF; }

    std::span<const std::uint8_t> Bytes() const { return {bytes.data(), used}; }

    static constexpr std::size_t kLongest = 256;

private:
    template <class T>
    FileRecord& Number(T value)
    {
        StoreLittle(bytes.data() + used, value);
        used += sizeof(T);
        return *this;
    }

    FileRecord& Place(std::size_t size)
    {
        numberOffset = used;
        numberSize = size;
        return Zeros(size);
    }

    std::array<std::uint8_t, kLongest> bytes{};
    std::size_t used = 0;
    std::size_t numberOffset = 0;
    std::size_t numberSize = 0;
};

/// The packets that `size` bytes take.
constexpr std::uint32_t PacketCount(std::uint32_t size, std::uint32_t chunkSize)
{
    return size / chunkSize + (size % chunkSize != 0 ? 1 : 0);
}

/// What is done when packet `number` of `total` is through.
constexpr std::uint32_t Percent(std::uint32_t number, std::uint32_t total)
{
    return static_cast<std::uint32_t>(std::uint64_t{100} * number / total);
}

} // namespace vxsign

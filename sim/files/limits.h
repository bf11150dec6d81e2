// How large pieces, records and the data flash may be.
#pragma once

#include <cstddef>
#include <cstdint>

namespace vxsim {

// Bytes of a file in one packet; a host takes no reply above 1536 bytes.
inline constexpr std::uint32_t kMinChunk = 64;
inline constexpr std::uint32_t kMaxChunk = 1280;
// Longest file record, its path included.
inline constexpr std::size_t kMaxRecord = 256;
// The data flash: pages of 256 bytes, counted in 16 bits.
inline constexpr std::uint32_t kFlashPage = 256;
inline constexpr std::uint32_t kFlashLimit = kFlashPage * 65535;

constexpr bool IsChunkSize(std::uint32_t size)
{
    return size >= kMinChunk && size <= kMaxChunk;
}

constexpr std::uint32_t PacketCount(std::uint32_t fileSize, std::uint32_t chunkSize)
{
    return fileSize / chunkSize + (fileSize % chunkSize != 0 ? 1 : 0);
}

} // namespace vxsim

// Local files: buffered streams that close with their owner.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>

namespace vxsign {

struct CloseStream
{
    void operator()(std::FILE* stream) const noexcept { std::fclose(stream); }
};
using File = std::unique_ptr<std::FILE, CloseStream>;

/// As fopen, for this process alone. Null when it fails, for a null argument, and for a folder.
File OpenFile(const char* path, const char* mode);

/// Reads up to size bytes; less at the end of the file or on an error.
std::size_t ReadSome(const File& file, void* buffer, std::size_t size);

/// False when not all bytes could be taken. What is taken may still be lost until CloseFile tells otherwise.
bool WriteAll(const File& file, const void* data, std::size_t size);

/// Goes to a byte of the file. False for a stream without positions.
bool Seek(const File& file, std::uint64_t position);

/// Where the stream stands. Nothing for one without positions.
std::optional<std::uint64_t> Position(const File& file);

/// The size in bytes; the stream then stands at its beginning. Nothing for a stream without a size.
std::optional<std::uint64_t> FileSize(const File& file);

/// The same as signs have it, in 32 bits: nothing for a file of 4 GB and more.
std::optional<std::uint32_t> SignFileSize(const File& file);

/// Closes a file and tells whether all that was written has reached it. Needed for files that were written; others may
/// just go out of scope.
bool CloseFile(File& file);

} // namespace vxsign

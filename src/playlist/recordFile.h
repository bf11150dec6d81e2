// A local file of records that say themselves where the next one stands.
#pragma once

#include "util/file.h"

#include <cstddef>
#include <cstdint>

namespace vxsign::playlist {

/// A file read by position.
class RecordFile
{
public:
    /// Takes an open file over. One without a size counts as empty.
    explicit RecordFile(File opened);

    std::uint64_t Size() const { return size; }
    bool Holds(std::uint64_t position) const { return position < size; }

    /// Reads `count` bytes from a position on. What lies behind the file's end is zero.
    void Read(std::uint64_t position, void* buffer, std::size_t count);

private:
    File file;
    std::uint64_t size;
    std::uint64_t next = 0; // where the stream stands
};

} // namespace vxsign::playlist

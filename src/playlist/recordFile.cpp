// Reads of a record file that never go beyond its end.
#include "playlist/recordFile.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace vxsign::playlist {

RecordFile::RecordFile(File opened) : file(std::move(opened)), size(FileSize(file).value_or(0))
{
}

void RecordFile::Read(std::uint64_t position, void* buffer, std::size_t count)
{
    std::memset(buffer, 0, count);
    if (!Holds(position))
        return;
    // Records mostly follow each other, and a seek would throw the stream's buffer away.
    if (position != next && !Seek(file, position))
        return;
    next = position + ReadSome(file, buffer, static_cast<std::size_t>(std::min<std::uint64_t>(count, size - position)));
}

} // namespace vxsign::playlist

#include "sim/files/fileRecord.h"

#include <algorithm>

namespace vxsim {

bool FileRecord::NamesSame(const KeptRecord& other) const
{
    if (minor != other.minor || bytes.size() != other.bytes.size())
        return false;
    const std::span<const std::uint8_t> kept = other.bytes;
    const std::size_t tail = numberAt + numberSize;
    return std::ranges::equal(bytes.first(numberAt), kept.first(numberAt)) &&
           std::ranges::equal(bytes.subspan(tail), kept.subspan(tail));
}

} // namespace vxsim

// Numbers for the names of temporary files.
#pragma once

#include <cstdint>

namespace vxsign {

/// The clock's number, but never the same one twice in this process, since two threads within one millisecond must not
/// share a file.
std::uint64_t NextTempStamp();

} // namespace vxsign

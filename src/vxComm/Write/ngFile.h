// Files that hold a wrapped message.
#pragma once

#include "util/file.h"

#include <cstdint>

namespace vxsign {

/// Opens a file that is to be sent. One that begins with "NG" holds a wrapped message: it is unwrapped into
/// "<local>.tmp" beside it, and that file is the one to send. It stays there by design; the next sending overwrites it.
/// Returns 0, VX_OPEN_FILE, VX_CALL_2 without memory, VX_CALL when the unwrapped file cannot be written.
std::uint32_t ExpandNgFile(const char* local, File& opened);

} // namespace vxsign

// Paths and names that only the system knows.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vxsign::platform {

/// The folder for temporary files, ending in a separator.
std::string TempFolder();

std::uint32_t ProcessId();

/// The full path of the running program, empty if it cannot be told.
std::string ExecutablePath();

/// The short (8.3) name of an existing file, without its folder; empty for a file that is not there. A name that fits
/// is its own short name. Any other gets one that depends on the name alone: two characters of the stem, four
/// hexadecimal digits of a checksum of the whole name, "~1", and up to three characters of the extension, all in upper
/// case.
std::string ShortFileName(std::string_view path);

} // namespace vxsign::platform

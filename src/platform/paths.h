// Paths and names that only the system knows.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace vxsign::platform {

/// The folder for temporary files, ending in a separator.
std::string TempFolder();

std::uint32_t ProcessId();

/// The full path of the running program, empty if it cannot be told.
std::string ExecutablePath();

/// The short (8.3) name of an existing file, without its folder; empty for a file that is not there. A name that fits
/// is its own short name. Any other has the one that the system keeps for it, or else that of platform/shortName.h.
std::string ShortFileName(std::string_view path);

/// What may stand between a folder and a name.
extern const std::string_view kSeparators;

/// Between the texts of callers and the system's own paths.
std::filesystem::path NativePath(std::string_view path);
std::string PathText(const std::filesystem::path& path);

/// Whether the byte begins a character of two bytes, of which the second may look like a separator.
bool IsLeadByte(char byte);

/// Whether a part of a path leads elsewhere than into a folder, or to a file in it.
bool LeavesFolder(std::string_view component);

} // namespace vxsign::platform

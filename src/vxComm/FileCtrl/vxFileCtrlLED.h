#pragma once

#include "vxBaseCMD/vxBaseCMD.h"

namespace vxsign {

/// The sign's drives, folders and files: major 7.
class vxFileCtrlLED : public CBaseCMD
{
};

/// The longest path that a request carries, its terminator included.
constexpr std::size_t kLongestSignPath = 256;

/// An entry of a folder's listing, as it travels.
constexpr std::uint32_t kDirEntrySize = 32;

} // namespace vxsign

// The entries of a folder's listing, as they travel.
#pragma once

#include <cstdint>

namespace vxsign {

constexpr std::uint32_t kDirEntrySize = 32;

} // namespace vxsign

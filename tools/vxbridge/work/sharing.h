// Which bridge polls which sign: every bridge works it out for itself, and all come to the same.
#pragma once

#include <set>
#include <string>
#include <string_view>

namespace vxbridge {

// The bridge to which a key falls, "" without bridges. When a bridge goes, its keys alone fall to others, evenly.
std::string OwnerOf(std::string_view key, const std::set<std::string>& bridges);

} // namespace vxbridge

// Short (8.3) names of files that have none from the system.
#pragma once

#include <string>
#include <string_view>

namespace vxsign::platform {

/// The short name of a name without folder. One that fits is its own short name. Any other gets one that depends on the
/// name alone: two characters of the stem, four hexadecimal digits of a checksum of the whole name, "~1", and up to
/// three characters of the extension, all in upper case.
std::string ShortNameOf(std::string_view name);

} // namespace vxsign::platform

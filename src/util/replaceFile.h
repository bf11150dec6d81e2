// Local files that are written anew without ever being half there.
#pragma once

#include <string>
#include <string_view>

namespace vxsign {

/// Gives a file new contents, or makes it. What it held stays whole until the new contents are on the disk: these go
/// into a file beside it, which then takes its place, its owner and its mode. A link stays a link. What is no plain
/// file is written in place, and so is one beside which no file can be made or whose place or owner no other can take.
/// False when the file did not get them.
bool ReplaceFile(const std::string& path, std::string_view contents);

} // namespace vxsign

// Separators in paths of this PC.
#pragma once

#include "platform/paths.h"

#include <string_view>

namespace vxsign {

/// Where the first of these characters stands in a path, from a place on; npos if nowhere. The second byte of a
/// character is none.
inline std::size_t NextOf(std::string_view path, std::string_view characters, std::size_t place = 0)
{
    while (place < path.size() && characters.find(path[place]) == std::string_view::npos)
        place += platform::IsLeadByte(path[place]) ? 2 : 1;
    return place < path.size() ? place : std::string_view::npos;
}

/// The same for the last of them.
inline std::size_t LastOf(std::string_view path, std::string_view characters)
{
    std::size_t last = std::string_view::npos;
    for (std::size_t place = NextOf(path, characters); place != std::string_view::npos;
         place = NextOf(path, characters, place + 1))
        last = place;
    return last;
}

} // namespace vxsign

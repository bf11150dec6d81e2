#include "vxbridge/work/sharing.h"

#include <algorithm>
#include <cstdint>

namespace vxbridge {

namespace {

// FNV-1a, whose bits are stirred at the end: names that differ in their last digit are to fall far apart. All bridges
// of a site have to agree on it.
std::uint64_t Weigh(std::string_view bridge, std::string_view key)
{
    std::uint64_t hash = 0xCBF29CE484222325;
    const auto take = [&hash](char letter) { hash = (hash ^ static_cast<std::uint8_t>(letter)) * 0x100000001B3; };
    std::ranges::for_each(bridge, take);
    take('\0');
    std::ranges::for_each(key, take);
    hash = (hash ^ (hash >> 33)) * 0xFF51AFD7ED558CCD;
    hash = (hash ^ (hash >> 33)) * 0xC4CEB9FE1A85EC53;
    return hash ^ (hash >> 33);
}

} // namespace

std::string OwnerOf(std::string_view key, const std::set<std::string>& bridges)
{
    const auto owner = std::ranges::max_element(bridges, {}, [key](const auto& bridge) { return Weigh(bridge, key); });
    return owner == bridges.end() ? "" : *owner;
}

} // namespace vxbridge

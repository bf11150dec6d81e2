// What a sign says of its face: its size, its light, and what lies over its play list.
#pragma once

#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/report.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

// What the sign does not tell is missing.
struct FaceState
{
    FaceSize size;
    std::optional<std::uint32_t> colours;
    std::optional<std::uint32_t> light; // eighths
    bool isLightFixed = false;
    std::optional<std::vector<std::string>> shows; // names of what is to be seen

    // False too when the sign does not tell.
    bool Shows(std::string_view name) const { return shows && std::ranges::find(*shows, name) != shows->end(); }
};

// Throws SignFailure when the line fails.
FaceState ReadFace();

// Size, colours and light; what is missing is said to be.
void ShowFace(Report& report, const FaceState& face);

// Something over the play list.
struct Cover
{
    std::string_view name;    // in FaceState::shows
    std::string_view text;    // how it came there
    std::string_view command; // that ends it; empty where it ends of itself
    bool isDark;              // nothing can be seen
    bool (*ask)();            // for a sign that tells no names; null where nothing asks
    std::uint32_t (*end)();
};

// Each over the next.
std::span<const Cover> AllCovers();

// Missing when the sign does not tell. Throws SignFailure when the line fails.
std::optional<bool> IsThere(const Cover& cover, const FaceState& face);

// Names that the sign gives; "" for none. Throw SignFailure.
std::string PlayingFile();
std::string NextFile();

} // namespace vxctl

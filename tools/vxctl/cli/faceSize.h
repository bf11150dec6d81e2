// Sizes in pixels.
#pragma once

#include "vxctl/cli/argument.h"

#include <string>
#include <string_view>

namespace vxctl {

inline constexpr int kMostPictureSide = 1024;
inline constexpr int kMostFaceSide = 65535; // as a sign can tell it

struct FaceSize
{
    int width = 0; // 0 where it was not given
    int height = 0;

    bool operator==(const FaceSize&) const = default;
};

// WIDTHxHEIGHT, each side from 1 to the most. Throws UsageError for anything else.
FaceSize ParseSides(std::string_view text, int most);
inline FaceSize ParseFaceSize(std::string_view text)
{
    return ParseSides(text, kMostPictureSide);
}

// That of the sign's face, as it tells it; zeros where it refuses. Throws SignFailure when the line fails.
FaceSize ReadFaceSize();

inline constexpr ArgumentType kFaceSize{"WxH", Checked<ParseFaceSize>};

} // namespace vxctl

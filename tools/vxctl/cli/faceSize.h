// Sizes in pixels.
#pragma once

#include "vxctl/cli/argument.h"

#include <string>
#include <string_view>

namespace vxctl {

inline constexpr int kMostPictureSide = 1024;

struct FaceSize
{
    int width = 0; // 0 where it was not given
    int height = 0;
};

// WIDTHxHEIGHT, each side from 1 to kMostPictureSide. Throws UsageError for anything else.
FaceSize ParseFaceSize(std::string_view text);

// That of the sign's face, as it tells it; zeros where it refuses. Throws SignFailure when the line fails.
FaceSize ReadFaceSize();

inline constexpr ArgumentType kFaceSize{"WxH", Checked<ParseFaceSize>};

} // namespace vxctl

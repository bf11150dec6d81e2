// The size of a drawn face.
#pragma once

#include <CLI/CLI.hpp>

namespace vxctl {

inline constexpr int kMostPictureSide = 1024;

struct FaceSize
{
    int width = 0; // 0 where it was not given
    int height = 0;
};

// --size WIDTHxHEIGHT, each side from 1 to kMostPictureSide.
CLI::Option* AddFaceSize(CLI::App& app, FaceSize& size);

} // namespace vxctl

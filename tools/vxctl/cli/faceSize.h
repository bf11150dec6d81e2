// Sizes in pixels.
#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace vxctl {

inline constexpr int kMostPictureSide = 1024;

struct FaceSize
{
    int width = 0; // 0 where it was not given
    int height = 0;
};

// WIDTHxHEIGHT, each side from 1 to kMostPictureSide.
CLI::Option* AddFaceSize(CLI::App& app, FaceSize& size, const std::string& name = "--size",
                         const std::string& description = "pixels of the face");

} // namespace vxctl

// The options that hold for every command: a sign, and how to reach it.
#pragma once

#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/login.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vxctl {

struct Options
{
    std::string url;
    std::uint32_t timeoutMs = 0;
    std::uint32_t retries = 0;
    std::uint32_t chunk = 0;
    std::uint16_t destination = 0;
    std::optional<Login> login = {}; // of a sign in the book; every connection begins with it
    FaceSize size = {};              // likewise; zeros where that does not say
    std::string encoding = {};       // likewise; of its texts, empty where that does not say

    bool operator==(const Options&) const = default;
};

// A sign as people name it: by its name in the book, or by its URL.
struct Target
{
    std::string name;
    Options options;
};

class Args;

// As a command line has them.
Options OptionsOf(const Args& args);

} // namespace vxctl

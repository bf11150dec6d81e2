// Files to the sign, under a progress bar.
#pragma once

#include "vxctl/cli/session.h"

#include <cstdint>
#include <string>

namespace vxctl {

// What a sending that is stopped in the middle leaves.
std::string PartOf(const std::string& path);

// Sends a file of this PC with a function such as vxWriteSpecFile.
using SendOf = std::uint32_t (*)(const char* path, const char* local);
std::uint32_t SendFile(Session& session, const std::string& path, const std::string& local, SendOf send);

} // namespace vxctl

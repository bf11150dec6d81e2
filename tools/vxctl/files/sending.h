// Files to the sign, under a progress bar.
#pragma once

#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/session.h"

#include <cstdint>
#include <optional>
#include <string>

namespace vxctl {

// What a sending that is stopped in the middle leaves.
std::string PartOf(const std::string& path);

// A file that is to go, under a name that it can have for itself: a wrapped message is unwrapped into a file beside it,
// which many threads cannot do at once.
class Unshared
{
public:
    Unshared(const Session& session, const std::string& local);

    const std::string& Path() const { return linked ? linked->Path() : path; }

private:
    const std::string& path;
    std::optional<LinkedFile> linked;
};

// Sends a file of this PC with a function such as vxWriteSpecFile.
using SendOf = std::uint32_t (*)(const char* path, const char* local);
std::uint32_t SendFile(Session& session, const std::string& path, const std::string& local, SendOf send);

} // namespace vxctl

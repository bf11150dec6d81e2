// What the sign has made of a file that it was sent.
#pragma once

#include "vxctl/cli/session.h"

#include <cstdint>
#include <string>

namespace vxctl {

// The drive that content goes to: F where the sign has it, else D. Its properties must have been read.
char DriveOfSign();

// How much of a file is compared.
enum class Depth : std::uint8_t
{
    kSize,
    kContents // read back
};

// What the sign has at a path.
struct SignCopy
{
    std::string path;
    bool isSystem = false; // the path is the name of a system file
};

// What is wrong with the copy of a local file; "" when nothing is. The sign must be that of this thread. Throws
// SignFailure when it cannot be asked.
std::string Difference(const Session& session, const SignCopy& copy, const std::string& local, Depth depth);

// Throws SignFailure unless the sign has the whole contents.
void Verify(Session& session, const SignCopy& copy, const std::string& local);

} // namespace vxctl

// Files to the sign with several packets on their way at a time, where the line is good enough for that.
#pragma once

#include <cstdint>

namespace vxctl {

// Sends a file through the window. Its first packets go plainly, and show whether the line loses any: a loss keeps a
// window waiting for 4 seconds, and so the rest of the file goes plainly too where the tries are shorter. A window that
// fails makes way for the plain transfer as well. The thread is to have a sign.
std::uint32_t SendWindowed(const char* path, const char* local);

} // namespace vxctl

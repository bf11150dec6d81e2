// Opening files as only the system can.
#pragma once

#include <cstdio>

namespace vxsign::platform {

/// As fopen, but child processes do not inherit the stream, and a folder is refused. Null when it fails.
std::FILE* OpenStream(const char* path, const char* mode);

} // namespace vxsign::platform

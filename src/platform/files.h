// Files as only the system can open and keep them.
#pragma once

#include <cstdint>
#include <cstdio>

namespace vxsign::platform {

/// As fopen, but child processes do not inherit the stream, and a folder is refused. Null when it fails.
std::FILE* OpenStream(const char* path, const char* mode);

/// Brings what was written to the disk itself, where it outlives a power cut. False when not all of it got there.
bool Sync(std::FILE* stream);

/// Gives an open file the owner, the group and the mode of another. False when it cannot have them.
bool CopyAttributes(const char* from, std::FILE* to);

/// As fseek and ftell, with positions of 64 bits on every system. TellStream gives -1 when it fails.
bool SeekStream(std::FILE* stream, std::int64_t offset, int origin);
std::int64_t TellStream(std::FILE* stream);

/// Copies a file. False for one that cannot be read or made, and for a target that is there and must not be replaced.
bool CopyContents(const char* from, const char* to, bool replace);

/// Deletes a file, no folder. False when it is still there, or was not.
bool RemoveFile(const char* path);

} // namespace vxsign::platform

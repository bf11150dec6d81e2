// Local files in text mode: CR LF reads as LF, while positions count the bytes of the file.
#pragma once

#include "util/file.h"

namespace vxsign {

/// Reads up to size bytes of text.
std::size_t ReadText(const File& file, char* buffer, std::size_t size);

/// A line as vxReadFileLine steps over it: up to size bytes, cut behind the first line feed with the rest cleared; the
/// file goes on one byte behind line start and length, which in a line that ends in CR LF is the start of the next.
/// Without a line feed the whole block is the line. Returns its length, 0 at the end.
std::size_t ReadSteppedLine(const File& file, char* buffer, std::size_t size);

/// A line as fgets reads it: up to size - 1 bytes and a terminator, with its line feed if that was within reach.
/// Returns whether the end of the file has not shown: a last line without line feed gives false.
bool ReadWholeLine(const File& file, char* buffer, std::size_t size);

} // namespace vxsign

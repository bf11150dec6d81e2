// All that vxctl writes to standard output and standard error.
#pragma once

#include "vxctl/cli/shown.h"

#include <string_view>

namespace vxctl {

enum class Stream
{
    kOut,
    kError
};

void PrintLine(Stream stream, const Shown& line);

// Text of several lines, each with its end.
void PrintLines(Stream stream, std::string_view lines);

// On standard error: a question, behind which the cursor stays; a line over that in which the cursor is; nothing in its
// place.
void PrintQuestion(const Shown& question);
void DrawLine(const Shown& line);
void EraseLine();

// Writes what is still on its way to standard output. False when that did not take it all.
bool Flush();

} // namespace vxctl

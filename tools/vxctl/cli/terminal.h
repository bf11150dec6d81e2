// All that vxctl writes to standard output and standard error.
#pragma once

#include "vxctl/cli/shown.h"

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

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

// The terminal at standard output; nothing where there is none.
struct ScreenSize
{
    std::size_t columns;
    std::size_t rows;
};
std::optional<ScreenSize> SizeOfScreen();

// Lines on standard output in the place of those that were drawn last, which were so many.
void DrawScreen(const std::vector<Shown>& lines, std::size_t former);

// Writes what is still on its way to standard output. False when that did not take it all.
bool Flush();

} // namespace vxctl

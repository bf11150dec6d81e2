// What was said in a capture, for people and programs.
#pragma once

#include "vxctl/cli/report.h"
#include "vxctl/record/captureTalk.h"

#include <string>

namespace vxctl {

// The name of a command of the sign; empty where none is known.
std::string CommandName(std::uint8_t major, std::uint8_t minor);

// Where the sign is: its URL, or what the capture tells of it.
std::string SignOf(const Said& said);

// The code of a reply: 0 for one without, and for "done".
std::uint32_t CodeOf(const Said& said);

// One line, with the sign ahead where `many` of them are in the capture.
Shown LineOf(const Said& said, bool many);

Report::Json ObjectOf(const Said& said);

} // namespace vxctl

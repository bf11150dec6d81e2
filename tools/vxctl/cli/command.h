// A command of the tool: one row, from which its parsing, help, man page, documents and completion come.
#pragma once

#include "vxctl/cli/args.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/session.h"

#include <cstdint>
#include <initializer_list>
#include <span>
#include <string_view>

namespace vxctl {

// The connection that a command finds.
enum class Line : std::uint8_t
{
    kReady, // the sign is that of this thread, with progress on the bar that is alive
    kOwn,   // the command makes one as it needs it
    kNone   // it stays on this PC
};

// Whether the command makes sense for many signs at once: it asks nobody. What it writes on this PC goes into a folder
// for each sign.
enum class Signs : std::uint8_t
{
    kOne,
    kMany,
    kTogether, // it takes them all itself
    kOfBook    // those of the book that SIGN names, otherwise all, as many even if it is one
};

struct Command
{
    std::string_view name;          // with its families ahead: "zone text"
    std::string_view help;          // one line
    std::string_view details = {};  // more of it
    std::string_view examples = {}; // one a line
    std::initializer_list<Argument> arguments = {};
    Line line = Line::kReady;
    Signs signs = Signs::kOne;

    // Does it and gives the result word; what was found goes to session.report. Throws SignFailure, and UsageError when
    // nothing was sent. A family of commands has none; its arguments are those of all its commands.
    std::uint32_t (*run)(Session& session, const Args& args) = nullptr;
};

// Commands below one heading.
struct CommandTable
{
    std::string_view group;
    std::span<const Command> commands;
};

} // namespace vxctl

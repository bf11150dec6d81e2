// The rows as CLI11 parses and prints them.
#pragma once

#include "vxctl/cli/command.h"

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace vxctl {

class CommandLine
{
public:
    CommandLine();

    // What the words behind the tool's name choose. Throws CLI::ParseError.
    const Command& Parse(std::vector<std::string> words);

    // What the last words had for the command and its families, and for the options of every command. Throws
    // UsageError.
    Args ArgsOf(const Command& command) const;

    const CLI::App& App() const { return app; }

    // The command or family that the last words led to; null when they led nowhere.
    const Command* Found() const;

    // The part of that command. Throws UsageError when there is none.
    const CLI::App& AppOf(const std::string& name) const;

private:
    struct Place
    {
        const Command* command; // null for the tool itself
        const Argument* argument;
        CLI::Option* option;
    };

    void Add(const CommandTable& table, const Command& command);
    void AddArguments(CLI::App& to, const Command* command, std::span<const Argument> arguments);

    CLI::App app{"vxctl, the command line for LED variable-message signs", "vxctl"};
    std::vector<Place> places;
    const Command* chosen = nullptr;
};

// The text for a value, such as "MS (50 to 60000)" or "on|off".
std::string ValueText(const Argument& argument);

} // namespace vxctl

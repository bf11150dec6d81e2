// Runs commands for whoever wants to know how they went, on any number of threads.
#pragma once

#include "vxctl/cli/command.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vxctl {

// How a command went.
struct Outcome // NOLINT(bugprone-exception-escape): JSON moves without one, whatever the lint sees in it
{
    std::uint32_t result = 0; // result word; VX_ARGUMENTS for what the command line cannot have
    int status = 0;           // the exit status of vxctl
    std::string reason = {};  // as the report tells them
    std::string advice = {};  //
    Report::Json values = {}; // what --json prints behind what it prints for every command; an object
    std::string lines = {};   // what is printed for people
    bool isRefused = false;   // nothing was sent, since the command line asks for what cannot be
};

// The words of a command, read once, for any number of signs and threads.
class Order
{
public:
    // Throws UsageError for words that are no command, and for a command that takes one sign.
    explicit Order(const std::vector<std::string>& words);
    Order(const Command& read, Args itsArgs) : command(&read), args(std::move(itsArgs)) {}

    const Command& What() const { return *command; }
    const Args& With() const { return args; }

    // Puts other files in the place of those that the command itself writes on this PC.
    void ChangeLocalFiles(const std::function<std::string(const std::string&)>& change)
    {
        args.ChangeLocalFiles({command->arguments.begin(), command->arguments.size()}, change);
    }

private:
    const Command* command;
    Args args;
};

// Runs it on the sign of the options; options among its own words do not count. The calling thread becomes that
// sign's. Prints nothing, never throws.
Outcome RunOn(const Options& sign, const Order& order);

// The same for the words of a command, such as "show", "--", "TEXT".
Outcome RunOn(const Options& sign, const std::vector<std::string>& words);

// The same for a session whose report may print as it goes. What does not come from the sign, the line or the command
// line is thrown on.
Outcome Run(Session& session, const Order& order);

} // namespace vxctl

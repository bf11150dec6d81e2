// Questions to whoever sits at the keyboard.
#pragma once

#include <string>

namespace vxctl {

enum class Echo
{
    kOn,
    kOff // what is typed stays unseen
};

// Asks on standard error, when standard input is a terminal, and reads one line of standard input without its end.
// Throws UsageError when there is none, and SignFailure on Ctrl-C.
std::string Ask(const std::string& question, Echo echo);

// Whether somebody can be asked: standard input is a terminal.
bool IsAsked();

} // namespace vxctl

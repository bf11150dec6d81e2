// What the terminal can show.
#pragma once

#include <sys/ioctl.h>
#include <unistd.h>

namespace vxsim {

// Columns of the terminal that standard output is; 0 if it is none.
inline int TerminalColumns()
{
    winsize size{};
    return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 ? size.ws_col : 0;
}

} // namespace vxsim

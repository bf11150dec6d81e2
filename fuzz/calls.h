// Exports that read what a sign answers: one at least for each shape of reply, of a list and of a transfer.
#pragma once

#include <span>

namespace vxsign::fuzz {

struct Call
{
    const char* name;
    void (*run)();
};

/// A row goes to the end: runs that are kept know them by their places.
std::span<const Call> AllCalls();

/// Runs one in EmptyFolder, over the line of the thread.
void Run(const Call& call);

} // namespace vxsign::fuzz

// What the library prints.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace vxctl {

// Takes what goes to standard output for as long as it lives, so that it does not stand among the results: it may have
// bytes of a device. Throws SignFailure when there is no room for it.
class LibraryOutput
{
public:
    LibraryOutput();
    ~LibraryOutput();
    LibraryOutput(const LibraryOutput&) = delete;
    LibraryOutput& operator=(const LibraryOutput&) = delete;

    // Gives standard output back, and what was printed; its start alone if that is very long.
    std::string Take();

private:
    void Restore();

    std::unique_ptr<FILE, int (*)(FILE*)> printed;
    int former = -1;
};

} // namespace vxctl

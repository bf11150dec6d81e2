// What the library prints.
#pragma once

#include "vxctl/platform/console.h"

#include <optional>
#include <string>

namespace vxctl {

// Takes what goes to standard output for as long as it lives, so that it does not stand among the results: it may have
// bytes of a device. Throws SignFailure when there is no room for it.
class LibraryOutput
{
public:
    LibraryOutput();

    // Gives standard output back, and what was printed; its start alone if that is very long.
    std::string Take();

private:
    std::optional<platform::Redirection> printed;
};

} // namespace vxctl

// Keeps what the library prints.
#include "vxctl/cli/libraryOutput.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/terminal.h"

namespace vxctl {

namespace {

constexpr std::size_t kLongest = 65536;

} // namespace

LibraryOutput::LibraryOutput()
{
    Flush();
    printed.emplace();
    if (!printed->IsMade())
        throw SignFailure(VX_OPEN_FILE);
}

std::string LibraryOutput::Take()
{
    printed->Restore();
    std::string text(kLongest, '\0');
    std::rewind(printed->Target());
    text.resize(std::fread(text.data(), 1, text.size(), printed->Target()));
    return text;
}

} // namespace vxctl

// Keeps what the library prints.
#include "vxctl/cli/libraryOutput.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/terminal.h"

#include <unistd.h>
#include <utility>

namespace vxctl {

namespace {

constexpr std::size_t kLongest = 65536;

} // namespace

LibraryOutput::LibraryOutput() : printed(std::tmpfile(), std::fclose)
{
    Flush();
    std::fflush(stdout);
    former = printed ? ::dup(STDOUT_FILENO) : -1;
    if (former < 0 || ::dup2(::fileno(printed.get()), STDOUT_FILENO) < 0)
        throw SignFailure(VX_OPEN_FILE);
}

LibraryOutput::~LibraryOutput()
{
    Restore();
}

void LibraryOutput::Restore()
{
    if (former < 0)
        return;
    std::fflush(stdout);
    ::dup2(former, STDOUT_FILENO);
    ::close(std::exchange(former, -1));
}

std::string LibraryOutput::Take()
{
    Restore();
    std::string text(kLongest, '\0');
    std::rewind(printed.get());
    text.resize(std::fread(text.data(), 1, text.size(), printed.get()));
    return text;
}

} // namespace vxctl

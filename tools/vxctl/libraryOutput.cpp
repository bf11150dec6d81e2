#include "vxctl/libraryOutput.h"

#include <iostream>
#include <unistd.h>
#include <utility>

namespace vxctl {

namespace {

constexpr std::size_t kLongest = 65536;

} // namespace

LibraryOutput::LibraryOutput() : printed(std::tmpfile(), std::fclose)
{
    std::cout.flush();
    std::fflush(stdout);
    if (!printed)
        return; // then it is seen
    former = ::dup(STDOUT_FILENO);
    if (former >= 0)
        ::dup2(::fileno(printed.get()), STDOUT_FILENO);
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
    if (!printed)
        return {};
    std::rewind(printed.get());
    text.resize(std::fread(text.data(), 1, text.size(), printed.get()));
    return text;
}

} // namespace vxctl

// vxctl, the command line.
#include "vxctl/cli/failure.h"
#include "vxctl/cli/runner.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/platform/console.h"

#include <exception>
#include <string>

int main(int argc, char** argv)
{
    using namespace vxctl;
    platform::PrepareTerminals();
    try {
        return RunTool({argv + 1, argv + argc});
    } catch (const std::exception& error) {
        PrintLine(Stream::kError, std::string("vxctl: ") + error.what());
        return kExitFailure;
    }
}

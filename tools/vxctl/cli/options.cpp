// The options of a command line.
#include "vxctl/cli/options.h"

#include "vxctl/cli/args.h"

namespace vxctl {

Options OptionsOf(const Args& args)
{
    return {args.Text("--sign"), args.Number("--timeout"), args.Number("--retries"), args.Number("--chunk"),
            args.Number<std::uint16_t>("--destination")};
}

} // namespace vxctl

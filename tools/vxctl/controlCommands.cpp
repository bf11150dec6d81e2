#include "vxctl/command.h"

#include <vxsign/control.h>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Control";

// A command without arguments that the library has as one function.
void AddPlain(CLI::App& app, Context& context, const CommandText& text, std::uint32_t (*function)())
{
    AddCommand(app, text)->callback([&context, function] {
        context.Connect();
        Check(function());
    });
}

} // namespace

void AddControlCommands(CLI::App& app, Context& context)
{
    AddPlain(app, context, {kGroup, "blank", "Turn the face dark", "Example:\n  vxctl blank"}, vxBlackScreen);
    AddPlain(app, context,
             {kGroup, "unblank", "Let the face show again what the sign plays", "Example:\n  vxctl unblank"},
             vxEndBlackScreen);
}

} // namespace vxctl

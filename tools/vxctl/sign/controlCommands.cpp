#include "vxctl/cli/command.h"

#include <vxsign/control.h>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Control";

// A command without arguments that the library has as one function.
void AddPlain(CLI::App& app, Session& session, const CommandText& text, std::uint32_t (*function)())
{
    AddCommand(app, text)->callback([&session, function] {
        session.Connect();
        Check(function());
    });
}

} // namespace

void AddControlCommands(CLI::App& app, Session& session)
{
    AddPlain(app, session, {kGroup, "blank", "Turn the face dark", "Example:\n  vxctl blank"}, vxBlackScreen);
    AddPlain(app, session,
             {kGroup, "unblank", "Let the face show again what the sign plays", "Example:\n  vxctl unblank"},
             vxEndBlackScreen);
}

} // namespace vxctl

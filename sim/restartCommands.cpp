#include "sim/restartCommands.h"

namespace vxsim {
namespace {

constexpr std::uint64_t kRestartMs = 2000;
// How often a host hears that the update is under way.
constexpr unsigned kUpdatePolls = 3;

} // namespace

std::span<const CommandRow> RestartCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {1, 15, "read update result", 0, 0, kUnlogged, Run<&RestartCommands::TellUpdate>,
         "code 7939: no update was made"},
        {4, 0, "reset", 0, 0, kLogged, Run<&RestartCommands::Reset, false>,
         "the face goes dark for 2 seconds, tests and tickers end, then `SEQUENT.SYS` plays anew. The sign answers "
         "meanwhile"},
        {4, 20, "cold reset", 0, 0, kLogged, Run<&RestartCommands::Reset, true>,
         "as 4, 0, and all that was set by majors 4 and 17 goes back to what it was at the start; the login ends"},
        {4, 25, "reset to data flash", 0, 0, kLogged, Run<&RestartCommands::ResetToUpdate>,
         "as 4, 0; the poll of an update is refused three times then"},
        {12, 13, "poll update", 0, 0, kUnlogged, Run<&RestartCommands::PollUpdate>,
         "after 4, 25 it is refused three times with 7938, then done; without, it is done at once"},
    };
    return kRows;
}

// The sign goes on answering while its face is dark: hosts ask for the update while it runs.
void RestartCommands::Begin(std::uint64_t nowMs, bool isCold)
{
    if (isCold && light.IsBlack())
        observers.Tell(&SignEvents::blackScreenChanged, false);
    if (isCold)
        light.Forget();
    const std::uint64_t untilMs = nowMs + kRestartMs;
    light.Restart(untilMs);
    for (CommandFamily* family : families)
        family->Restart(nowMs, isCold);
    observers.Tell(&SignEvents::restarting, untilMs);
}

Reply RestartCommands::Reset(const Call& call, bool isCold)
{
    Begin(call.nowMs, isCold);
    return Reply::Done();
}

Reply RestartCommands::ResetToUpdate(const Call& call)
{
    updatePolls = kUpdatePolls;
    return Reset(call, false);
}

// Whether the sign's program is there again. Without an update it has never been away.
Reply RestartCommands::PollUpdate(const Call&)
{
    if (updatePolls == 0)
        return Reply::Done();
    --updatePolls;
    return Reply::WithCode(Code::kUpdating);
}

Reply RestartCommands::TellUpdate(const Call&)
{
    return Reply::WithCode(Code::kNoUpdate);
}

} // namespace vxsim

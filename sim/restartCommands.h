// Commands that let the sign begin anew, and what becomes of an update then.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/state/faceLight.h"

#include <cstdint>
#include <span>
#include <vector>

namespace vxsim {

class RestartCommands : public CommandFamily
{
public:
    // `others` are all that restart with the sign.
    RestartCommands(FaceLight& faceLight, const std::vector<CommandFamily*>& others, const SignObservers& tell)
        : light(faceLight), families(others), observers(tell)
    {
    }

    std::span<const CommandRow> Commands() const override;

    // The sign begins anew; a cold start forgets what was set.
    void Begin(std::uint64_t nowMs, bool isCold);

private:
    Reply Reset(const Call& call, bool isCold);
    Reply ResetToUpdate(const Call& call);
    Reply PollUpdate(const Call& call);
    Reply TellUpdate(const Call& call);

    FaceLight& light;
    const std::vector<CommandFamily*>& families;
    const SignObservers& observers;
    unsigned updatePolls = 0; // that are still refused
};

} // namespace vxsim

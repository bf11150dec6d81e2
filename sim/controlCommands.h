// Commands for power, light, and the settings that the sign only keeps.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/state/faceLight.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <utility>
#include <vector>

namespace vxsim {

class ControlCommands : public CommandFamily
{
public:
    ControlCommands(FaceLight& faceLight, const SignObservers& tell) : light(faceLight), observers(tell) {}

    std::span<const CommandRow> Commands() const override;
    void Restart(std::uint64_t nowMs, bool isCold) override;

    // What a host has set with this minor of major 4, payload and extended part joined; empty if nothing.
    std::span<const std::uint8_t> Kept(std::uint8_t minor) const;

private:
    Reply SetBlack(const Call& call, bool isBlack);
    Reply Switch(const Call& call, bool isOn);
    Reply TellPower(const Call& call);
    Reply SetBrightness(const Call& call);
    Reply Keep(const Call& call);
    Reply Give(const Call& call, std::size_t size);
    Reply AskOrSet(const Call& call, std::size_t size);

    FaceLight& light;
    const SignObservers& observers;
    std::map<std::pair<std::uint8_t, std::uint8_t>, std::vector<std::uint8_t>> kept; // by major and minor
};

} // namespace vxsim

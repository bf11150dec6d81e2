#pragma once

#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <array>
#include <cstdint>
#include <map>
#include <span>
#include <vector>

namespace vxsim {

// Majors 4 and 17 but for black screen and reset: power, brightness, and the settings that the sign only keeps.
class ControlCommands
{
public:
    Reply Execute(const Frame& request);   // major 4
    Reply ExecuteFh(const Frame& request); // major 17

    bool IsOn() const { return on; }

    // Brightness of the front: 0 automatic, else eighths of full light, 8 being full.
    std::uint8_t Brightness() const { return brightness; }

    // What a host has set with this minor of major 4, payload and extended part joined; empty if nothing.
    std::span<const std::uint8_t> Kept(std::uint8_t minor) const;

    // As after switching the sign off and on.
    void ForgetAll() { *this = {}; }

private:
    Reply SetBrightness(const Frame& request, std::size_t sides);
    static Reply Switch(const Frame& request, std::uint8_t& state, std::size_t replySize);

    bool on = true;
    std::uint8_t brightness = 0;
    std::uint8_t commitStatus = 0;
    std::uint8_t generator = 0;
    std::array<std::uint8_t, 2> fh{};
    std::map<std::uint8_t, std::vector<std::uint8_t>> kept;
};

} // namespace vxsim

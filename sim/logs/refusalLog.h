// The commands that were refused last.
#pragma once

#include "sim/protocol/codes.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <string>

namespace vxsim {

// The latest commands that the sign refused, one line of text each: the sign's error log.
class RefusalLog
{
public:
    void Add(std::uint8_t major, std::uint8_t minor, Code code)
    {
        lines.push_back("major " + std::to_string(major) + " minor " + std::to_string(minor) + " code " +
                        std::to_string(static_cast<unsigned>(code)) + "\r\n");
        if (lines.size() > kMostLines)
            lines.pop_front();
    }

    // The oldest first; empty if nothing was refused.
    std::string Text() const
    {
        std::string text;
        for (const std::string& line : lines)
            text += line;
        return text;
    }

private:
    static constexpr std::size_t kMostLines = 24; // all of them fit one reply
    std::deque<std::string> lines;
};

} // namespace vxsim

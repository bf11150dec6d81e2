// The two ways in which a command fails.
#pragma once

#include <vxsign/result.h>

#include <cstdint>
#include <stdexcept>
#include <string>

namespace vxctl {

// Exit statuses.
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;

// The command line asks for something that cannot be: nothing was sent.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The sign or the line failed with a result word.
class SignFailure : public std::runtime_error
{
public:
    explicit SignFailure(std::uint32_t word) : std::runtime_error(vxErrorDesc(word)), code(word) {}

    std::uint32_t code;
};

// Throws SignFailure for every result but 0.
inline void Check(std::uint32_t result)
{
    if (result != VX_OK)
        throw SignFailure(result);
}

} // namespace vxctl

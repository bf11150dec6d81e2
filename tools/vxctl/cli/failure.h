// The two ways in which a command fails.
#pragma once

#include <vxsign/result.h>

#include <cstdint>
#include <stdexcept>
#include <string>
#include <utility>

namespace vxctl {

// Exit statuses.
inline constexpr int kExitFailure = 1;
inline constexpr int kExitUsage = 2;
inline constexpr int kExitSome = 3;     // of many signs some failed
inline constexpr int kExitSignal = 128; // and the number of the signal that ended the command

// The command line asks for something that cannot be: nothing was sent.
class UsageError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// The sign or the line failed with a result word. Where the reason is known it is told in place of advice.
class SignFailure : public std::runtime_error
{
public:
    explicit SignFailure(std::uint32_t word, std::string why = {})
        : std::runtime_error(vxErrorDesc(word)), code(word), reason(std::move(why))
    {
    }

    std::uint32_t code;
    std::string reason;
};

// The sign was not reached, so that it makes no sense to ask it something else.
constexpr bool IsLineDown(std::uint32_t result)
{
    return result == VX_ABORTED || result == VX_COMMUNICATION;
}

// False when the sign refuses. Throws SignFailure when the line fails.
inline bool IsDone(std::uint32_t result)
{
    if (IsLineDown(result))
        throw SignFailure(result);
    return result == VX_OK;
}

// Throws SignFailure for every result but 0.
inline void Check(std::uint32_t result)
{
    if (result != VX_OK)
        throw SignFailure(result);
}

} // namespace vxctl

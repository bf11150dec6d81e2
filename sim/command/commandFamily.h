// What a command of the sign is: a row of its family's table, and the call that reaches its handler.
#pragma once

#include "sim/command/arrival.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <cstdint>
#include <span>
#include <string_view>

namespace vxsim {

class CommandFamily;
struct CommandRow;

// A request on its way to its handler.
struct Call : Frame, Arrival
{
    const CommandRow& row;
};

// What stands first in a row.
struct Major
{
    std::uint8_t number;
    bool direct; // in packets for a tile

    constexpr Major(std::uint8_t of, bool isDirect = false) : number(of), direct(isDirect) {}
};

// What stands second: one minor, or several that follow each other and do the same.
struct Minors
{
    std::uint8_t first;
    std::uint8_t last;

    constexpr Minors(std::uint8_t only) : Minors(only, only) {}
    constexpr Minors(std::uint8_t from, std::uint8_t to) : first(from), last(to) {}
};
inline constexpr Minors kAnyMinor(0, 255);

// Whether the system log tells of a command. It does of those that change how the sign works.
inline constexpr bool kLogged = true;
inline constexpr bool kUnlogged = false;

// One command.
struct CommandRow
{
    Major major;
    Minors minors;
    std::string_view name;
    std::uint16_t leastPayload; // bytes, without which it is refused
    std::uint16_t leastData;    // likewise of the extended part
    bool logged;
    Reply (*run)(CommandFamily& family, const Call& call);
    std::string_view note = {}; // what the sign does, for its document

    constexpr bool IsOf(const Frame& request) const
    {
        return major.number == request.major && major.direct == request.tile;
    }
    constexpr bool IsFor(const Frame& request) const
    {
        return IsOf(request) && minors.first <= request.minor && request.minor <= minors.last;
    }
};

// Some commands of the sign and what they share.
class CommandFamily
{
public:
    CommandFamily() = default;
    CommandFamily(const CommandFamily&) = delete;
    CommandFamily& operator=(const CommandFamily&) = delete;
    virtual ~CommandFamily() = default;

    // Of commands with the same code, the first one whose payload a request fills is meant.
    virtual std::span<const CommandRow> Commands() const = 0;

    // Does what one of the rows says, or refuses a call that is too short for it. Here a family does what goes before
    // each of its commands, or behind it.
    virtual Reply Execute(const Call& call);

    // What it does of itself.
    virtual void KeepUp(std::uint64_t) {}

    // As switching the sign off and on leaves it; a cold start forgets what was set, too.
    virtual void Restart(std::uint64_t /*nowMs*/, bool /*isCold*/) {}

protected:
    // The handler of commands that have no effect to be seen.
    Reply Done(const Call&) { return Reply::Done(); }
};

template <typename>
struct FamilyOf;
template <typename Family, typename Signature>
struct FamilyOf<Signature Family::*>
{
    using Type = Family;
};

// Stands in a row for a handler, which is `Reply Method(const Call&)`. Values that follow it tell commands apart that
// differ in them alone; the handler takes them behind the call.
template <auto Method, auto... Values>
Reply Run(CommandFamily& family, const Call& call)
{
    using Family = typename FamilyOf<decltype(Method)>::Type;
    return (static_cast<Family&>(family).*Method)(call, Values...);
}

// The command that a request is for, and its family; null if the families have none.
struct Command
{
    CommandFamily* family = nullptr;
    const CommandRow* row = nullptr;
};
Command FindCommand(std::span<CommandFamily* const> families, const Frame& request);

// What a request without a command is refused with.
Code UnknownCode(std::span<CommandFamily* const> families, const Frame& request);

} // namespace vxsim

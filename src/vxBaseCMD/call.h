// The call frame: what every exported command does around its one own step.
//
//   Send<Family>(code, Payload..., Extended..., Reply...)   a flat command, one row of the protocol
//   Call<Family>(Required(pointers...), body)               an algorithm, handed the open command object
#pragma once

#include "vxBaseCMD/fields.h"
#include "vxBaseCMD/vxBaseCMD.h"

#include <vxsign/result.h>

#include <concepts>
#include <utility>

namespace vxsign {

/// What a command does between the opening and the closing of its channel. A reference to a callable that outlives the
/// call.
class Step
{
public:
    template <class Body>
    explicit Step(Body& body) : object(&body), run([](void* o) -> std::uint32_t { return (*static_cast<Body*>(o))(); })
    {
    }
    std::uint32_t operator()() const { return run(object); }

private:
    void* object;
    std::uint32_t (*run)(void*);
};

/// The frame: refuses a thread without configuration, opens the channel, runs the step, closes the channel. Whatever is
/// thrown, and a channel that does not open within the time of all tries, gives VX_COMMUNICATION.
std::uint32_t RunFrame(CBaseCMD& command, Step step) noexcept;

/// Runs a flat command on an open command object; usable as one step of an algorithm too.
std::uint32_t SendRow(CBaseCMD& command, const CommandRow& row);

/// Whether all of these pointers are there.
template <class... Pointers>
constexpr bool Required(const Pointers*... pointers)
{
    return ((pointers != nullptr) && ...);
}

/// An algorithm. Its arguments are checked after the channel was opened.
template <std::derived_from<CBaseCMD> Family, class Body>
std::uint32_t Call(bool argumentsGood, Body&& body) noexcept
{
    try {
        Family command;
        auto step = [&]() -> std::uint32_t {
            return argumentsGood ? body(command) : static_cast<std::uint32_t>(VX_ARGUMENTS);
        };
        return RunFrame(command, Step(step));
    } catch (...) { // no memory for the channel, or a callback that threw
        return VX_COMMUNICATION;
    }
}

template <std::derived_from<CBaseCMD> Family, class Body>
std::uint32_t Call(Body&& body) noexcept
{
    return Call<Family>(true, std::forward<Body>(body));
}

/// A flat command.
template <std::derived_from<CBaseCMD> Family, class... Parts>
std::uint32_t Send(Code code, const Parts&... parts) noexcept
{
    CommandRow row(code);
    (row.Add(parts), ...);
    return Call<Family>([&](Family& command) { return SendRow(command, row); });
}

/// The same as one step of an algorithm.
template <class... Parts>
std::uint32_t SendOn(CBaseCMD& command, Code code, const Parts&... parts)
{
    CommandRow row(code);
    (row.Add(parts), ...);
    return SendRow(command, row);
}

} // namespace vxsign

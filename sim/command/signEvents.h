// What a sign tells those who look on.
#pragma once

#include "sim/protocol/codes.h"
#include "sim/protocol/frame.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {

inline constexpr std::size_t kDisplayStyleSize = 52;

// A request that was answered.
struct Exchange
{
    const Frame& request;
    std::string_view name; // of the command
    Code code;             // that it was refused with, or kOk
    std::string_view remark;
};

// Told after the fact, from inside Answer. Each may be empty; none may call Answer.
struct SignEvents
{
    std::function<void()> sequenceWritten = {};                         // C:\SEQUENT.SYS was replaced or went
    std::function<void(const std::filesystem::path&)> fileWritten = {}; // any file, SEQUENT.SYS included
    std::function<void(std::span<const std::uint8_t, kDisplayStyleSize>)> displayStyleSet = {}; // the default one
    std::function<void(bool)> blackScreenChanged = {};   // true: the face is dark
    std::function<void(std::uint64_t)> restarting = {};  // dark up to this time in ms, then it plays anew
    std::function<void(const Exchange&)> answered = {};  // every request
    std::function<void(std::string_view)> heldBack = {}; // the command, whose password was not looked at
    std::function<void(const std::string&)> failed = {}; // what the sign could not do for itself, and why
};

// Who is told of them.
class SignObservers
{
public:
    void Add(SignEvents observer) { observers.push_back(std::move(observer)); }

    template <typename... Parts, typename... Given>
    void Tell(std::function<void(Parts...)> SignEvents::*event, const Given&... given) const
    {
        for (const SignEvents& observer : observers) {
            if (observer.*event)
                (observer.*event)(given...);
        }
    }

private:
    std::vector<SignEvents> observers;
};

} // namespace vxsim

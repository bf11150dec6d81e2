// What is to be known of a sign at one time.
#pragma once

#include "sim/server/server.h"
#include "sim/stage/stage.h"
#include "sim/state/climate.h"
#include "sim/state/condition.h"
#include "sim/virtualSign.h"

#include <cstdint>
#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {

// What plays, and why that is what is to be seen.
struct NowPlaying
{
    std::string list;
    std::string file;
    std::string next;
    std::vector<std::string_view> layers; // as VirtualSign::Layers

    bool operator==(const NowPlaying&) const = default;
};

struct SignMoment
{
    bool isOn = true;
    std::uint8_t light = 8; // eighths
    bool isFixed = false;   // and not by the hour
    std::int64_t secondsAhead = 0;
    Climate climate;
    NowPlaying playing;
    std::optional<LoginHolder> holder;
    SignCounters counters;
    Condition condition;
    LineSettings line;

    bool operator==(const SignMoment&) const = default;
};

// Why that is what is to be seen, in words.
std::string_view ReasonOf(const NowPlaying& playing);

nlohmann::json MomentJson(const SignMoment& moment, int width, int height);

} // namespace vxsim

// How warm it is in the sign and around it.
#pragma once

#include "sim/state/condition.h"
#include "sim/state/tiles.h"

#include <algorithm>
#include <cstdint>
#include <optional>

namespace vxsim {

inline constexpr int kTileLimit = 70; // degrees, above which a tile is too hot
inline constexpr int kBoxLimit = 60;  // likewise for the inside of the sign

// What a host has measured for the sign.
struct Weather
{
    std::uint8_t humidity = 0;
    int temperature16 = 0; // sixteenths of a degree
};

// Temperatures in degrees, humidity in percent.
struct Climate
{
    int outside = 0;
    int inside = 0;
    int box = 0; // mean of the tiles
    int tile = 0;
    int hotTile = 0; // of the tiles that are hot
    int hottest = 0;
    std::uint8_t humidity = 0;

    bool operator==(const Climate&) const = default;
};

// What the sign would measure: outside what a host has told, else a course of the day; inside the heat of the lamps.
Climate MeasureClimate(const Condition& condition, int tiles, int hour, int lightEighths,
                       const std::optional<Weather>& weather);

struct TemperatureSpan
{
    std::int64_t highest = 0;
    std::int64_t lowest = 0;
    std::int64_t sum = 0;
    std::int64_t count = 0;

    void Add(int degrees)
    {
        highest = count == 0 ? degrees : std::max<std::int64_t>(highest, degrees);
        lowest = count == 0 ? degrees : std::min<std::int64_t>(lowest, degrees);
        sum += degrees;
        ++count;
    }
    std::int64_t Average() const { return count == 0 ? 0 : sum / count; }
};

struct ClimateSpan
{
    TemperatureSpan outside;
    TemperatureSpan inside;
    TemperatureSpan box;

    void Add(const Climate& climate)
    {
        outside.Add(climate.outside);
        inside.Add(climate.inside);
        box.Add(climate.box);
    }
};

} // namespace vxsim

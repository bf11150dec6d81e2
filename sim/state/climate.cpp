#include "sim/state/climate.h"

namespace vxsim {
namespace {

constexpr int kLowestOutside = -60; // what a sensor of a sign tells
constexpr int kHighestOutside = 99;
constexpr int kNightly = 12;
constexpr int kHeatOfElectronics = 8;
constexpr int kHeatOfTile = 5;
constexpr int kFaultyTile = 85;
constexpr std::uint8_t kUsualHumidity = 55;

} // namespace

Climate MeasureClimate(const Condition& condition, int tiles, int hour, int lightEighths,
                       const std::optional<Weather>& weather)
{
    Climate climate;
    climate.outside = weather ? weather->temperature16 / 16 : kNightly + std::min(hour, 24 - hour);
    climate.outside = std::clamp(climate.outside, kLowestOutside, kHighestOutside);
    climate.humidity = weather ? std::min<std::uint8_t>(weather->humidity, 100) : kUsualHumidity;
    climate.tile = climate.outside + kHeatOfElectronics + lightEighths + kHeatOfTile;
    climate.hotTile = std::max(climate.tile, kFaultyTile);
    const int hot = std::min(static_cast<int>(condition.hotTiles.size()), tiles);
    climate.box = (hot * climate.hotTile + (tiles - hot) * climate.tile) / std::max(tiles, 1);
    climate.inside = climate.box - kHeatOfTile;
    climate.hottest = hot > 0 ? climate.hotTile : climate.tile;
    return climate;
}

} // namespace vxsim

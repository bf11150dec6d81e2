#include "sim/web/signMoment.h"

#include "sim/files/signText.h"
#include "sim/state/tiles.h"
#include "sim/web/jsonText.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <utility>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr std::pair<std::string_view, std::string_view> kReasons[] = {
    {"off", "the sign has no power"},
    {"blank", "a host has blanked the face"},
    {"restart", "the sign restarts"},
    {"emergency", "an emergency program plays"},
    {"test", "a test runs"},
    {"ticker", "a ticker runs"},
    {"signals", "it is a traffic signal controller"},
    {"windows", "programs have windows"},
    {"video-window", "a video window is open"},
    {"video-input", "a video input is chosen"},
    {"program", "a program plays"},
    {"zones", "zones are shown"},
    {"list", "its turn in the list"},
};

json ConditionJson(const Condition& condition)
{
    json lamps = json::array();
    for (const auto& [place, fault] : condition.badLamps)
        lamps.push_back({{"x", place.x}, {"y", place.y}, {"lamp", LampWord(place.lamp)}, {"fault", FaultWord(fault)}});
    json errors = json::object();
    for (const auto& [tile, state] : condition.tileErrors)
        errors[std::to_string(tile)] = TaskErrorWord(state);
    return {{"lamps", std::move(lamps)},
            {"hotTiles", condition.hotTiles},
            {"tileErrors", std::move(errors)},
            {"lockedTiles", condition.lockedTiles},
            {"door", condition.doorOpen ? "open" : "closed"}};
}

json TilesJson(int width, int height)
{
    const Tiles tiles(width, height);
    json rows = json::array();
    for (int address = 1; address <= tiles.Count(); ++address) {
        if (tiles.ColumnOf(address) == 0)
            rows.push_back(json::array());
        rows.back().push_back(address);
    }
    return {{"columns", tiles.Columns()},
            {"rows", rows.size()},
            {"width", Tiles::kSide},
            {"height", Tiles::kSide},
            {"addresses", std::move(rows)}};
}

json LineJson(const LineSettings& line)
{
    return {{"drop", line.faults.drop},     {"truncate", line.faults.truncate}, {"wrongId", line.faults.wrongId},
            {"badSum", line.faults.badSum}, {"noise", line.faults.noise},       {"delay", line.delay.count()},
            {"unplugged", line.unplugged}};
}

} // namespace

std::string_view ReasonOf(const NowPlaying& playing)
{
    const std::string_view top = playing.layers.front();
    if (top == "list" && playing.file.empty())
        return "the list has nothing to show now";
    const auto* const reason = std::ranges::find(kReasons, top, &std::pair<std::string_view, std::string_view>::first);
    return reason == std::end(kReasons) ? top : reason->second;
}

json MomentJson(const SignMoment& moment, int width, int height)
{
    json hosts = json::array();
    if (moment.holder)
        hosts.push_back({{"host", AddressText(moment.holder->host)}, {"user", moment.holder->user}});
    const SignCounters& counters = moment.counters;
    return {{"power", moment.isOn},
            {"light", moment.light},
            {"lightFixed", moment.isFixed},
            {"door", moment.condition.doorOpen ? "open" : "closed"},
            {"clock",
             {{"local", LocalTimeText(std::time(nullptr) + moment.secondsAhead)}, {"offset", moment.secondsAhead}}},
            {"temperatureC", moment.climate.outside},
            {"insideC", moment.climate.inside},
            {"boxC", moment.climate.box},
            {"hottestTileC", moment.climate.hottest},
            {"humidityPercent", moment.climate.humidity},
            {"playing",
             {{"list", moment.playing.list},
              {"file", moment.playing.file},
              {"next", moment.playing.next},
              {"why", ReasonOf(moment.playing)}}},
            {"hosts", std::move(hosts)},
            {"counters",
             {{"answered", counters.answered},
              {"refused", counters.refused},
              {"malformed", counters.malformed},
              {"filesWritten", counters.filesWritten}}},
            {"condition", ConditionJson(moment.condition)},
            {"tiles", TilesJson(width, height)},
            {"line", LineJson(moment.line)}};
}

} // namespace vxsim

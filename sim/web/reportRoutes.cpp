// What the sign holds: play list, logs, devices.
#include "sim/content/playOrder.h"
#include "sim/state/tiles.h"
#include "sim/web/jsonText.h"
#include "sim/web/logTables.h"
#include "sim/web/queryText.h"
#include "sim/web/routes.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr std::uint64_t kUsualRows = 200;
constexpr std::uint64_t kMostRows = 10000;

// The list that plays, for another thread.
struct ListCopy
{
    Sequence list;
    std::optional<std::size_t> playing; // its place among the files in the order of the first round
    NowPlaying now;
};

ListCopy CopyList(SignDesk& desk)
{
    return desk.Questions().Ask([&] {
        Stage& stage = desk.Sign().stage;
        NowPlaying now = desk.MomentAt(NowMs()).playing; // a list that is due to begin anew does so here
        ListCopy copy{stage.List(), std::nullopt, std::move(now)};
        const auto files = FilesInOrder(stage.List());
        const auto file = std::ranges::find(files, stage.ListedFile());
        if (file != files.end())
            copy.playing = static_cast<std::size_t>(file - files.begin());
        return copy;
    });
}

json TreeOf(const std::vector<SequenceItem>& items, const FileEntry* playing)
{
    json nodes = json::array();
    for (const SequenceItem& item : items) {
        if (!item.file)
            nodes.push_back({{"text", item.groupName},
                             {"random", item.playType == kAtRandom},
                             {"playing", false},
                             {"children", TreeOf(item.children, playing)}});
        else
            nodes.push_back({{"text", item.file->path},
                             {"file", item.file->path},
                             {"times", std::max<int>(item.file->playTimes, 1)},
                             {"schedules", item.file->schedules.size()},
                             {"playing", &*item.file == playing},
                             {"children", json::array()}});
    }
    return nodes;
}

json PlayListJson(const ListCopy& copy)
{
    const FileEntry* const playing = copy.playing ? FilesInOrder(copy.list)[*copy.playing] : nullptr;
    return {{"list", copy.now.list},
            {"file", copy.now.file},
            {"next", copy.now.next},
            {"why", ReasonOf(copy.now)},
            {"items", TreeOf(copy.list.items, playing)}};
}

json LogsJson(const std::filesystem::path& database, const httplib::Request& request)
{
    if (!request.has_param("table"))
        return {{"tables", LogTableNames(database)}};
    const std::uint64_t limit = NumberIn(request, "limit", kUsualRows, kMostRows);
    const LogTable table = ReadLogTable(database, request.get_param_value("table"), limit);
    return {{"columns", table.columns}, {"rows", table.rows}};
}

// What stands at the sign, for another thread.
struct DevicesCopy
{
    SignMoment moment;
    ModbusDevices::Written registers;
    std::optional<SignalSituation> signals;
};

DevicesCopy CopyDevices(SignDesk& desk)
{
    return desk.Questions().Ask([&] {
        const WebSign& web = desk.Sign();
        const std::uint64_t nowMs = NowMs();
        DevicesCopy copy{desk.MomentAt(nowMs), {}, std::nullopt};
        if (web.devices != nullptr)
            copy.registers = web.devices->Registers();
        if (web.sign.Traffic() != nullptr)
            copy.signals = web.sign.Traffic()->SignalsAt(nowMs);
        return copy;
    });
}

json ModbusJson(const ModbusDevices::Written& registers)
{
    json devices = json::array();
    for (const auto& [place, value] : registers) {
        if (devices.empty() || devices.back()["address"] != place.first)
            devices.push_back({{"address", place.first}, {"registers", json::array()}});
        devices.back()["registers"].push_back({{"register", place.second}, {"value", value}});
    }
    return devices;
}

json TilesJson(const SignMoment& moment, const Tiles& tiles)
{
    json rows = json::array();
    for (int address = 1; address <= tiles.Count(); ++address) {
        const bool isHot = moment.condition.hotTiles.contains(address);
        const auto error = moment.condition.tileErrors.find(address);
        rows.push_back({{"address", address},
                        {"column", tiles.ColumnOf(address)},
                        {"row", tiles.RowOf(address)},
                        {"temperatureC", isHot ? moment.climate.hotTile : moment.climate.tile},
                        {"hot", isHot},
                        {"locked", moment.condition.lockedTiles.contains(address)},
                        {"error", error == moment.condition.tileErrors.end() ? "" : TaskErrorWord(error->second)}});
    }
    return rows;
}

json SignalsJson(const std::optional<SignalSituation>& signals)
{
    json groups = json::array();
    for (std::size_t i = 0; signals && i < signals->lamps.size(); ++i) {
        const unsigned lamps = signals->lamps[i];
        groups.push_back({{"group", i + 1},
                          {"red", (lamps & kRedLamp) != 0},
                          {"yellow", (lamps & kYellowLamp) != 0},
                          {"green", (lamps & kGreenLamp) != 0}});
    }
    return groups;
}

json DevicesJson(const DevicesCopy& copy, const Tiles& tiles)
{
    return {{"modbus", ModbusJson(copy.registers)},
            {"tiles", TilesJson(copy.moment, tiles)},
            {"signals", SignalsJson(copy.signals)}};
}

} // namespace

void AddReports(HttpServer& server, const DeskOf& deskOf)
{
    const auto say = [](httplib::Response& response, const json& what) {
        response.set_content(Dump(what), "application/json");
    };
    server.Get("/api/playlist", [deskOf, say](const auto& request, auto& response) {
        say(response, PlayListJson(CopyList(deskOf(request))));
    });
    server.Get("/api/logs", [deskOf, say](const auto& request, auto& response) {
        SignDesk& desk = deskOf(request);
        desk.Questions().Ask([&] { desk.Sign().sign.WriteLogs(); });
        say(response, LogsJson(desk.Sign().sign.Settings().folder / "sign" / "logs.sqlite", request));
    });
    server.Get("/api/devices", [deskOf, say](const auto& request, auto& response) {
        SignDesk& desk = deskOf(request);
        const SignSettings& settings = desk.Sign().sign.Settings();
        say(response, DevicesJson(CopyDevices(desk), Tiles(settings.width, settings.height)));
    });
}

} // namespace vxsim

#include "sim/state/condition.h"

#include "sim/files/storedRecord.h"
#include "sim/state/tiles.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <stdexcept>
#include <sys/stat.h>
#include <vector>

namespace vxsim {
namespace {

constexpr std::string_view kLamps[] = {"red", "green", "blue"};
constexpr std::string_view kFaults[] = {"dark", "stuck", "signal"};
constexpr std::string_view kAll = "all";
constexpr int kMostNumber = 65535;
constexpr std::size_t kMostText = 1U << 20;

std::vector<std::string_view> Split(std::string_view text, char separator)
{
    std::vector<std::string_view> parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.push_back(text.substr(0, end));
        if (end == std::string_view::npos)
            return parts;
        text.remove_prefix(end + 1);
    }
}

[[noreturn]] void Refuse(std::string_view value, const char* wanted)
{
    throw std::invalid_argument("'" + std::string(value) + "' is no " + wanted);
}

std::optional<int> Number(std::string_view text)
{
    int number = -1;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc() || end != text.data() + text.size() || number < 0 || number > kMostNumber)
        return std::nullopt;
    return number;
}

// The place in a list of names, or its size.
template <std::size_t N>
std::size_t Find(const std::string_view (&names)[N], std::string_view name)
{
    return static_cast<std::size_t>(std::ranges::find(names, name) - std::begin(names));
}

void Break(Condition& condition, std::string_view value)
{
    constexpr const char* kWanted = "pixel such as 3,4,red or 3,4,all,stuck";
    const auto parts = Split(value, ',');
    if (parts.size() < 3 || parts.size() > 4)
        Refuse(value, kWanted);
    const auto x = Number(parts[0]);
    const auto y = Number(parts[1]);
    const std::size_t lamp = Find(kLamps, parts[2]);
    const std::size_t fault = parts.size() == 4 ? Find(kFaults, parts[3]) : 0;
    if (!x || !y || (lamp == std::size(kLamps) && parts[2] != kAll) || fault == std::size(kFaults))
        Refuse(value, kWanted);
    for (std::size_t i = 0; i < std::size(kLamps); ++i) {
        if (i == lamp || lamp == std::size(kLamps))
            condition.badLamps[{*y, *x, static_cast<Lamp>(i)}] = static_cast<LampFault>(fault);
    }
}

void Mend(Condition& condition, std::string_view value)
{
    if (value == kAll)
        return condition.badLamps.clear();
    const auto parts = Split(value, ',');
    const auto x = Number(parts[0]);
    const auto y = parts.size() == 2 ? Number(parts[1]) : std::nullopt;
    if (!x || !y)
        Refuse(value, "pixel such as 3,4");
    for (const Lamp lamp : {Lamp::kRed, Lamp::kGreen, Lamp::kBlue})
        condition.badLamps.erase({*y, *x, lamp});
}

int TileNumber(std::string_view value)
{
    const auto tile = Number(value);
    if (!tile || *tile == 0)
        Refuse(value, "tile: they count from 1");
    return *tile;
}

// Adds a tile to those that are hot or locked, or takes one or all from them.
void Mark(std::set<int>& tiles, std::string_view value, bool add)
{
    if (!add && value == kAll)
        return tiles.clear();
    const int tile = TileNumber(value);
    if (add)
        tiles.insert(tile);
    else
        tiles.erase(tile);
}

void Trouble(Condition& condition, std::string_view value)
{
    const auto parts = Split(value, ',');
    const auto* error =
        std::ranges::find(kTaskErrors, parts.size() == 2 ? parts[1] : std::string_view(), &TaskErrorName::name);
    if (error == std::end(kTaskErrors))
        Refuse(value, "error of a tile such as 3,bus");
    condition.tileErrors[TileNumber(parts[0])] = error->state;
}

void EndTrouble(Condition& condition, std::string_view value)
{
    if (value == kAll)
        return condition.tileErrors.clear();
    condition.tileErrors.erase(TileNumber(value));
}

int HighestTile(const Condition& condition)
{
    const auto highest = [](const std::set<int>& tiles) { return tiles.empty() ? 0 : *tiles.rbegin(); };
    const int failing = condition.tileErrors.empty() ? 0 : condition.tileErrors.rbegin()->first;
    return std::max({highest(condition.hotTiles), highest(condition.lockedTiles), failing});
}

} // namespace

void CheckChange(std::string_view what, std::string_view value, int width, int height)
{
    Condition condition;
    Change(condition, what, value);
    const auto isBeyond = [&](const auto& lamp) { return lamp.first.x >= width || lamp.first.y >= height; };
    const auto refuse = [&](const std::string& wanted) {
        throw std::invalid_argument("'" + std::string(value) + "' is not " + wanted);
    };
    if (std::ranges::any_of(condition.badLamps, isBeyond))
        refuse("a pixel of a face of " + std::to_string(width) + "x" + std::to_string(height));
    if (const int tiles = Tiles(width, height).Count(); HighestTile(condition) > tiles)
        refuse("one of the " + std::to_string(tiles) + " tiles of this face");
}

void Change(Condition& condition, std::string_view what, std::string_view value)
{
    if (what == "bad")
        return Break(condition, value);
    if (what == "good")
        return Mend(condition, value);
    if (what == "hot" || what == "cool")
        return Mark(condition.hotTiles, value, what == "hot");
    if (what == "lock" || what == "unlock")
        return Mark(condition.lockedTiles, value, what == "lock");
    if (what == "tile-error")
        return Trouble(condition, value);
    if (what == "tile-good")
        return EndTrouble(condition, value);
    if (what != "door")
        Refuse(what, "thing that can be changed");
    if (value != "open" && value != "closed")
        Refuse(value, "state of a door: open or closed");
    condition.doorOpen = value == "open";
}

Condition ParseCondition(std::string_view text)
{
    Condition condition;
    for (std::string_view line : Split(text, '\n')) {
        line = line.substr(0, line.find('\r'));
        const std::size_t blank = std::min(line.find(' '), line.size());
        try {
            Change(condition, line.substr(0, blank), line.substr(std::min(blank + 1, line.size())));
        } catch (const std::invalid_argument&) { // a comment, or half a line of somebody who is writing
        }
    }
    return condition;
}

std::string ConditionText(const Condition& condition)
{
    std::string text = condition.doorOpen ? "door open\n" : "door closed\n";
    for (const int tile : condition.hotTiles)
        text += "hot " + std::to_string(tile) + "\n";
    for (const int tile : condition.lockedTiles)
        text += "lock " + std::to_string(tile) + "\n";
    for (const auto& [tile, state] : condition.tileErrors) {
        text += "tile-error " + std::to_string(tile) + ",";
        text.append(TaskErrorWord(state)).append("\n");
    }
    for (const auto& [place, fault] : condition.badLamps) {
        text += "bad " + std::to_string(place.x) + "," + std::to_string(place.y) + ",";
        text.append(LampWord(place.lamp)).append(",").append(FaultWord(fault)).append("\n");
    }
    return text;
}

std::string_view LampName(Lamp lamp)
{
    constexpr std::string_view kNames[] = {"Red", "Green", "Blue"};
    return kNames[static_cast<std::size_t>(lamp)];
}

std::string_view LampWord(Lamp lamp)
{
    return kLamps[static_cast<std::size_t>(lamp)];
}

std::string_view FaultWord(LampFault fault)
{
    return kFaults[static_cast<std::size_t>(fault)];
}

std::string_view TaskErrorWord(TaskState state)
{
    return std::ranges::find(kTaskErrors, state, &TaskErrorName::state)->name;
}

ConditionFile::ConditionFile(const std::filesystem::path& signFolder) : path(signFolder / "sign" / "condition.txt")
{
}

std::optional<Condition> ConditionFile::Changed()
{
    struct stat status = {};
    std::string stamp;
    if (::stat(path.c_str(), &status) == 0) {
        for (const auto part :
             {static_cast<std::int64_t>(status.st_ino), static_cast<std::int64_t>(status.st_size),
              static_cast<std::int64_t>(status.st_mtim.tv_sec), static_cast<std::int64_t>(status.st_mtim.tv_nsec)})
            stamp += std::to_string(part) + " ";
    }
    if (stamp == lastStamp)
        return std::nullopt;
    lastStamp = stamp;
    return Read();
}

Condition ConditionFile::Read() const
{
    const auto bytes = ReadFileStart(path, kMostText);
    return ParseCondition({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
}

void ConditionFile::Write(const Condition& condition) const
{
    const std::string text = ConditionText(condition);
    if (text.size() > kMostText)
        throw std::invalid_argument("more is wrong than " + path.string() + " has room for");
    if (!ReplaceFile(path, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()}))
        throw std::runtime_error("cannot write " + path.string());
}

} // namespace vxsim

#include "sim/monitor/monitor.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

constexpr std::uint64_t kLookMs = 200;
constexpr std::uint64_t kReadingMs = 6000;
constexpr std::int64_t kReadingsInSpan = 10; // a minute
// Of one kind at one time; the file that brought them may have thousands.
constexpr std::size_t kMostEvents = 200;

constexpr int kTileVoltage = 5000; // mV

std::string LampNote(const LampPlace& place, LampFault fault)
{
    return "(" + std::to_string(place.x) + "," + std::to_string(place.y) + ") " + std::string(LampName(place.lamp)) +
           (fault == LampFault::kSignal ? " Signal Bad" : " Pixel Bad");
}

std::size_t Signals(const Condition& condition)
{
    return static_cast<std::size_t>(
        std::ranges::count_if(condition.badLamps, [](const auto& bad) { return bad.second == LampFault::kSignal; }));
}

std::uint16_t Short(std::size_t count)
{
    return static_cast<std::uint16_t>(std::min<std::size_t>(count, 65535));
}

} // namespace

Monitor::Monitor(const std::filesystem::path& signFolder, const Drives& drives, SignDatabase& tables,
                 const TimeCommands& clock, const FaceLight& faceLight, int faceWidth, int faceHeight)
    : file(signFolder), database(tables), time(clock), light(faceLight), log(tables),
      warnings(drives, Tiles(faceWidth, faceHeight)), samples(drives, signFolder / "sign" / "radar.log"),
      tiles(faceWidth, faceHeight), width(faceWidth), height(faceHeight)
{
}

void Monitor::KeepUp(std::uint64_t nowMs)
{
    if (startedMs && nowMs < nextLookMs)
        return;
    nextLookMs = nowMs + kLookMs;
    const ClockTime now = TimeAt(nowMs);
    const bool first = !startedMs;
    if (first) {
        startedMs = nowMs;
        log.Started(now);
    }
    if (auto told = file.Changed()) {
        const Condition next = OnFace(std::move(*told));
        if (next != condition) {
            NoteChanges(next, now);
            condition = next;
            const Climate climate = Measure(nowMs);
            warnings.Report(condition, climate, now);
            WriteTiles(climate, nowMs);
        }
    }
    if (first || nowMs >= nextReadingMs)
        Read(nowMs);
}

// A file may tell of more than this face has.
Condition Monitor::OnFace(Condition told) const
{
    std::erase_if(told.badLamps, [this](const auto& bad) { return bad.first.x >= width || bad.first.y >= height; });
    std::erase_if(told.hotTiles, [this](int tile) { return tile > tiles.Count(); });
    std::erase_if(told.lockedTiles, [this](int tile) { return tile > tiles.Count(); });
    std::erase_if(told.tileErrors, [this](const auto& error) { return error.first > tiles.Count(); });
    return told;
}

void Monitor::NoteChanges(const Condition& next, const ClockTime& now)
{
    std::vector<Warning> fresh;
    if (next.doorOpen != condition.doorOpen)
        log.Event(EventType::kDoor, next.doorOpen, next.doorOpen ? "Door open" : "Door closed", now);
    const auto lamps = [&](const Condition& from, const Condition& to, bool came) {
        std::size_t events = 0;
        for (const auto& [place, fault] : to.badLamps) {
            const auto known = from.badLamps.find(place);
            if ((known != from.badLamps.end() && known->second == fault) || ++events > kMostEvents)
                continue;
            log.Event(fault == LampFault::kSignal ? EventType::kSignal : EventType::kPixel, came,
                      LampNote(place, fault), now);
            if (came)
                fresh.push_back(Warning::BadLamp(place, fault));
        }
    };
    const auto heat = [&](const Condition& from, const Condition& to, bool came) {
        std::size_t events = 0;
        for (const int tile : to.hotTiles) {
            if (from.hotTiles.contains(tile) || ++events > kMostEvents)
                continue;
            log.Event(EventType::kTile, came, "Tile " + std::to_string(tile) + (came ? " hot" : " cool"), now);
            if (came)
                fresh.push_back(Warning::HotTile(tile));
        }
    };
    lamps(next, condition, false);
    lamps(condition, next, true);
    heat(next, condition, false);
    heat(condition, next, true);
    warnings.Add(fresh, now);
}

void Monitor::Read(std::uint64_t nowMs)
{
    const ClockTime now = TimeAt(nowMs);
    nextReadingMs = nowMs + kReadingMs;
    const Climate climate = Measure(nowMs);
    const bool first = span.outside.count == 0 && nowMs == *startedMs;
    if (span.outside.count == 0)
        spanBegin = now;
    span.Add(climate);
    const bool boxIsHot = climate.box > kBoxLimit;
    if (boxIsHot && !boxWasHot) {
        const Warning hot = Warning::Temperature(WarningType::kInside, climate.inside, kBoxLimit);
        warnings.Add({&hot, 1}, now);
    }
    boxWasHot = boxIsHot;
    if (!first && span.outside.count < kReadingsInSpan) // the first one tells at once what there is
        return;
    log.Temperatures(span, spanBegin, now);
    span = {};
    samples.Add(TakeSample(now, climate.outside), now);
    warnings.Report(condition, climate, now);
    WriteTiles(climate, nowMs);
}

Climate Monitor::Measure(std::uint64_t nowMs) const
{
    return MeasureClimate(condition, tiles.Count(), static_cast<int>(TimeAt(nowMs).hour),
                          light.IsDark(nowMs) ? 0 : light.LevelAt(nowMs), time.LastWeather());
}

void Monitor::WriteTiles(const Climate& climate, std::uint64_t nowMs)
{
    std::vector<std::int64_t> bad(static_cast<std::size_t>(tiles.Count()) + 1);
    std::vector<std::int64_t> signals(bad.size());
    for (const auto& [place, fault] : condition.badLamps)
        ++(fault == LampFault::kSignal ? signals : bad)[static_cast<std::size_t>(tiles.At(place.x, place.y))];
    std::vector<SignDatabase::Row> rows;
    for (int tile = 1; tile <= tiles.Count(); ++tile) {
        const bool hot = condition.hotTiles.contains(tile);
        const auto index = static_cast<std::size_t>(tile);
        const int left = tiles.ColumnOf(tile) * Tiles::kSide;
        const int top = tiles.RowOf(tile) * Tiles::kSide;
        rows.push_back({std::int64_t{tile}, std::int64_t{tiles.ColumnOf(tile)}, std::int64_t{tiles.RowOf(tile)},
                        std::int64_t{std::min(Tiles::kSide, width - left)},
                        std::int64_t{std::min(Tiles::kSide, height - top)},
                        std::int64_t{hot ? climate.hotTile : climate.tile}, std::int64_t{kTileVoltage}, "VT16", "1.0",
                        static_cast<std::int64_t>((nowMs - *startedMs) / 1000), "RGB", bad[index], signals[index],
                        std::int64_t{hot}, "VXTILE" + std::to_string(tile), std::int64_t{kTileLimit},
                        hot ? "hot" : "good", std::int64_t{light.LevelAt(nowMs)}});
    }
    database.Replace("TileInfo", rows);
}

SignState Monitor::StateAt(std::uint64_t nowMs) const
{
    const Climate climate = Measure(nowMs);
    const bool isDark = light.IsDark(nowMs);
    SignState state;
    auto& [word, record] = state;
    word[0] = static_cast<std::uint8_t>(
        (condition.badLamps.empty() ? 0 : kBadPixels) | (condition.hotTiles.empty() ? 0 : kHotTiles) |
        (condition.doorOpen ? kDoorOpen : 0) | (light.IsOn() ? 0 : kNoPower) | (isDark ? kFaceDark : 0));
    word[1] = static_cast<std::uint8_t>(climate.inside);
    word[2] = static_cast<std::uint8_t>(climate.outside);
    word[4] = static_cast<std::uint8_t>(climate.hottest);
    word[6] = climate.humidity;
    // The first bytes of the record stay 0, so that hosts take those of the word.
    const std::size_t signals = Signals(condition);
    Store16(record, 4, Short(condition.badLamps.size() - signals));
    Store16(record, 6, Short(signals));
    Store16(record, 8, Short(condition.hotTiles.size()));
    Store16(record, 10, Short(static_cast<std::size_t>(tiles.Count())));
    record[12] = condition.doorOpen ? 1 : 0;
    record[13] = light.IsOn() ? 1 : 0;
    record[14] = isDark ? 1 : 0;
    record[15] = light.LevelAt(nowMs);
    Store32(record, 80, RunSeconds(nowMs));
    return state;
}

std::uint32_t Monitor::RunSeconds(std::uint64_t nowMs) const
{
    return static_cast<std::uint32_t>((nowMs - startedMs.value_or(nowMs)) / 1000);
}

TileMoment Monitor::TilesAt(std::uint64_t nowMs) const
{
    return {nowMs, condition, Measure(nowMs), RunSeconds(nowMs)};
}

} // namespace vxsim

#include "sim/logs/warningFiles.h"

#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

constexpr const char* kRingPath = "E:\\STATUS.SYS";
constexpr const char* kReportPath = "E:\\errors.xml";
constexpr const char* kLogPath = "D:\\log\\vxspeapp.log";

constexpr std::size_t kRingHeader = 32;
constexpr std::size_t kRingRecord = 8;
constexpr std::size_t kRingPair = 2 * kRingRecord;
constexpr std::size_t kRingPosition = 8;
constexpr std::uint8_t kTimeStamp = 5;

constexpr std::uint8_t kTileTemperature = 1;
constexpr std::uint8_t kFirstSignal = 4; // codes 1 to 3 are bad lamps, 4 to 6 bad signals

constexpr std::size_t kLogHeader = 16;
constexpr std::size_t kLogRow = 32;

std::uint8_t Byte(int value)
{
    return static_cast<std::uint8_t>(value);
}

std::string Element(const std::string& name, const std::string& content)
{
    return "<" + name + ">" + content + "</" + name + ">\n";
}

} // namespace

Warning Warning::Temperature(WarningType type, int degrees, int limit)
{
    return {type, {Byte(degrees), Byte(limit), 0, 0}};
}

Warning Warning::HotTile(int address)
{
    return {WarningType::kTile, {kTileTemperature, Byte(address), Byte(address >> 8), 0}};
}

// The low byte of X has no room beside the code.
Warning Warning::BadLamp(const LampPlace& place, LampFault fault)
{
    const int first = fault == LampFault::kSignal ? kFirstSignal : 1;
    return {WarningType::kLamp,
            {Byte(first + static_cast<int>(place.lamp)), Byte(place.x >> 8), Byte(place.y), Byte(place.y >> 8)}};
}

void WarningFiles::Add(std::span<const Warning> warnings, const ClockTime& time) const
{
    if (warnings.empty())
        return;
    AddToRing(warnings, time);
    AddToLog(warnings, time);
}

// Each warning stands behind a time stamp of its own. The ring position is that of the latest warning: a host looks
// for the first time stamp behind it, which is the oldest, and reads around until it is back.
void WarningFiles::AddToRing(std::span<const Warning> warnings, const ClockTime& time) const
{
    const auto file = drives.Resolve(kRingPath);
    if (!file)
        return;
    auto ring = ReadFileStart(*file, kRingHeader + kRingPairs * kRingPair);
    if (ring.size() < kRingHeader + kRingPair || ring[0] != 'S' || ring[1] != 'T') {
        ring.assign(kRingHeader, 0);
        ring[0] = 'S';
        ring[1] = 'T';
    }
    ring.resize(ring.size() - (ring.size() - kRingHeader) % kRingPair);
    std::size_t pair = (ring.size() - kRingHeader) / kRingPair;
    if (pair == kRingPairs)
        pair = (Load16(ring, kRingPosition) / 2U + 1U) % kRingPairs;
    for (const Warning& warning : warnings) {
        const std::size_t at = kRingHeader + pair * kRingPair;
        if (at == ring.size())
            ring.resize(at + kRingPair);
        const std::span<std::uint8_t> records = std::span(ring).subspan(at, kRingPair);
        std::ranges::fill(records, std::uint8_t{0});
        records[0] = kTimeStamp;
        Store16(records, 1, PackedDate(time));
        Store16(records, 3, PackedTime(time));
        records[kRingRecord] = static_cast<std::uint8_t>(warning.type);
        std::ranges::copy(warning.values, records.begin() + kRingRecord + 1);
        Store16(ring, kRingPosition, static_cast<std::uint16_t>(2 * pair + 1));
        pair = (pair + 1) % kRingPairs;
    }
    ReplaceFile(*file, ring);
}

// The latest row comes first, so that a host that reads a few has the latest.
void WarningFiles::AddToLog(std::span<const Warning> warnings, const ClockTime& time) const
{
    const auto file = drives.Resolve(kLogPath);
    if (!file)
        return;
    auto log = ReadFileStart(*file, kLogHeader + kLogRows * kLogRow);
    std::vector<std::uint8_t> rows;
    for (const Warning& warning : warnings) {
        std::array<std::uint8_t, kLogRow> row{};
        Store16(row, 0, PackedDate(time));
        Store16(row, 2, PackedTime(time));
        row[4] = static_cast<std::uint8_t>(warning.type);
        std::ranges::copy(warning.values, row.begin() + 5);
        rows.insert(rows.begin(), row.begin(), row.end());
    }
    if (log.size() > kLogHeader && log[0] == 'G' && log[1] == 'L')
        rows.insert(rows.end(), log.begin() + kLogHeader, log.end());
    rows.resize(std::min(rows.size() / kLogRow, kLogRows) * kLogRow);
    log.assign(kLogHeader, 0);
    log[0] = 'G';
    log[1] = 'L';
    Store16(log, 2, kLogRow);
    Store32(log, 4, static_cast<std::uint32_t>(rows.size() / kLogRow));
    log.insert(log.end(), rows.begin(), rows.end());
    std::error_code error;
    std::filesystem::create_directories(file->parent_path(), error);
    ReplaceFile(*file, log);
}

void WarningFiles::Report(const Condition& condition, const Climate& climate, const ClockTime& time) const
{
    const auto file = drives.Resolve(kReportPath);
    if (!file)
        return;
    const std::string stamp = Element("DT", TimeText(time));
    std::string board;
    if (condition.doorOpen)
        board += Element("Door", "open");
    if (climate.box > kBoxLimit)
        board += Element("Temperature", std::to_string(climate.box));
    std::string hot;
    for (const int address : condition.hotTiles) {
        const std::string position =
            "X=" + std::to_string(tiles.ColumnOf(address)) + ",Y=" + std::to_string(tiles.RowOf(address));
        hot += Element("Tile", Element("Position", position) +
                                   Element("Waring", Element("Temperature", std::to_string(climate.hotTile))));
    }
    std::size_t signals = 0;
    for (const auto& [place, fault] : condition.badLamps)
        signals += fault == LampFault::kSignal ? 1 : 0;
    const std::string xml =
        "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n" +
        Element("Errors",
                "\n" + Element("MainboardStatus", stamp + Element("Waring", board)) +
                    Element("TileStatus", stamp + hot) +
                    Element("PixelCheckResult",
                            stamp + Element("PixelErrorNum", std::to_string(condition.badLamps.size() - signals)) +
                                Element("SignalErrorNum", std::to_string(signals))));
    ReplaceFile(*file, {reinterpret_cast<const std::uint8_t*>(xml.data()), xml.size()});
}

} // namespace vxsim

#include "sim/logs/sampleFiles.h"

#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <optional>
#include <span>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

constexpr std::size_t kOldRadarRecord = 44;
constexpr std::size_t kNewRadarRecord = 8;
constexpr std::size_t kTjRadarRecord = 16;
constexpr std::size_t kBatteryRecord = 32;

std::vector<std::uint8_t> OldRadarRecord(const Sample& sample, const ClockTime& time)
{
    std::vector<std::uint8_t> record(kOldRadarRecord);
    Store16(record, 0, sample.vehicles);
    Store16(record, 2, sample.speed);
    Store16(record, 40, PackedDate(time));
    Store16(record, 42, PackedTime(time));
    return record;
}

std::vector<std::uint8_t> NewRadarRecord(const Sample& sample, const ClockTime& time)
{
    std::vector<std::uint8_t> record(kNewRadarRecord);
    Store16(record, 0, sample.vehicles);
    Store16(record, 2, sample.speed);
    Store16(record, 4, PackedDate(time));
    Store16(record, 6, PackedTime(time));
    return record;
}

// Vehicles in byte 0, their speed in byte 1; the lane code 160 is the first lane.
std::vector<std::uint8_t> TjRadarRecord(const Sample& sample, const ClockTime& time)
{
    constexpr std::uint8_t kFirstLane = 160;
    std::vector<std::uint8_t> record(kTjRadarRecord);
    record[0] = static_cast<std::uint8_t>(sample.vehicles);
    record[1] = static_cast<std::uint8_t>(sample.speed);
    Store16(record, 8, PackedDate(time));
    Store16(record, 10, PackedTime(time));
    record[12] = kFirstLane;
    return record;
}

std::vector<std::uint8_t> BatteryRecord(const Sample& sample, const ClockTime& time)
{
    std::vector<std::uint8_t> record(kBatteryRecord);
    Store16(record, 0, PackedDate(time));
    Store16(record, 2, PackedTime(time));
    Store32(record, 4, sample.millivolts);
    Store32(record, 8, static_cast<std::uint32_t>(std::int32_t{sample.milliamperes}));
    record[18] = sample.charge;
    record[19] = sample.temperature;
    return record;
}

// Where a file has its first record, its mark and the count of its records, which is never 0. Without header no count.
struct Layout
{
    std::size_t header = 0;
    std::size_t countAt = 0;
    std::string_view mark = {};
};

void Append(const std::optional<std::filesystem::path>& file, const Layout& layout,
            std::span<const std::uint8_t> record)
{
    if (!file)
        return;
    const std::size_t most = layout.header + SampleFiles::kMostRecords * record.size();
    auto log = ReadFileStart(*file, most);
    if (log.size() < layout.header)
        log.assign(layout.header, 0);
    log.resize(log.size() - (log.size() - layout.header) % record.size());
    const auto begin = log.begin() + static_cast<std::ptrdiff_t>(layout.header);
    if (log.size() == most)
        log.erase(begin, begin + static_cast<std::ptrdiff_t>(record.size()));
    log.insert(log.end(), record.begin(), record.end());
    if (layout.header != 0)
        Store32(log, layout.countAt, static_cast<std::uint32_t>((log.size() - layout.header) / record.size()));
    std::ranges::copy(layout.mark, log.begin());
    ReplaceFile(*file, log);
}

} // namespace

Sample TakeSample(const ClockTime& time, int outside)
{
    const int day = std::min(static_cast<int>(time.hour), 24 - static_cast<int>(time.hour)); // 0 at night, 12 at noon
    const int minute = static_cast<int>(time.minute);
    Sample sample;
    sample.vehicles = static_cast<std::uint16_t>(2 + day + minute % 5);
    sample.speed = static_cast<std::uint16_t>(88 - 2 * day + minute % 7);
    sample.millivolts = static_cast<std::uint16_t>(12000 + 100 * day);
    sample.milliamperes = static_cast<std::int16_t>(250 * (day - 5));
    sample.charge = static_cast<std::uint8_t>(60 + 3 * day);
    sample.temperature = static_cast<std::uint8_t>(std::clamp(outside, 0, 99));
    return sample;
}

SampleFiles::SampleFiles(const Drives& signDrives, std::filesystem::path tjRadar)
    : drives(signDrives), tjRadarLog(std::move(tjRadar))
{
}

void SampleFiles::Add(const Sample& sample, const ClockTime& time) const
{
    Append(drives.Resolve("D:\\RADARLog.log"), {12, 0}, OldRadarRecord(sample, time));
    Append(drives.Resolve("E:\\RADAR.log"), {16, 4, "RLOG"}, NewRadarRecord(sample, time));
    Append(tjRadarLog, {}, TjRadarRecord(sample, time));
    for (const char* path : {"D:\\batinfo.log", "D:\\dbatinfo.log"})
        Append(drives.Resolve(path), {16, 4}, BatteryRecord(sample, time));
}

} // namespace vxsim

#include "sim/traffic/trafficFiles.h"

#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <string>
#include <system_error>
#include <vector>

namespace vxsim {
namespace {

constexpr const char* kErrorPath = "E:\\ERR_REC\\ERRMSG.ERR";
constexpr const char* kTemperatureFolder = "E:\\TEP_REC\\";
constexpr std::size_t kCountAt = 32;
constexpr std::size_t kErrorHeader = 36;
constexpr std::size_t kErrorRecord = 32;
constexpr std::size_t kCodeAt = 8;
constexpr std::size_t kTimesAt = 10;

constexpr std::size_t kMonthHeader = 32;
constexpr std::size_t kYearAt = 4;
constexpr std::size_t kDayRow = 24;
constexpr std::size_t kMonthSize = kMonthHeader + 31 * kDayRow;

// A source of temperatures: how its files are called, but for the month, and what it measures.
struct Source
{
    const char* name;
    int TrafficClimate::*place;
    int warmer;
};

constexpr std::array<Source, 4> kSources{{{"CTL", &TrafficClimate::cabinet, 0},
                                          {"P01", &TrafficClimate::cabinet, 3},
                                          {"V01", &TrafficClimate::outside, 0},
                                          {"V02", &TrafficClimate::outside, 1}}};

void WriteFile(const std::filesystem::path& file, std::span<const std::uint8_t> bytes)
{
    std::error_code error;
    std::filesystem::create_directories(file.parent_path(), error);
    ReplaceFile(file, bytes);
}

std::array<std::uint8_t, kErrorRecord> ErrorRecord(const ClockTime& time)
{
    std::array<std::uint8_t, kErrorRecord> record{};
    const auto year = static_cast<unsigned>(time.year);
    const std::array<unsigned, 7> fields{year % 100, year / 100 % 100, time.month, time.day,
                                         time.hour,  time.minute,      time.second};
    std::ranges::transform(fields, record.begin(), ToBcd);
    return record;
}

std::uint8_t Degrees(int value)
{
    return static_cast<std::uint8_t>(std::clamp(value, 0, 99));
}

// How far the hour is from midnight, which is how far it is warmer.
int CourseOf(unsigned hour)
{
    return static_cast<int>(std::min(hour, 24 - hour));
}

void FillMonth(std::vector<std::uint8_t>& month, int degrees, const ClockTime& time)
{
    month.assign(kMonthHeader, 0);
    std::ranges::copy(std::string_view("TEP"), month.begin());
    Store16(month, kYearAt, static_cast<std::uint16_t>(time.year));
    month.resize(kMonthHeader + time.day * kDayRow);
    const std::size_t hours = (time.day - 1) * kDayRow + time.hour;
    for (std::size_t i = 0; i < hours; ++i) {
        const int warmer = CourseOf(static_cast<unsigned>(i % kDayRow)) - CourseOf(time.hour);
        month[kMonthHeader + i] = Degrees(degrees + warmer);
    }
}

} // namespace

void TrafficFiles::AddError(TrafficError error, const ClockTime& time) const
{
    const auto file = drives.Resolve(kErrorPath);
    if (!file)
        return;
    auto log = ReadFileStart(*file, kErrorHeader + kMostErrors * kErrorRecord);
    if (log.size() < kErrorHeader)
        log.assign(kErrorHeader, 0);
    log.resize(log.size() - (log.size() - kErrorHeader) % kErrorRecord);
    const auto code = static_cast<std::uint16_t>(error);
    std::uint16_t times = 0;
    for (std::size_t at = kErrorHeader; at < log.size(); at += kErrorRecord) {
        if (Load16(log, at + kCodeAt) == code)
            times = std::max(times, Load16(log, at + kTimesAt));
    }
    if (log.size() == kErrorHeader + kMostErrors * kErrorRecord)
        log.erase(log.begin() + kErrorHeader, log.begin() + kErrorHeader + kErrorRecord);
    auto record = ErrorRecord(time);
    Store16(record, kCodeAt, code);
    Store16(record, kTimesAt, static_cast<std::uint16_t>(std::min(times + 1, 65535)));
    log.insert(log.end(), record.begin(), record.end());
    Store32(log, kCountAt, static_cast<std::uint32_t>((log.size() - kErrorHeader) / kErrorRecord));
    WriteFile(*file, log);
}

void TrafficFiles::AddTemperatures(const TrafficClimate& climate, const ClockTime& time) const
{
    for (const Source& source : kSources) {
        std::string path = kTemperatureFolder;
        path.append(source.name).append({static_cast<char>('0' + time.month / 10)});
        path.append({static_cast<char>('0' + time.month % 10)}).append(".TEP");
        const auto file = drives.Resolve(path);
        if (!file)
            continue;
        const int degrees = climate.*source.place + source.warmer;
        auto month = ReadFileStart(*file, kMonthSize);
        if (month.size() < kMonthHeader || Load16(month, kYearAt) != time.year)
            FillMonth(month, degrees, time);
        month.resize(std::max(month.size(), kMonthHeader + time.day * kDayRow));
        month[kMonthHeader + (time.day - 1) * kDayRow + time.hour] = Degrees(degrees);
        WriteFile(*file, month);
    }
}

} // namespace vxsim

// Asks for warnings, drives and clock.
#include "vxctl/state/condition.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/collected.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/filesystem.h>
#include <vxsign/status.h>
#include <vxsign/test.h>

#include <chrono>
#include <cstring>
#include <limits>

namespace vxctl {

namespace {

constexpr std::uint32_t kUsualUnit = 1024;

std::string PlaceOf(const vxWaringReportRow& row)
{
    switch (row.Kind) {
    case VX_WARING_TILE:
        return row.X == VX_WARING_NO_POSITION && row.Y == VX_WARING_NO_POSITION
                   ? "tile"
                   : "tile " + std::to_string(row.X) + "," + std::to_string(row.Y);
    case VX_WARING_PIXELS:
        return "pixels";
    case VX_WARING_SIGNALS:
        return "signals";
    default:
        return "main board";
    }
}

} // namespace

std::uint32_t ReadWarnings(std::vector<Warning>& warnings)
{
    const std::uint32_t result = vxReadWaringReport(Collecting<vxWaringReportRow>());
    for (const vxWaringReportRow& row : TakeCollected<vxWaringReportRow>())
        warnings.push_back({PlaceOf(row), row.Name, row.Value, row.Time});
    return result == VX_FILE_NOT_EXISTS ? static_cast<std::uint32_t>(VX_OK) : result;
}

std::uint64_t DriveSpace::Unit() const
{
    const std::uint32_t unit = Load32(further, 0);
    return unit != 0 ? unit : kUsualUnit;
}

std::uint32_t ReadSpace(char drive, DriveSpace& space)
{
    space.drive = drive;
    return vxGetDriveInfo(static_cast<std::uint8_t>(drive), &space.total, &space.free, space.further.data());
}

std::vector<DriveSpace> ReadSpaces()
{
    std::vector<DriveSpace> spaces;
    for (const char drive : std::string(kDrives)) {
        DriveSpace space;
        if (IsDone(ReadSpace(drive, space)))
            spaces.push_back(space);
    }
    return spaces;
}

void ShowDrives(Report& report, const std::vector<DriveSpace>& spaces)
{
    Report::Json drives = Report::Json::array();
    for (const DriveSpace& space : spaces) {
        drives.push_back({{"drive", std::string(1, space.drive)},
                          {"totalBytes", space.TotalBytes()},
                          {"freeBytes", space.FreeBytes()}});
        const std::string text = FormatSize(static_cast<double>(space.FreeBytes())) + " free of " +
                                 FormatSize(static_cast<double>(space.TotalBytes()));
        report.Line(std::string("drive ") + space.drive + "             " +
                    Toned(text, space.IsScarce() ? Tone::kWrong : Tone::kPlain));
    }
    report.Put("drives", std::move(drives));
}

std::uint32_t ReadClock(ClockTime& time)
{
    std::uint8_t unused = 0;
    std::uint8_t weekday = 0;
    std::uint8_t mark = 0;
    return vxReadLEDTime(&time.year, &time.month, &time.day, &time.hour, &time.minute, &unused, &weekday, &mark);
}

std::int64_t MinutesAhead(const ClockTime& first, const ClockTime& second)
{
    using namespace std::chrono;
    const auto minutesOf = [](const ClockTime& time) {
        const year_month_day date{year(time.year), month(time.month), day(time.day)};
        return date.ok() ? (sys_days(date).time_since_epoch() + hours(time.hour) + minutes(time.minute)) / minutes(1)
                         : std::numeric_limits<std::int32_t>::min();
    };
    return std::int64_t{minutesOf(first)} - minutesOf(second);
}

} // namespace vxctl

// How the sign is: what it tells of itself, its drives and its warnings.
#ifndef VXSIGN_CPP_STATUS_HPP
#define VXSIGN_CPP_STATUS_HPP

#include <vxsign/control.h>
#include <vxsign/cpp/clock.hpp>
#include <vxsign/cpp/frame.hpp>
#include <vxsign/filesystem.h>
#include <vxsign/read.h>
#include <vxsign/status.h>

#include <array>
#include <sstream>

namespace vxsign {

struct FaceSize
{
    std::uint32_t width = 0; // pixels
    std::uint32_t height = 0;
};

struct Drive
{
    char drive = 0;
    std::uint64_t totalBytes = 0;
    std::uint64_t freeBytes = 0;
};

struct Warning
{
    std::string where; // "main board", "tile 3,0", "pixels" or "signals"
    std::string what;
    std::string value;
    std::string time;
};

struct Measured
{
    int insideC = 0;
    int outsideC = 0;
    int hottestTileC = 0;
    int humidityPercent = 0;
};

// The names are those of "vxctl status --json". What the sign does not tell is missing.
struct Status
{
    std::vector<std::string>
        state; // bad-pixels, hot-tiles, door-open, no-power, dark-face, overheated; empty: all well
    std::uint8_t stateCode = 0;
    Measured measured;
    std::array<std::uint8_t, 8> beacon{};
    std::optional<std::string> playing;
    std::optional<FaceSize> face;
    std::optional<std::uint32_t> colours;
    std::optional<std::uint32_t> lightEighths;
    std::optional<bool> lightFixed;
    std::optional<bool> power;
    std::optional<ClockTime> clock;
    std::vector<Drive> drives;
    std::vector<Warning> warnings;
};

namespace detail {

// What the sign tells of its face, a line each: "colours 7", "light 5 fixed", "shows zones off".
struct FaceState
{
    std::optional<FaceSize> size;
    std::optional<std::uint32_t> colours;
    std::optional<std::uint32_t> light;
    std::optional<bool> isLightFixed;
    std::optional<std::vector<std::string>> shows; // what lies over the play list
};

inline void TakeLine(const std::string& line, FaceState& face)
{
    std::istringstream words(line);
    std::string key;
    std::vector<std::string> values;
    words >> key;
    for (std::string word; words >> word;)
        values.push_back(word);
    if (values.empty())
        return;
    if (key == "colours")
        face.colours = Number(values[0]);
    if (key == "shows")
        face.shows = values;
    if (key == "light") {
        face.light = Number(values[0]);
        face.isLightFixed = values.size() > 1 && values[1] == "fixed";
    }
}

inline FaceState ReadFace()
{
    FaceState face;
    std::array<std::uint8_t, 16> settings{};
    if (IsDone(vxReadSystemSet(settings.data())) && Load16(&settings[0]) != 0 && Load16(&settings[2]) != 0)
        face.size = FaceSize{Load16(&settings[0]), Load16(&settings[2])};
    std::array<std::uint8_t, 1024> text{};
    std::uint32_t length = 0;
    if (!IsDone(vxReadSystemInfo(text.data(), static_cast<std::uint32_t>(text.size()), &length)))
        return face;
    std::istringstream lines(std::string(text.begin(), text.begin() + std::min<std::uint32_t>(length, text.size())));
    for (std::string line; std::getline(lines, line);)
        TakeLine(line, face);
    return face;
}

// The state as signs in the field count it.
inline std::vector<std::string> StateNames(std::uint8_t mode)
{
    constexpr const char* kNames[] = {"bad-pixels", "hot-tiles", "door-open", "no-power", "dark-face"};
    if (mode == VX_MODE_BY_STATISTICS)
        return {"overheated"};
    std::vector<std::string> names;
    for (std::size_t i = 0; i < std::size(kNames); ++i)
        if ((mode >> i & 1) != 0)
            names.emplace_back(kNames[i]);
    return names;
}

inline std::uint32_t TakeStatus(std::uint32_t /*user*/, const vxStatusRecord* record, const std::uint8_t* beacon,
                                const char* message) noexcept
{
    auto& status = *static_cast<Status*>(Frame::Running()->sink);
    const auto degrees = [](std::uint8_t value) { return int{static_cast<std::int8_t>(value)}; };
    status.stateCode = record->Mode;
    status.measured = {degrees(record->Value0), degrees(record->Value1), degrees(record->Value2), record->Value3};
    std::copy_n(beacon, status.beacon.size(), status.beacon.begin());
    if (*message != '\0')
        status.playing = message;
    return 0;
}

inline std::string PlaceOf(const vxWaringReportRow& row)
{
    const bool hasPosition = row.X != VX_WARING_NO_POSITION || row.Y != VX_WARING_NO_POSITION;
    switch (row.Kind) {
    case VX_WARING_TILE:
        return hasPosition ? "tile " + std::to_string(row.X) + "," + std::to_string(row.Y) : "tile";
    case VX_WARING_PIXELS:
        return "pixels";
    case VX_WARING_SIGNALS:
        return "signals";
    default:
        return "main board";
    }
}

// A sign without a report has nothing to warn of.
inline std::vector<Warning> ReadWarnings(const Frame& frame)
{
    std::vector<Warning> warnings;
    Collected<vxWaringReportRow> collected;
    IsDone(vxReadWaringReport(Collected<vxWaringReportRow>::Take));
    for (const vxWaringReportRow& row : collected.records)
        warnings.push_back({PlaceOf(row), frame.Decode(row.Name), frame.Decode(row.Value), row.Time});
    return warnings;
}

inline std::vector<Drive> ReadDrives()
{
    std::vector<Drive> drives;
    for (const char letter : {'C', 'D', 'E', 'F', 'G'}) {
        std::uint32_t total = 0;
        std::uint32_t free = 0;
        std::array<std::uint8_t, 12> extra{}; // begins with the size of the unit, 0 for the usual one
        if (!IsDone(vxGetDriveInfo(static_cast<std::uint8_t>(letter), &total, &free, extra.data())))
            continue;
        const std::uint64_t unit = Load32(extra.data()) != 0 ? Load32(extra.data()) : 1024;
        drives.push_back({letter, total * unit, free * unit});
    }
    return drives;
}

// Whether the face has power, apart from what was ordered. Gives the result word.
inline std::uint32_t ReadPower(bool& isOn)
{
    std::uint8_t ordered = 0;
    std::uint8_t present = 0;
    const std::uint32_t result = vxGetPowerState(&ordered, &present);
    isOn = present != 0;
    return result;
}

inline Status ReadStatus(Frame& frame)
{
    Status status;
    frame.sink = &status;
    const std::uint32_t result = vxReadStatusInfo("", 0, 0, TakeStatus, 0, 0, 0);
    frame.sink = nullptr;
    Check(result);
    status.state = StateNames(status.stateCode);
    if (status.playing)
        status.playing = frame.Decode(*status.playing);
    const FaceState face = ReadFace();
    status.face = face.size;
    status.colours = face.colours;
    status.lightEighths = face.light;
    status.lightFixed = face.isLightFixed;
    if (bool isOn = false; IsDone(ReadPower(isOn)))
        status.power = isOn;
    if (ClockTime time; IsDone(ReadClock(time)))
        status.clock = time;
    status.drives = ReadDrives();
    status.warnings = ReadWarnings(frame);
    return status;
}

} // namespace detail
} // namespace vxsign

#endif

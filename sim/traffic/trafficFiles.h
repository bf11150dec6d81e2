// Log files of a traffic signal controller.
#pragma once

#include "sim/files/drives.h"
#include "sim/state/signClock.h"

#include <cstddef>
#include <cstdint>

namespace vxsim {

// Codes of the error log.
enum class TrafficError : std::uint16_t
{
    kTemperature = 0x0900,
    kReset = 0x0C00,
    kGreenConflict = 0x0E00
};

// What the controller measures, in degrees.
struct TrafficClimate
{
    int cabinet = 0;
    int outside = 0;
};

// The files of a traffic signal controller. Hosts may delete them; a sign that lacks drive E goes without.
class TrafficFiles
{
public:
    static constexpr std::size_t kMostErrors = 500; // the oldest go

    explicit TrafficFiles(const Drives& signDrives) : drives(signDrives) {}

    // Adds a record to E:\ERR_REC\ERRMSG.ERR, which counts how often its error has come.
    void AddError(TrafficError error, const ClockTime& time) const;

    // Puts the temperatures of this hour into the month's files in E:\TEP_REC. A file that has to be made gets the
    // month's hours until now as well, by the usual course of a day.
    void AddTemperatures(const TrafficClimate& climate, const ClockTime& time) const;

private:
    const Drives& drives;
};

} // namespace vxsim

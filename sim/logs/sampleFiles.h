// The log files of radar and batteries.
#pragma once

#include "sim/files/drives.h"
#include "sim/state/signClock.h"

#include <cstdint>
#include <filesystem>

namespace vxsim {

// What the sign's radar and batteries have measured since the last sample.
struct Sample
{
    std::uint16_t vehicles = 0;
    std::uint16_t speed = 0;      // km/h, mean
    std::uint16_t millivolts = 0; // of a battery of 12 V
    std::int16_t milliamperes = 0;
    std::uint8_t charge = 0; // percent
    std::uint8_t temperature = 0;
};

// What a sign without a road measures: more traffic by day, sun on the panel by day.
Sample TakeSample(const ClockTime& time, int outside);

// The binary log files of radar and batteries. Each grows by a record a sample, up to kMostRecords; the oldest go.
// Hosts may delete them.
class SampleFiles
{
public:
    static constexpr std::size_t kMostRecords = 1440;

    // `tjRadar` is the file that the commands of the radar log give and delete.
    SampleFiles(const Drives& signDrives, std::filesystem::path tjRadar);

    void Add(const Sample& sample, const ClockTime& time) const;

private:
    const Drives& drives;
    std::filesystem::path tjRadarLog;
};

} // namespace vxsim

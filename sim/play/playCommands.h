#pragma once

#include "sim/files/drives.h"
#include "sim/play/playback.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <span>
#include <string>
#include <vector>

namespace vxsim {

enum class TimingRun
{
    kStopped,
    kRunning,
    kPaused
};

// Major 6: steers what plays, and keeps what it is told of sound and timing.
class PlayCommands
{
public:
    static constexpr std::uint8_t kMainList = 255;

    // `radarLog` is the file of the radar log: records of 16 bytes.
    PlayCommands(const Drives& drives, std::filesystem::path radarLog);

    // Without a playback the sign plays nothing and refuses to be steered.
    void Attach(Playback& attached) { playback = &attached; }

    Reply Execute(const Frame& request, std::uint64_t nowMs);

    // The sign's own list plays again.
    void ReturnToMainList() { listIndex = kMainList; }

    // "SEQUENT", with the number of another list behind it.
    std::string ListName() const { return listIndex == kMainList ? "SEQUENT" : "SEQUENT" + std::to_string(listIndex); }

    // What hosts wanted to be heard: the path or name of the last file, and the settings of the last sound command.
    const std::string& SoundFile() const { return soundFile; }
    std::span<const std::uint8_t, 3> Sound() const { return sound; }
    TimingRun Timing() const { return timing; }

private:
    Reply Steer(PlayStep step, std::uint64_t nowMs) const;
    Reply PlayPriority(const Frame& request, std::uint64_t nowMs) const;
    Reply PlayListByIndex(const Frame& request, std::uint64_t nowMs);
    Reply TellFile(bool next, std::uint64_t nowMs) const;
    Reply TakeScreenshot(std::uint64_t nowMs) const;
    Reply ReadRadarLog(const Frame& request) const;
    std::vector<std::string> CandidatePaths(std::uint8_t drive, std::uint8_t folder, std::string_view name) const;

    const Drives& drives;
    std::filesystem::path radarLog;
    Playback* playback = nullptr;
    std::uint8_t listIndex = kMainList;
    std::uint8_t volume = 50;
    std::string soundFile;
    std::array<std::uint8_t, 3> sound{};
    TimingRun timing = TimingRun::kStopped;
};

} // namespace vxsim

// Commands that steer what plays.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/files/drives.h"
#include "sim/play/playback.h"

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
class PlayCommands : public CommandFamily
{
public:
    static constexpr std::uint8_t kMainList = 255;

    // `radarLog` is the file of the radar log: records of 16 bytes.
    PlayCommands(const Drives& drives, std::filesystem::path radarLog);

    // Without a playback the sign plays nothing and refuses to be steered.
    void Attach(Playback& attached) { playback = &attached; }

    std::span<const CommandRow> Commands() const override;

    // The sign's own list plays again.
    void ReturnToMainList() { listIndex = kMainList; }
    void Restart(std::uint64_t, bool) override { ReturnToMainList(); }

    // "SEQUENT", with the number of another list behind it.
    std::string ListName() const { return listIndex == kMainList ? "SEQUENT" : "SEQUENT" + std::to_string(listIndex); }

    // What hosts wanted to be heard: the path or name of the last file, and the settings of the last sound command.
    const std::string& SoundFile() const { return soundFile; }
    std::span<const std::uint8_t, 3> Sound() const { return sound; }
    TimingRun Timing() const { return timing; }

private:
    Reply Steer(const Call& call, PlayStep step) const;
    Reply PlayPriority(const Call& call) const;
    Reply PlayListByIndex(const Call& call);
    Reply TellList(const Call& call) const;
    Reply TellFile(const Call& call, bool next) const;
    Reply TakeScreenshot(const Call& call) const;
    Reply SetSound(const Call& call);
    Reply PlaySoundFile(const Call& call);
    Reply SetVolume(const Call& call);
    Reply TellVolume(const Call& call) const;
    Reply SetTiming(const Call& call, TimingRun wanted);
    Reply HoldTiming(const Call& call, bool paused);
    Reply ClearRadarLog(const Call& call) const;
    Reply ReadRadarLog(const Call& call) const;
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

// Commands of the two video processors, and what they do to the face.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/files/storedRecord.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

// A part of the face that the MPU fills with the picture of an input.
struct VideoWindow
{
    std::uint16_t left = 0;
    std::uint16_t top = 0;
    std::uint16_t width = 0;
    std::uint16_t height = 0;
    std::uint8_t channel = 0;
};

// How much of each colour gets through, 255 being all of it.
struct VideoLevels
{
    std::uint8_t red = 255;
    std::uint8_t green = 255;
    std::uint8_t blue = 255;
};

// Majors 52 and 53: the VPU, which the whole picture goes through, and the MPU, which puts the picture of an input into
// a window. Both keep what they are set to. Their inputs 1 to 8 carry a test picture, the others no signal.
class VideoProcessors : public CommandFamily
{
public:
    VideoProcessors(const std::filesystem::path& file, int faceWidth, int faceHeight);

    std::span<const CommandRow> Commands() const override;

    static bool HasSignal(std::uint8_t channel) { return channel >= 1 && channel <= 8; }

    // Input that the VPU shows; 0 is the sign's own picture.
    std::uint8_t Channel() const;
    VideoLevels Levels() const;

    // Nothing while there is none, or while one is being set.
    std::optional<VideoWindow> Window(std::uint64_t nowMs) const;

private:
    struct Task
    {
        std::uint32_t id = 0;
        std::uint64_t startedMs = 0;
    };

    // What is kept, in the order of the file, with 16 bytes for each.
    enum class Setting : std::uint8_t;
    static constexpr std::size_t kSlot = 16;
    static constexpr std::uint16_t PlaceOf(Setting setting)
    {
        return static_cast<std::uint16_t>(kSlot * static_cast<std::size_t>(setting));
    }
    static std::vector<std::uint8_t> InitialSettings();

    Reply Keep(const Call& call, Setting setting);
    Reply TellSignal(const Call& call);
    Reply TellBrightness(const Call& call);
    Reply TellOrSetMode(const Call& call);
    Reply SetWindow(const Call& call);
    Reply TellProgress(const Call& call);

    Reply KeepBytes(Setting setting, std::span<const std::uint8_t> bytes);
    std::span<const std::uint8_t> Kept(Setting setting) const;
    std::array<std::uint8_t, 24> Info() const;

    StoredRecord settings;
    std::uint16_t width;
    std::uint16_t height;
    std::uint32_t lastTask = 0;
    std::deque<Task> tasks; // the latest
};

} // namespace vxsim

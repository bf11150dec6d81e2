#pragma once

#include "sim/files/storedRecord.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <array>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <optional>
#include <span>

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
class VideoProcessors
{
public:
    VideoProcessors(const std::filesystem::path& file, int faceWidth, int faceHeight);

    Reply ExecuteVpu(const Frame& request); // major 52
    Reply ExecuteMpu(const Frame& request, std::uint64_t nowMs);

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

    Reply Keep(const Frame& request);
    Reply SetWindow(const Frame& request, std::uint64_t nowMs);
    Reply Progress(const Frame& request, std::uint64_t nowMs) const;
    std::array<std::uint8_t, 24> Info() const;
    std::span<const std::uint8_t> Kept(std::uint8_t major, std::uint8_t minor) const;

    StoredRecord settings;
    std::uint16_t width;
    std::uint16_t height;
    std::uint32_t lastTask = 0;
    std::deque<Task> tasks; // the latest
};

} // namespace vxsim

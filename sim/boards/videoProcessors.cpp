#include "sim/boards/videoProcessors.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <vector>

namespace vxsim {
namespace {

constexpr std::uint8_t kVpu = 52;
constexpr std::uint8_t kMpu = 53;

// Of the VPU.
enum : std::uint8_t
{
    kVpuChannel = 1,
    kMode = 2,
    kRatio = 3,
    kSignalStatus = 8,
    kType = 9,
    kStartLine = 10,
    kColourTemperature = 11,
    kSetBrightness = 12,
    kGetBrightness = 13,
    kGamma = 14,
    kUnits = 15,
    kUnitPlace = 16,
    kInfoOrPixelMode = 17
};
// Of the MPU.
enum : std::uint8_t
{
    kMpuChannel = 1,
    kChannelAlso = 30, // the same for newer hosts
    kSetWindow = 31,
    kProgress = 0xFE
};

struct Setting
{
    std::uint8_t major;
    std::uint8_t minor;
    std::size_t size;
};

// What is kept as it comes. The place of a row is that of its slot in the file.
constexpr Setting kSettings[] = {
    {kVpu, kVpuChannel, 4},
    {kVpu, kMode, 4},
    {kVpu, kRatio, 4},
    {kVpu, 4, 4}, // DVI window
    {kVpu, 5, 4}, // video window
    {kVpu, 6, 4}, // video argument
    {kVpu, kType, 4},
    {kVpu, kStartLine, 4},
    {kVpu, kColourTemperature, 4},
    {kVpu, kSetBrightness, 4},
    {kVpu, kGamma, 4},
    {kVpu, kUnits, 4},
    {kVpu, kUnitPlace, 8},
    {kVpu, kInfoOrPixelMode, 4},
    {kMpu, kMpuChannel, 4},
    {kMpu, 6, 4},   // video argument
    {kMpu, 23, 4},  // outputs
    {kMpu, 27, 16}, // EDID
    {kMpu, 28, 4},  // phase
    {kMpu, kSetWindow, 12},
};
constexpr std::size_t kSlot = 16;

constexpr std::size_t kMostTasks = 16;
constexpr std::uint64_t kWindowMs = 2000;
constexpr std::uint16_t kFramesPerSecond = 25;

constexpr std::size_t kNoSlot = std::size(kSettings) * kSlot;

std::size_t SlotOf(std::uint8_t major, std::uint8_t minor)
{
    const auto* found = std::ranges::find_if(
        kSettings, [&](const Setting& setting) { return setting.major == major && setting.minor == minor; });
    return static_cast<std::size_t>(found - std::begin(kSettings)) * kSlot;
}

std::vector<std::uint8_t> InitialSettings()
{
    std::vector<std::uint8_t> record(std::size(kSettings) * kSlot);
    std::fill_n(record.begin() + static_cast<std::ptrdiff_t>(SlotOf(kVpu, kSetBrightness)), 4, std::uint8_t{255});
    return record;
}

} // namespace

VideoProcessors::VideoProcessors(const std::filesystem::path& file, int faceWidth, int faceHeight)
    : settings(file, InitialSettings()), width(static_cast<std::uint16_t>(faceWidth)),
      height(static_cast<std::uint16_t>(faceHeight))
{
}

Reply VideoProcessors::ExecuteVpu(const Frame& request)
{
    switch (request.minor) {
    case kSignalStatus: {
        std::array<std::uint8_t, 8> status{};
        if (Channel() == 0 || HasSignal(Channel())) {
            Store16(status, 2, width);
            Store16(status, 4, height);
            Store16(status, 6, kFramesPerSecond);
        }
        Store16(status, 0, Channel());
        return Reply::WithPayload(status);
    }
    case kGetBrightness:
        return Reply::WithPayload(Kept(kVpu, kSetBrightness).first(4));
    case kInfoOrPixelMode: // asks with mode 0, sets any other
        if (request.payload.empty() || request.payload[0] == 0)
            return Reply::WithPayload(Info());
        return Keep(request);
    default:
        return Keep(request);
    }
}

Reply VideoProcessors::ExecuteMpu(const Frame& request, std::uint64_t nowMs)
{
    switch (request.minor) {
    case kChannelAlso: {
        Frame plain = request;
        plain.minor = kMpuChannel;
        return Keep(plain);
    }
    case kSetWindow:
        return SetWindow(request, nowMs);
    case kProgress:
        return Progress(request, nowMs);
    default:
        return Keep(request);
    }
}

Reply VideoProcessors::Keep(const Frame& request)
{
    const std::size_t slot = SlotOf(request.major, request.minor);
    if (slot == kNoSlot)
        return Reply::WithCode(Code::kUnknownMinor);
    const std::size_t size = kSettings[slot / kSlot].size;
    if (request.payload.size() < size)
        return Reply::WithCode(Code::kBadLength);
    std::vector<std::uint8_t> record(settings.Bytes().begin(), settings.Bytes().end());
    std::copy_n(request.payload.begin(), size, record.begin() + static_cast<std::ptrdiff_t>(slot));
    return settings.Set(record) ? Reply::Done() : Reply::WithCode(Code::kWriteFailed);
}

// The window is there when its task is done.
Reply VideoProcessors::SetWindow(const Frame& request, std::uint64_t nowMs)
{
    Reply kept = Keep(request);
    if (kept.status != 0)
        return kept;
    if (tasks.size() == kMostTasks)
        tasks.pop_front();
    tasks.push_back({++lastTask, nowMs});
    std::array<std::uint8_t, 4> id{};
    Store32(id, 0, lastTask);
    return Reply::WithPayload(id);
}

Reply VideoProcessors::Progress(const Frame& request, std::uint64_t nowMs) const
{
    if (request.payload.size() < 4)
        return Reply::WithCode(Code::kBadLength);
    const auto task = std::ranges::find(tasks, Load32(request.payload, 0), &Task::id);
    if (task == tasks.end())
        return Reply::WithCode(Code::kUnknownTask);
    const std::uint64_t elapsed = nowMs - std::min(nowMs, task->startedMs);
    const std::array<std::uint8_t, 4> progress{
        static_cast<std::uint8_t>(std::min<std::uint64_t>(elapsed, kWindowMs) * 100 / kWindowMs)};
    return Reply::WithPayload(progress);
}

std::uint8_t VideoProcessors::Channel() const
{
    return Kept(kVpu, kVpuChannel)[0];
}

// Red, green, blue, and what holds for all of them.
VideoLevels VideoProcessors::Levels() const
{
    const auto levels = Kept(kVpu, kSetBrightness);
    const auto through = [&](std::size_t colour) {
        return static_cast<std::uint8_t>((levels[colour] * levels[3] + 127) / 255);
    };
    return {through(0), through(1), through(2)};
}

std::optional<VideoWindow> VideoProcessors::Window(std::uint64_t nowMs) const
{
    const auto window = Kept(kMpu, kSetWindow);
    const bool shown = window[9] != 0;
    if (!shown || (!tasks.empty() && nowMs < tasks.back().startedMs + kWindowMs))
        return std::nullopt;
    return VideoWindow{Load16(window, 1), Load16(window, 3), Load16(window, 5), Load16(window, 7),
                       Kept(kMpu, kMpuChannel)[0]};
}

// Name and version, then what is set.
std::array<std::uint8_t, 24> VideoProcessors::Info() const
{
    constexpr std::string_view kName = "VXVPU1.0";
    constexpr std::uint8_t kBytes[] = {kType, kVpuChannel, kRatio, kGamma, kUnits, kInfoOrPixelMode};
    std::array<std::uint8_t, 24> info{};
    std::ranges::copy(kName, info.begin());
    for (std::size_t i = 0; i < std::size(kBytes); ++i)
        info.at(kName.size() + i) = Kept(kVpu, kBytes[i])[0];
    std::ranges::copy(Kept(kVpu, kMode).first(2), info.begin() + 14);
    std::ranges::copy(Kept(kVpu, kStartLine).first(2), info.begin() + 16);
    std::ranges::copy(Kept(kVpu, kColourTemperature).first(4), info.begin() + 20);
    return info;
}

std::span<const std::uint8_t> VideoProcessors::Kept(std::uint8_t major, std::uint8_t minor) const
{
    return settings.Bytes().subspan(SlotOf(major, minor), kSlot);
}

} // namespace vxsim

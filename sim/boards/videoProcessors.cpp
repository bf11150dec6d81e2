#include "sim/boards/videoProcessors.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string_view>
#include <vector>

namespace vxsim {

enum class VideoProcessors::Setting : std::uint8_t
{
    kVpuChannel,
    kMode,
    kRatio,
    kDviWindow,
    kVideoWindow,
    kVpuArgument,
    kType,
    kStartLine,
    kColourTemperature,
    kBrightness,
    kGamma,
    kUnits,
    kUnitPlace,
    kPixelMode,
    kMpuChannel,
    kMpuArgument,
    kOutputs,
    kEdid,
    kPhase,
    kWindow,
    kCount
};

namespace {

constexpr std::size_t kModeSize = 4;

constexpr std::size_t kMostTasks = 16;
constexpr std::uint64_t kWindowMs = 2000;
constexpr std::uint16_t kFramesPerSecond = 25;

} // namespace

VideoProcessors::VideoProcessors(const std::filesystem::path& file, int faceWidth, int faceHeight)
    : settings(file, InitialSettings()), width(static_cast<std::uint16_t>(faceWidth)),
      height(static_cast<std::uint16_t>(faceHeight))
{
}

std::vector<std::uint8_t> VideoProcessors::InitialSettings()
{
    std::vector<std::uint8_t> record(PlaceOf(Setting::kCount));
    std::fill_n(record.begin() + PlaceOf(Setting::kBrightness), 4, std::uint8_t{255});
    return record;
}

std::span<const CommandRow> VideoProcessors::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {52, 1, "VPU channel", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kVpuChannel>,
         "shows the input of that number on the whole face; 0 is the sign's own picture"},
        {52, 2, "VPU mode", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kMode>, "keeps it"},
        {52, 3, "VPU ratio", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kRatio>, "keeps it"},
        {52, 4, "VPU DVI window", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kDviWindow>, "keeps it"},
        {52, 5, "VPU video window", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kVideoWindow>, "keeps it"},
        {52, 6, "VPU video argument", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kVpuArgument>, "keeps it"},
        {52, 8, "VPU signal status", 0, 0, kUnlogged, Run<&VideoProcessors::TellSignal>,
         "the channel, and width, height and frames a second of its signal, 0 where there is none"},
        {52, 9, "VPU type", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kType>, "keeps it"},
        {52, 10, "VPU start line", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kStartLine>, "keeps it"},
        {52, 11, "VPU colour temperature", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kColourTemperature>,
         "keeps it"},
        {52, 12, "VPU brightness", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kBrightness>,
         "red, green, blue, and what holds for all three, 255 being full. The values of the face are scaled by it"},
        {52, 13, "get VPU brightness", 0, 0, kUnlogged, Run<&VideoProcessors::TellBrightness>, "gives it back"},
        {52, 14, "VPU gamma", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kGamma>, "keeps it"},
        {52, 15, "VPU number of LDUs", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kUnits>, "keeps it"},
        {52, 16, "VPU place of an LDU", 8, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kUnitPlace>, "keeps it"},
        {52, 17, "VPU information or pixel mode", 0, 0, kUnlogged, Run<&VideoProcessors::TellOrSetMode>,
         "with 0: 24 bytes, \"VXVPU1.0\", type, channel, ratio, gamma, LDUs, pixel mode, the two of the mode, start "
         "line (16 bits), 2 bytes 0, colour temperature (4). With another number: keeps the pixel mode"},
        {53, 1, "MPU channel", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kMpuChannel>,
         "the input of the window"},
        {53, 6, "MPU video argument", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kMpuArgument>, "keeps it"},
        {53, 23, "MPU outputs", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kOutputs>, "keeps it"},
        {53, 27, "MPU EDID", 16, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kEdid>, "keeps it"},
        {53, 28, "MPU phase", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kPhase>, "keeps it"},
        {53, 30, "MPU channel", 4, 0, kUnlogged, Run<&VideoProcessors::Keep, Setting::kMpuChannel>,
         "as 53, 1, for newer hosts"},
        {53, 31, "MPU window", 12, 0, kUnlogged, Run<&VideoProcessors::SetWindow>,
         "number, left, top, width, height (16 bits each), and whether it shows (0 does not). The answer is the number "
         "of a task"},
        {53, 254, "MPU progress", 4, 0, kUnlogged, Run<&VideoProcessors::TellProgress>,
         "the progress of one of the last 16 tasks: 100 after two seconds, when the window is there"},
    };
    return kRows;
}

Reply VideoProcessors::Keep(const Call& call, Setting setting)
{
    return KeepBytes(setting, call.payload.first(call.row.leastPayload));
}

Reply VideoProcessors::KeepBytes(Setting setting, std::span<const std::uint8_t> bytes)
{
    std::vector<std::uint8_t> record(settings.Bytes().begin(), settings.Bytes().end());
    std::ranges::copy(bytes, record.begin() + PlaceOf(setting));
    return settings.Set(record) ? Reply::Done() : Reply::WithCode(Code::kWriteFailed);
}

std::span<const std::uint8_t> VideoProcessors::Kept(Setting setting) const
{
    return settings.Bytes().subspan(PlaceOf(setting), kSlot);
}

Reply VideoProcessors::TellSignal(const Call&)
{
    std::array<std::uint8_t, 8> status{};
    if (Channel() == 0 || HasSignal(Channel())) {
        Store16(status, 2, width);
        Store16(status, 4, height);
        Store16(status, 6, kFramesPerSecond);
    }
    Store16(status, 0, Channel());
    return Reply::WithPayload(status);
}

Reply VideoProcessors::TellBrightness(const Call&)
{
    return Reply::WithPayload(Kept(Setting::kBrightness).first(4));
}

// Asks with mode 0, sets any other.
Reply VideoProcessors::TellOrSetMode(const Call& call)
{
    if (call.payload.empty() || call.payload[0] == 0)
        return Reply::WithPayload(Info());
    return KeepBytes(Setting::kPixelMode, call.payload.first(std::min(call.payload.size(), kModeSize)));
}

// The window is there when its task is done.
Reply VideoProcessors::SetWindow(const Call& call)
{
    Reply kept = Keep(call, Setting::kWindow);
    if (kept.status != 0)
        return kept;
    if (tasks.size() == kMostTasks)
        tasks.pop_front();
    tasks.push_back({++lastTask, call.nowMs});
    std::array<std::uint8_t, 4> id{};
    Store32(id, 0, lastTask);
    return Reply::WithPayload(id);
}

Reply VideoProcessors::TellProgress(const Call& call)
{
    const auto task = std::ranges::find(tasks, Load32(call.payload, 0), &Task::id);
    if (task == tasks.end())
        return Reply::WithCode(Code::kUnknownTask);
    const std::uint64_t elapsed = call.nowMs - std::min(call.nowMs, task->startedMs);
    const std::array<std::uint8_t, 4> progress{
        static_cast<std::uint8_t>(std::min<std::uint64_t>(elapsed, kWindowMs) * 100 / kWindowMs)};
    return Reply::WithPayload(progress);
}

std::uint8_t VideoProcessors::Channel() const
{
    return Kept(Setting::kVpuChannel)[0];
}

// Red, green, blue, and what holds for all of them.
VideoLevels VideoProcessors::Levels() const
{
    const auto levels = Kept(Setting::kBrightness);
    const auto through = [&](std::size_t colour) {
        return static_cast<std::uint8_t>((levels[colour] * levels[3] + 127) / 255);
    };
    return {through(0), through(1), through(2)};
}

std::optional<VideoWindow> VideoProcessors::Window(std::uint64_t nowMs) const
{
    const auto window = Kept(Setting::kWindow);
    const bool shown = window[9] != 0;
    if (!shown || (!tasks.empty() && nowMs < tasks.back().startedMs + kWindowMs))
        return std::nullopt;
    return VideoWindow{Load16(window, 1), Load16(window, 3), Load16(window, 5), Load16(window, 7),
                       Kept(Setting::kMpuChannel)[0]};
}

// Name and version, then what is set.
std::array<std::uint8_t, 24> VideoProcessors::Info() const
{
    constexpr std::string_view kName = "VXVPU1.0";
    constexpr Setting kBytes[] = {Setting::kType,  Setting::kVpuChannel, Setting::kRatio,
                                  Setting::kGamma, Setting::kUnits,      Setting::kPixelMode};
    std::array<std::uint8_t, 24> info{};
    std::ranges::copy(kName, info.begin());
    for (std::size_t i = 0; i < std::size(kBytes); ++i)
        info.at(kName.size() + i) = Kept(kBytes[i])[0];
    std::ranges::copy(Kept(Setting::kMode).first(2), info.begin() + 14);
    std::ranges::copy(Kept(Setting::kStartLine).first(2), info.begin() + 16);
    std::ranges::copy(Kept(Setting::kColourTemperature).first(4), info.begin() + 20);
    return info;
}

} // namespace vxsim

#include "sim/controlCommands.h"

#include <algorithm>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kPowerOff = 3,
    kPowerOn = 4,
    kPowerState = 5,
    kBrightness = 7,
    kCommitStatus = 13,
    kBrightnessOfSides = 21,
    kGenerator = 32
};
enum : std::uint8_t
{
    kSetFh = 1,
    kGetFh = 2
};

constexpr std::uint8_t kFullLight = 8;
constexpr std::size_t kSidesSize = 8;
constexpr std::size_t kGeneratorSize = 8;
constexpr std::uint8_t kUnread = 255;

// A setting that is kept as it comes and given back.
struct KeptSetting
{
    std::uint8_t set;
    std::uint8_t get;
    std::size_t size;
};

constexpr KeptSetting kSettings[] = {
    {6, kUnread, 1},  // code of the baud rate
    {8, 9, 2},        // Ethernet check
    {10, 11, 8},      // beacons
    {19, kUnread, 1}, // online or offline
    {26, 27, 8},      // beacon of the sign
    {28, 29, 8},      // external equipment
    {36, 37, 1},      // LCS
    {38, kUnread, 2}, // voice
};

} // namespace

Reply ControlCommands::Execute(const Frame& request)
{
    switch (request.minor) {
    case kPowerOff:
    case kPowerOn:
        on = request.minor == kPowerOn;
        return Reply::Done();
    case kPowerState: {
        // What was ordered, and what the supply makes of it.
        const std::array<std::uint8_t, 4> state{on, on};
        return Reply::WithPayload(state);
    }
    case kBrightness:
        return SetBrightness(request, 2);
    case kBrightnessOfSides:
        return SetBrightness(request, kSidesSize);
    case kCommitStatus:
        return Switch(request, commitStatus, 4);
    case kGenerator:
        return Switch(request, generator, kGeneratorSize);
    default:
        break;
    }
    if (const auto* setting = std::ranges::find(kSettings, request.minor, &KeptSetting::set);
        setting != std::end(kSettings)) {
        if (request.payload.size() < setting->size)
            return Reply::WithCode(Code::kBadLength);
        auto& value = kept[request.minor];
        value.assign(request.payload.begin(), request.payload.begin() + static_cast<std::ptrdiff_t>(setting->size));
        value.insert(value.end(), request.extended.begin(), request.extended.end());
        return Reply::Done();
    }
    if (const auto* setting = std::ranges::find(kSettings, request.minor, &KeptSetting::get);
        setting != std::end(kSettings) && request.minor != kUnread) {
        auto value = kept[setting->set];
        value.resize(setting->size);
        return Reply::WithPayload(value);
    }
    return Reply::WithCode(Code::kUnknownMinor);
}

Reply ControlCommands::ExecuteFh(const Frame& request)
{
    switch (request.minor) {
    case kSetFh:
        if (request.payload.size() < fh.size())
            return Reply::WithCode(Code::kBadLength);
        std::copy_n(request.payload.begin(), fh.size(), fh.begin());
        return Reply::Done();
    case kGetFh:
        return Reply::WithPayload(fh);
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

std::span<const std::uint8_t> ControlCommands::Kept(std::uint8_t minor) const
{
    const auto value = kept.find(minor);
    return value == kept.end() ? std::span<const std::uint8_t>() : value->second;
}

// The back of the sign and further sides are not drawn, so only the front's level counts.
Reply ControlCommands::SetBrightness(const Frame& request, std::size_t sides)
{
    if (request.payload.size() < sides)
        return Reply::WithCode(Code::kBadLength);
    brightness = std::min(request.payload[0], kFullLight);
    kept[request.minor].assign(request.payload.begin(), request.payload.begin() + static_cast<std::ptrdiff_t>(sides));
    return Reply::Done();
}

// One command that asks, with 0 in byte 0, and that sets, to byte 1. Both are answered with the state.
Reply ControlCommands::Switch(const Frame& request, std::uint8_t& state, std::size_t replySize)
{
    if (request.payload.size() < 2)
        return Reply::WithCode(Code::kBadLength);
    if (request.payload[0] != 0)
        state = request.payload[1];
    std::vector<std::uint8_t> record(replySize);
    record[0] = state;
    return Reply::WithPayload(record);
}

} // namespace vxsim

#include "sim/state/timeCommands.h"

#include "sim/protocol/bytes.h"

#include <array>
#include <vector>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kReadClock = 1,
    kAdjustController = 2,
    kWeather = 3,
    kAdjustClock = 4,
    kSpeedLimit = 5
};

constexpr std::size_t kWeatherSize = 4;
constexpr std::size_t kAdjustSize = 12;
constexpr std::size_t kSpeedLimitSize = 8;
constexpr int kSignBit = 0x800; // of the temperature's twelve bits

} // namespace

Reply TimeCommands::Execute(const Frame& request, std::uint64_t nowMs)
{
    switch (request.minor) {
    case kReadClock:
        return Read(nowMs);
    case kAdjustController:
        return controller ? Adjust(request, nowMs) : Reply::WithCode(Code::kUnknownMinor);
    case kAdjustClock:
        return Adjust(request, nowMs);
    case kWeather: {
        if (request.payload.size() < kWeatherSize)
            return Reply::WithCode(Code::kBadLength);
        const int bits = Load16(request.payload, 1) & (2 * kSignBit - 1);
        weather = Weather{request.payload[0], bits - 2 * (bits & kSignBit)};
        return Reply::Done();
    }
    case kSpeedLimit:
        if (request.payload.size() < kSpeedLimitSize)
            return Reply::WithCode(Code::kBadLength);
        speedLimit = SpeedLimit{Load16(request.payload, 0), Load16(request.payload, 2)};
        return Reply::Done();
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

// Year in two bytes, low digits first; month, day, hour, minute, of a controller second, day of the week, mark.
Reply TimeCommands::Read(std::uint64_t nowMs) const
{
    const ClockTime time = clock.At(nowMs);
    const auto year = static_cast<unsigned>(time.year);
    std::vector<std::uint8_t> record{ToBcd(year % 100), ToBcd(year / 100 % 100), ToBcd(time.month),
                                     ToBcd(time.day),   ToBcd(time.hour),        ToBcd(time.minute)};
    if (controller)
        record.push_back(ToBcd(time.second));
    record.insert(record.end(), {ToBcd(clock.WeekdayAt(nowMs)), mark});
    return Reply::WithPayload(record);
}

// As for reading, with the second in front of the day of the week, which follows from the date anyway.
Reply TimeCommands::Adjust(const Frame& request, std::uint64_t nowMs)
{
    if (request.payload.size() < kAdjustSize)
        return Reply::WithCode(Code::kBadLength);
    std::array<unsigned, 7> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = FromBcd(request.payload[i]);
        if (!number)
            return Reply::WithCode(Code::kTimeNotSet);
        numbers[i] = *number;
    }
    const auto [yearOfCentury, century, month, day, hour, minute, second] = numbers;
    if (!clock.Set({static_cast<int>(century * 100 + yearOfCentury), month, day, hour, minute, second}, nowMs))
        return Reply::WithCode(Code::kTimeNotSet);
    mark = request.payload[8];
    return Reply::Done();
}

} // namespace vxsim

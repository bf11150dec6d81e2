#include "sim/state/timeCommands.h"

#include "sim/protocol/bytes.h"

#include <array>
#include <vector>

namespace vxsim {
namespace {

constexpr int kSignBit = 0x800; // of the temperature's twelve bits

} // namespace

std::span<const CommandRow> TimeCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {5, 1, "read clock", 0, 0, kUnlogged, Run<&TimeCommands::Read>,
         "the sign's clock, which begins at the local time of this machine and runs with it. Bytes 6 and 7 are the day "
         "of the week, 0 for Sunday, and byte 8 of what was set last"},
        {5, 3, "temperature and humidity", 4, 0, kUnlogged, Run<&TimeCommands::KeepWeather>,
         "keeps humidity (byte 0) and temperature"},
        {5, 4, "set clock", 12, 0, kLogged, Run<&TimeCommands::Adjust>, "sets the sign's clock"},
        {5, 5, "speed limit", 8, 0, kUnlogged, Run<&TimeCommands::KeepSpeedLimit>, "keeps the speed limits"},
    };
    return kRows;
}

// Year in two bytes, low digits first; month, day, hour, minute, of a controller second, day of the week, mark.
Reply TimeCommands::Read(const Call& call) const
{
    const ClockTime time = clock.At(call.nowMs);
    const auto year = static_cast<unsigned>(time.year);
    std::vector<std::uint8_t> record{ToBcd(year % 100), ToBcd(year / 100 % 100), ToBcd(time.month),
                                     ToBcd(time.day),   ToBcd(time.hour),        ToBcd(time.minute)};
    if (controller)
        record.push_back(ToBcd(time.second));
    record.insert(record.end(), {ToBcd(clock.WeekdayAt(call.nowMs)), mark});
    return Reply::WithPayload(record);
}

// As for reading, with the second in front of the day of the week, which follows from the date anyway.
Reply TimeCommands::Adjust(const Call& call)
{
    std::array<unsigned, 7> numbers{};
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const auto number = FromBcd(call.payload[i]);
        if (!number)
            return Reply::WithCode(Code::kTimeNotSet);
        numbers[i] = *number;
    }
    const auto [yearOfCentury, century, month, day, hour, minute, second] = numbers;
    if (!clock.Set({static_cast<int>(century * 100 + yearOfCentury), month, day, hour, minute, second}, call.nowMs))
        return Reply::WithCode(Code::kTimeNotSet);
    mark = call.payload[8];
    return Reply::Done();
}

Reply TimeCommands::KeepWeather(const Call& call)
{
    const int bits = Load16(call.payload, 1) & (2 * kSignBit - 1);
    weather = Weather{call.payload[0], bits - 2 * (bits & kSignBit)};
    return Reply::Done();
}

Reply TimeCommands::KeepSpeedLimit(const Call& call)
{
    speedLimit = SpeedLimit{Load16(call.payload, 0), Load16(call.payload, 2)};
    return Reply::Done();
}

} // namespace vxsim

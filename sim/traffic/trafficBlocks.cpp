#include "sim/traffic/trafficBlocks.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

namespace vxsim {
namespace {

constexpr std::size_t kStatusSize = 24;
constexpr std::size_t kMonitorHead = 4;
constexpr std::size_t kMonitorRecord = 8;
constexpr std::size_t kRealSize = 102;
constexpr std::size_t kDateSize = 4;
constexpr std::size_t kFlowHead = 8;
constexpr unsigned kHours = 24;
constexpr std::size_t kFlowSize = std::size_t{2} * kHours * kVehicleGroups;
constexpr std::uint8_t kMonitorKind = 4;

std::chrono::year_month_day DateOf(const ClockTime& time)
{
    return {std::chrono::year(time.year), std::chrono::month(time.month), std::chrono::day(time.day)};
}

// Low digits of the year first.
std::array<std::uint8_t, kDateSize> BcdDate(const ClockTime& time)
{
    const auto year = static_cast<unsigned>(time.year);
    return {ToBcd(year % 100), ToBcd(year / 100 % 100), ToBcd(time.month), ToBcd(time.day)};
}

// What passes a group in a whole hour: most at noon, less at weekends.
unsigned HourlyFlow(std::size_t group, const ClockTime& day, unsigned hour)
{
    const unsigned busy = std::min(hour, kHours - hour);
    const unsigned vehicles = 24 + 36 * busy + 12 * static_cast<unsigned>(group);
    const unsigned weekday = std::chrono::weekday(std::chrono::sys_days(DateOf(day))).iso_encoding();
    return weekday > 5 ? vehicles * 2 / 3 : vehicles;
}

// The same until now.
std::uint16_t FlowUntil(std::size_t group, const ClockTime& day, unsigned hour, const ClockTime& now)
{
    const unsigned whole = HourlyFlow(group, day, hour);
    const std::pair asked(DateOf(day), hour);
    const std::pair current(DateOf(now), now.hour);
    if (asked < current)
        return static_cast<std::uint16_t>(whole);
    if (current < asked)
        return 0;
    return static_cast<std::uint16_t>(whole * (now.minute * 60 + now.second) / 3600);
}

// The day that a query asks for.
std::optional<ClockTime> DayOf(std::span<const std::uint8_t> query, const ClockTime& now)
{
    const auto date = query.first(kDateSize);
    if (std::ranges::all_of(date, [](std::uint8_t byte) { return byte == 0; }))
        return now;
    std::array<unsigned, kDateSize> numbers{};
    for (std::size_t i = 0; i < kDateSize; ++i) {
        const auto number = FromBcd(date[i]);
        if (!number)
            return std::nullopt;
        numbers[i] = *number;
    }
    const auto [yearOfCentury, century, month, day] = numbers;
    const ClockTime asked{static_cast<int>(century * 100 + yearOfCentury), month, day};
    return DateOf(asked).ok() ? std::optional(asked) : std::nullopt;
}

// What status and real-time status share, from a place on.
void PutSignals(std::span<std::uint8_t> block, const SignalSituation& signals)
{
    const std::array<std::uint8_t, 7> fields{static_cast<std::uint8_t>(signals.run),
                                             signals.mode,
                                             signals.phase,
                                             static_cast<std::uint8_t>(signals.interval),
                                             signals.secondsLeft,
                                             kSignalPhases,
                                             std::uint8_t{kSignalGroups}};
    std::ranges::copy(fields, block.begin());
    std::ranges::copy(signals.lamps, block.begin() + fields.size());
}

} // namespace

std::vector<std::uint8_t> StatusBlock(const TrafficMoment& moment)
{
    std::vector<std::uint8_t> block(kStatusSize);
    PutSignals(block, moment.signals);
    block[14] = static_cast<std::uint8_t>(moment.climate.cabinet);
    block[15] = static_cast<std::uint8_t>(moment.climate.outside);
    Store32(block, 16, moment.runSeconds);
    return block;
}

std::vector<std::uint8_t> MonitorBlock(const TrafficMoment& moment)
{
    std::vector<std::uint8_t> block(kMonitorHead + kSignalGroups * kMonitorRecord);
    block[0] = kMonitorKind;
    block[1] = kSignalGroups;
    block[2] = moment.signals.phase;
    block[3] = moment.signals.secondsLeft;
    for (std::size_t i = 0; i < kSignalGroups; ++i) {
        const std::size_t at = kMonitorHead + i * kMonitorRecord;
        block[at] = static_cast<std::uint8_t>(i + 1);
        block[at + 1] = moment.signals.lamps[i];
        if (i >= kVehicleGroups) // nobody counts pedestrians
            continue;
        Store16(block, at + 2, FlowUntil(i, moment.time, moment.time.hour, moment.time));
        Store32(block, at + 4, HourlyFlow(i, moment.time, moment.time.hour));
    }
    return block;
}

std::vector<std::uint8_t> RealBlock(const TrafficMoment& moment)
{
    std::vector<std::uint8_t> block(kRealSize);
    std::ranges::copy(BcdDate(moment.time), block.begin());
    block[4] = ToBcd(moment.time.hour);
    block[5] = ToBcd(moment.time.minute);
    block[6] = ToBcd(moment.time.second);
    PutSignals(std::span(block).subspan(8), moment.signals);
    return block;
}

std::optional<Reply> FlowOf(std::span<const std::uint8_t> query, const ClockTime& now)
{
    const auto day = DayOf(query, now);
    if (!day)
        return std::nullopt;
    Reply reply{0, std::vector<std::uint8_t>(kFlowHead), std::vector<std::uint8_t>(kFlowSize)};
    std::ranges::copy(BcdDate(*day), reply.payload.begin());
    reply.payload[4] = kVehicleGroups;
    reply.payload[5] = kHours;
    for (unsigned hour = 0; hour < kHours; ++hour) {
        for (std::size_t group = 0; group < kVehicleGroups; ++group)
            Store16(reply.extended, 2 * (hour * kVehicleGroups + group), FlowUntil(group, *day, hour, now));
    }
    return reply;
}

} // namespace vxsim

#include "sim/logs/signLog.h"

#include "sim/command/commandNames.h"

#include <algorithm>
#include <utility>

namespace vxsim {
namespace {

// Major and minor of the commands that the system log tells of.
constexpr std::pair<std::uint8_t, std::uint8_t> kLogged[] = {
    {2, 9},  {2, 10}, {2, 11}, {2, 12},  {3, 9},   {4, 0},   {4, 1},    {4, 2},    {4, 3},   {4, 4},  {4, 7},  {4, 20},
    {4, 21}, {4, 25}, {5, 2},  {5, 4},   {6, 6},   {6, 22},  {6, 24},   {7, 2},    {7, 15},  {8, 1},  {8, 2},  {9, 1},
    {9, 2},  {10, 1}, {10, 2}, {10, 3},  {10, 8},  {10, 9},  {10, 16},  {12, 11},  {12, 15}, {16, 1}, {28, 2}, {28, 5},
    {54, 1}, {54, 4}, {54, 5}, {96, 64}, {122, 2}, {122, 5}, {122, 12}, {122, 13}, {124, 3},
};

constexpr std::int64_t kOneWindow = 1;

} // namespace

void SignLog::Command(const Frame& request, Code code, const std::string& author, const ClockTime& time)
{
    if (std::ranges::find(kLogged, std::pair(request.major, request.minor)) == std::end(kLogged))
        return;
    const std::string result = code == Code::kOk ? "OK" : "refused, code " + std::to_string(static_cast<int>(code));
    database.Add("SysLog",
                 {std::int64_t{request.major}, TimeText(time), std::string(CommandName(request)), author, result});
}

void SignLog::Started(const ClockTime& time)
{
    database.Add("SysLog", {std::int64_t{0}, TimeText(time), "start", "sign", "OK"});
}

void SignLog::Event(EventType type, bool came, const std::string& note, const ClockTime& time)
{
    database.Add("EventLog", {static_cast<std::int64_t>(type), TimeText(time), std::int64_t{came}, note});
}

void SignLog::Temperatures(const ClimateSpan& span, const ClockTime& begin, const ClockTime& end)
{
    SignDatabase::Row row{TimeText(begin), TimeText(end)};
    for (const TemperatureSpan* place : {&span.outside, &span.inside, &span.box}) {
        row.emplace_back(place->highest);
        row.emplace_back(place->lowest);
        row.emplace_back(place->Average());
    }
    database.Add("TempLog", row);
}

void SignLog::Play(const std::string& list, const std::string& file, std::uint64_t seconds, const ClockTime& begin)
{
    database.AddPlay({kOneWindow, list, file, TimeText(begin)}, static_cast<std::int64_t>(seconds));
}

} // namespace vxsim

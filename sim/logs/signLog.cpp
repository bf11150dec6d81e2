#include "sim/logs/signLog.h"

namespace vxsim {
namespace {

constexpr std::int64_t kOneWindow = 1;

} // namespace

void SignLog::Command(const Exchange& exchange, const std::string& author, const ClockTime& time)
{
    const std::string result =
        exchange.code == Code::kOk ? "OK" : "refused, code " + std::to_string(static_cast<int>(exchange.code));
    database.Add("SysLog",
                 {std::int64_t{exchange.request.major}, TimeText(time), std::string(exchange.name), author, result});
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

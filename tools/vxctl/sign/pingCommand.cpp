#include "vxctl/cli/command.h"
#include "vxctl/cli/progressBar.h"

#include <vxsign/test.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <memory>
#include <numeric>
#include <vector>

namespace vxctl {

namespace {

std::string Milliseconds(double time)
{
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), "%.3f ms", time);
    return text.data();
}

void ShowTimes(Report& report, const std::vector<double>& times, std::uint32_t sent)
{
    report.Put("sent", sent);
    report.Put("answered", times.size());
    report.Put("timesMs", times);
    std::string line = std::to_string(sent) + " sent, " + std::to_string(times.size()) + " answered";
    if (!times.empty()) {
        const auto [least, most] = std::minmax_element(times.begin(), times.end());
        const double average = std::accumulate(times.begin(), times.end(), 0.0) / static_cast<double>(times.size());
        report.Put("minMs", *least);
        report.Put("avgMs", average);
        report.Put("maxMs", *most);
        line += ", min " + Milliseconds(*least) + ", avg " + Milliseconds(average) + ", max " + Milliseconds(*most);
    }
    report.Line(line);
}

void Ping(Session& session, std::uint32_t count)
{
    session.options.retries = 1; // a second try would hide in the time of the first
    session.Connect();
    std::vector<double> times;
    std::uint32_t sent = 0;
    std::uint32_t result = VX_OK;
    while (sent < count && (result == VX_OK || result == VX_COMMUNICATION)) {
        std::array<std::uint16_t, 2> numbers{};
        std::uint32_t third = 0;
        const ProgressBar watch("ping", true);
        result = vxConnectTest(&numbers[0], &numbers[1], &third);
        const double time = watch.Seconds() * 1000;
        const std::string title = "answer " + std::to_string(++sent) + ": ";
        if (result == VX_OK)
            times.push_back(time);
        session.report.Line(title + (result != VX_OK
                                         ? std::string(vxErrorDesc(result))
                                         : Milliseconds(time) + " (" + std::to_string(numbers[0]) + ", " +
                                               std::to_string(numbers[1]) + ", " + std::to_string(third) + ")"));
    }
    ShowTimes(session.report, times, sent);
    // Some answers will do, but not when the sign refuses or Ctrl-C ends it.
    if (times.empty() || result != VX_COMMUNICATION)
        Check(result);
}

} // namespace

void AddPingCommand(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"Protocol", "ping", "Measure how long the sign takes to answer",
         R"(Each line has the time from request to answer and the three numbers of the sign's. Each is tried once: --retries does
not apply. The exit status is 0 when anything was answered.

Examples:
  vxctl ping
  vxctl ping -n 100 --timeout 500)"});
    const auto count = std::make_shared<std::uint32_t>(4);
    AddNumber(*command, "-n,--count", *count, 1, 1000000, "how often")->default_str("4");
    command->callback([&session, count] { Ping(session, *count); });
}

} // namespace vxctl

// ping: how long the sign takes to answer.
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"

#include <vxsign/test.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <numeric>
#include <vector>

namespace vxctl {

namespace {

constexpr std::uint32_t kPatienceWithOneOfMany = 2; // requests without any answer

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

std::uint32_t Ping(Session& session, const Args& args)
{
    const std::uint32_t count = args.Number("--count");
    session.options.retries = 1; // a second try would hide in the time of the first
    session.Connect();
    std::vector<double> times;
    std::uint32_t sent = 0;
    std::uint32_t result = VX_OK;
    const std::uint32_t patience = session.isOneOfMany ? kPatienceWithOneOfMany : count;
    while (sent < count && (result == VX_OK || result == VX_COMMUNICATION) && (sent < patience || !times.empty())) {
        std::array<std::uint16_t, 2> numbers{};
        std::uint32_t third = 0;
        const ProgressBar watch("ping", true);
        result = vxConnectTest(&numbers[0], &numbers[1], &third);
        const double time = watch.Seconds() * 1000;
        const std::string title = "answer " + std::to_string(++sent) + ": ";
        if (result == VX_OK)
            times.push_back(time);
        if (session.isOneOfMany)
            continue;
        session.report.Line(title + (result != VX_OK
                                         ? std::string(vxErrorDesc(result))
                                         : Milliseconds(time) + " (" + std::to_string(numbers[0]) + ", " +
                                               std::to_string(numbers[1]) + ", " + std::to_string(third) + ")"));
    }
    ShowTimes(session.report, times, sent);
    // Some answers will do, but not when the sign refuses or Ctrl-C ends it.
    return times.empty() || result != VX_COMMUNICATION ? result : static_cast<std::uint32_t>(VX_OK);
}

const Command kCommands[] = {
    {
        .name = "ping",
        .help = "Measure how long the sign takes to answer",
        .details =
            R"(Each line has the time from request to answer and the three numbers of the sign's. Each is tried once: --retries does
not apply. The exit status is 0 when anything was answered. Of many signs each has one line, and one that is silent twice
at first is given up.)",
        .examples = R"(vxctl ping
vxctl ping -n 100 --timeout 500)",
        .arguments = {Number("-n,--count", 1, 1000000, "how often").In("COUNT").Default("4")},
        .line = Line::kOwn,
        .signs = Signs::kMany,
        .run = Ping,
    },
};

} // namespace

const CommandTable kPingCommands{"Protocol", kCommands};

} // namespace vxctl

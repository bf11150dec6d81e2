// What the bridge counts as it goes, and what the system knows of the process.
#include "vxbridge/metrics/metrics.h"

#include <prometheus/text_serializer.h>
#include <sys/resource.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace vxbridge {

namespace {

const prometheus::Histogram::BucketBoundaries kSeconds = {0.001, 0.0025, 0.005, 0.01, 0.025, 0.05, 0.1,
                                                          0.25,  0.5,    1,     2.5,  5,     10};

prometheus::MetricFamily FamilyOf(const Reading& reading, prometheus::MetricType type)
{
    prometheus::ClientMetric metric;
    metric.gauge.value = reading.value;
    metric.counter.value = reading.value;
    return {reading.name, reading.help, type, {metric}};
}

std::size_t EntriesOf(const char* folder)
{
    std::error_code error;
    const std::filesystem::directory_iterator entries(folder, error);
    return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
}

double ResidentBytes()
{
    std::ifstream file("/proc/self/statm");
    double all = 0;
    double resident = 0;
    file >> all >> resident;
    return resident * static_cast<double>(::sysconf(_SC_PAGESIZE));
}

double ProcessorSeconds()
{
    rusage usage{};
    ::getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

} // namespace

Counters::CounterFamily& Counters::Family(const char* name, const char* help)
{
    return prometheus::BuildCounter().Name(name).Help(help).Register(registry);
}

Counters::Counters()
    : commands(Family("vxbridge_commands_total", "Commands that were answered, by their verb and how they went")),
      polls(Family("vxbridge_polls_total", "Polls of signs, by how they went")),
      redelivered(Family("vxbridge_commands_redelivered_total", "Commands that another bridge may have executed before")
                      .Add({})),
      repeated(
          Family("vxbridge_commands_repeated_total", "Deliveries that were answered without executing them").Add({})),
      takeovers(Family("vxbridge_takeovers_total", "Sessions of other bridges that were finished").Add({})),
      times(prometheus::BuildHistogram()
                .Name("vxbridge_exchange_seconds")
                .Help("Time of a poll or a command with its sign")
                .Register(registry))
{
}

void Counters::Add(CounterFamily& family, std::string_view verb, std::string_view outcome)
{
    family.Add({{"verb", std::string(verb)}, {"outcome", std::string(outcome)}}).Increment();
}

void Counters::AddTime(std::string_view kind, double seconds)
{
    times.Add({{"kind", std::string(kind)}}, kSeconds).Observe(seconds);
}

std::vector<prometheus::MetricFamily> FamiliesOf(const std::vector<Reading>& readings)
{
    std::vector<prometheus::MetricFamily> families;
    families.reserve(readings.size());
    for (const Reading& reading : readings)
        families.push_back(FamilyOf(reading, prometheus::MetricType::Gauge));
    return families;
}

std::vector<prometheus::MetricFamily> ProcessFamilies()
{
    auto families = FamiliesOf({
        {"process_resident_memory_bytes", "Memory of the bridge", ResidentBytes()},
        {"process_threads", "Threads of the bridge", static_cast<double>(EntriesOf("/proc/self/task"))},
        {"process_open_fds", "Descriptors of the bridge", static_cast<double>(EntriesOf("/proc/self/fd"))},
    });
    families.push_back(FamilyOf({"process_cpu_seconds_total", "Processor time of the bridge", ProcessorSeconds()},
                                prometheus::MetricType::Counter));
    return families;
}

std::string TextOf(const std::vector<prometheus::MetricFamily>& families)
{
    std::ostringstream text;
    prometheus::TextSerializer().Serialize(text, families);
    return text.str();
}

} // namespace vxbridge

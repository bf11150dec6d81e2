// What a Prometheus server reads: how the bridge is, and how its signs are.
#pragma once

#include "vxbridge/sign/signBoard.h"
#include "vxctl/book/signBook.h"

#include <prometheus/counter.h>
#include <prometheus/family.h>
#include <prometheus/histogram.h>
#include <prometheus/metric_family.h>
#include <prometheus/registry.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vxbridge {

// What the bridge counts as it goes.
class Counters
{
public:
    Counters();

    void AddCommand(std::string_view verb, std::string_view outcome) { Add(commands, verb, outcome); }
    void AddPoll(std::string_view outcome) { polls.Add({{"outcome", std::string(outcome)}}).Increment(); }
    void AddRedelivered() { redelivered.Increment(); }
    void AddRepeated() { repeated.Increment(); }
    void AddTakeover() { takeovers.Increment(); }
    void AddTime(std::string_view kind, double seconds);

    std::vector<prometheus::MetricFamily> Collect() const { return registry.Collect(); }

private:
    using CounterFamily = prometheus::Family<prometheus::Counter>;

    static void Add(CounterFamily& family, std::string_view verb, std::string_view outcome);
    CounterFamily& Family(const char* name, const char* help);

    prometheus::Registry registry;
    CounterFamily& commands;
    CounterFamily& polls;
    prometheus::Counter& redelivered;
    prometheus::Counter& repeated;
    prometheus::Counter& takeovers;
    prometheus::Family<prometheus::Histogram>& times;
};

// A number of the moment, without labels.
struct Reading
{
    const char* name;
    const char* help;
    double value;
};

std::vector<prometheus::MetricFamily> FamiliesOf(const std::vector<Reading>& readings);

// Processor time, memory, threads and descriptors of this process.
std::vector<prometheus::MetricFamily> ProcessFamilies();

// The signs of the book that the board knows; one of them, or all for "".
std::vector<prometheus::MetricFamily> SignFamilies(const vxctl::SignBook& book, const SignBoard& board,
                                                   const std::string& only);

std::string TextOf(const std::vector<prometheus::MetricFamily>& families);

} // namespace vxbridge

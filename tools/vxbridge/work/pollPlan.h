// When each sign is polled: spread evenly over the interval, so that never all come at once.
#pragma once

#include <chrono>
#include <cstddef>
#include <set>
#include <utility>
#include <vector>

namespace vxbridge {

class PollPlan
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Interval = std::chrono::milliseconds;

    // The intervals of all signs; zero for one that another polls. The moments of a sign depend on its place and its
    // interval alone: a plan that is made anew moves none, and what is new comes within one interval.
    void Make(const std::vector<Interval>& intervals, Time now);

    // The places of the signs whose moment has come; their next ones follow. What was missed is not made up for.
    std::vector<std::size_t> TakeDue(Time now);

private:
    Time NextOf(std::size_t place, Time behind) const;

    std::vector<Interval> intervals;
    std::set<std::pair<Time, std::size_t>> moments;
};

} // namespace vxbridge

#include "vxbridge/work/pollPlan.h"

namespace vxbridge {

PollPlan::Time PollPlan::NextOf(std::size_t place, Time behind) const
{
    const Interval interval = intervals[place];
    const Interval offset = interval * place / intervals.size();
    const auto elapsed = behind.time_since_epoch() - offset + interval; // never negative
    return Time(offset + interval * (elapsed / interval));
}

void PollPlan::Make(const std::vector<Interval>& wanted, Time now)
{
    intervals = wanted;
    moments.clear();
    for (std::size_t place = 0; place < intervals.size(); ++place) {
        if (intervals[place] > Interval(0))
            moments.emplace(NextOf(place, now), place);
    }
}

std::vector<std::size_t> PollPlan::TakeDue(Time now)
{
    std::vector<std::size_t> due;
    while (!moments.empty() && moments.begin()->first <= now) {
        const std::size_t place = moments.begin()->second;
        due.push_back(place);
        moments.erase(moments.begin());
        moments.emplace(NextOf(place, now), place);
    }
    return due;
}

} // namespace vxbridge

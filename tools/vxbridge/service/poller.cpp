#include "vxbridge/service/poller.h"

#include <chrono>
#include <future>
#include <optional>

namespace vxbridge {

namespace {

constexpr std::chrono::seconds kProbePatience{30};

} // namespace

// What another bridge polls is told of, but not kept: it would grow old here.
bool Poller::Poll(const vxctl::BookSign& sign)
{
    vxctl::Options options = sign.options;
    if (common.board.IsDead(sign.name))
        options.retries = 1;
    const vxctl::Outcome outcome = Timed(common.counters, "poll", options, order);
    if (outcome.result == VX_ABORTED)
        return false;
    common.counters.AddPoll(outcome.result == VX_OK ? "ok" : "failed");
    for (const Publication& publication : common.board.Take(sign, outcome, std::chrono::system_clock::now()))
        common.link.Publish(publication);
    return true;
}

void Poller::Begin(const std::shared_ptr<const vxctl::BookSign>& sign, std::function<void()> whenDone)
{
    common.queues.PutPoll(sign->name, [this, sign, whenDone = std::move(whenDone)] {
        if (!Poll(*sign))
            return false;
        whenDone();
        if (!common.own.Has(sign->name))
            common.board.Forget(sign->name);
        return true;
    });
}

std::optional<std::string> Poller::Probe(const std::string& name)
{
    const auto sign = common.shelf.Find(name);
    if (sign == nullptr)
        return std::nullopt;
    const auto begin = std::chrono::steady_clock::now();
    auto promise = std::make_shared<std::promise<std::vector<prometheus::MetricFamily>>>();
    auto found = promise->get_future();
    Begin(sign, [this, promise = std::move(promise), name, sign] {
        promise->set_value(SignFamilies({*sign}, common.board, name));
    });
    std::vector<prometheus::MetricFamily> families;
    try {
        if (found.wait_for(kProbePatience) == std::future_status::ready)
            families = found.get();
    } catch (const std::future_error&) {
        families = SignFamilies({*sign}, common.board, name); // another poll of it is under way
    }
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
    double isAvailable = 0;
    for (const auto& family : families) {
        if (family.name == "vx_sign_available")
            isAvailable = family.metric.front().gauge.value;
    }
    for (auto& family : FamiliesOf({{"probe_success", "Whether the sign answered", isAvailable},
                                    {"probe_duration_seconds", "Time that the probe took", seconds}}))
        families.push_back(std::move(family));
    return TextOf(families);
}

} // namespace vxbridge

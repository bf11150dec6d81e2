#include "sim/web/signDesk.h"

#include <algorithm>
#include <utility>

namespace vxsim {
namespace {

constexpr std::uint64_t kLookMs = 100;
constexpr std::uint64_t kNextFileMs = 2000;      // a long list of missing files takes its time
constexpr std::size_t kMostTold = 200;           // packets at a time; a page can ask for more
constexpr std::chrono::milliseconds kHeard{250}; // for a change of the condition, too

std::int64_t WallMs()
{
    using namespace std::chrono;
    return duration_cast<milliseconds>(system_clock::now().time_since_epoch()).count();
}

} // namespace

SignDesk::SignDesk(const WebSign& of, const WebIdentity& who, AskQueue& asked, std::chrono::milliseconds step)
    : web(of), identity(who), idleStep(step), questions(asked)
{
    SignEvents events;
    events.answered = [this](const Exchange& exchange) {
        answered.name = exchange.name;
        answered.code = static_cast<std::uint16_t>(exchange.code);
        answered.remark = exchange.remark;
    };
    events.heldBack = [this](std::string_view name) {
        answered.name = name;
        answered.remark = "not looked at, after wrong passwords";
    };
    web.sign.Observe(std::move(events));
    web.server.Observe([this](const Carried& carried) { Keep(carried); });
}

void SignDesk::Keep(const Carried& carried)
{
    CarriedPacket packet = std::exchange(answered, {});
    packet.timeMs = WallMs();
    packet.host = carried.arrival.host;
    packet.line = carried.arrival.line;
    packet.tookUs = std::chrono::duration_cast<std::chrono::microseconds>(carried.took).count();
    packet.request.assign(carried.request.begin(), carried.request.end());
    packet.reply.assign(carried.reply.begin(), carried.reply.end());
    traffic.Add(std::move(packet));
}

void SignDesk::Join(const std::shared_ptr<Viewer>& viewer)
{
    viewers.push_back(viewer);
    web.server.TickEvery(std::min(idleStep, kWatchedStep));
    sight = {}; // all of it for the new one; the others find nothing changed in it
    nextLookMs = 0;
    toldPacket = traffic.LastId() + 1;
}

void SignDesk::Leave(const std::shared_ptr<Viewer>& viewer)
{
    std::erase(viewers, viewer);
    if (viewers.empty())
        web.server.TickEvery(idleStep);
}

void SignDesk::Refresh()
{
    nextLookMs = 0;
    web.server.TickBy(Clock::now() + kHeard);
}

void SignDesk::Publish(std::uint64_t nowMs)
{
    if (viewers.empty())
        return;
    const Sight before = sight;
    if (!sight.face || *sight.face != web.stage.Face())
        sight.face = std::make_shared<const Canvas>(web.stage.Face());
    if (nowMs >= nextLookMs)
        Look(nowMs);
    if (toldPacket != traffic.LastId()) {
        toldPacket = traffic.LastId();
        sight.traffic = std::make_shared<const PacketList>(traffic.Before(UINT64_MAX, kMostTold));
    }
    if (sight.face == before.face && sight.moment == before.moment && sight.traffic == before.traffic)
        return;
    for (const auto& viewer : viewers)
        viewer->Put(sight);
}

void SignDesk::Look(std::uint64_t nowMs)
{
    nextLookMs = nowMs + kLookMs;
    SignMoment moment = MomentAt(nowMs);
    if (!sight.moment || *sight.moment != moment)
        sight.moment = std::make_shared<const SignMoment>(std::move(moment));
}

SignMoment SignDesk::MomentAt(std::uint64_t nowMs)
{
    VirtualSign& sign = web.sign;
    SignMoment moment;
    moment.isOn = sign.Light().IsOn();
    moment.light = sign.Light().LevelAt(nowMs);
    moment.isFixed = sign.Light().IsFixed();
    moment.secondsAhead = sign.Time().Ahead();
    moment.climate = sign.Faults().TilesAt(nowMs).climate;
    moment.playing.list = sign.Play().ListName();
    moment.playing.file = web.stage.CurrentFile(nowMs);
    moment.playing.next = NextFile(moment.playing.file, nowMs);
    moment.playing.layers = sign.Layers(nowMs);
    moment.holder = sign.Holder(nowMs);
    moment.counters = sign.Counters();
    moment.condition = sign.Faults().Now();
    moment.line = web.server.Line();
    return moment;
}

const std::string& SignDesk::NextFile(const std::string& file, std::uint64_t nowMs)
{
    if (file != nextAfter || nowMs >= nextFileMs) {
        nextAfter = file;
        nextFile = web.stage.NextFile(nowMs);
        nextFileMs = nowMs + kNextFileMs;
    }
    return nextFile;
}

} // namespace vxsim

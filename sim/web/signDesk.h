// The sign's side of the page: what its own thread does for those who look on.
#pragma once

#include "sim/web/askQueue.h"
#include "sim/web/onlooker.h"
#include "sim/web/trafficRing.h"
#include "sim/web/viewer.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vxsim {

// Belongs to the sign's thread, as the sign does; only Questions() is for others. Keeps the traffic, and while
// somebody looks on, has the face drawn and hands out what has changed.
class SignDesk : public Watcher
{
public:
    // From the loop: how often the sign looks after itself while somebody looks on, and while nobody does.
    static constexpr std::chrono::milliseconds kWatchedStep{25};

    // `step` is that of the sign while nobody looks on. The queue is answered by the loop of the sign.
    SignDesk(const WebSign& of, const WebIdentity& identity, AskQueue& questions, std::chrono::milliseconds step);
    SignDesk(const SignDesk&) = delete;
    SignDesk& operator=(const SignDesk&) = delete;

    AskQueue& Questions() { return questions; }
    const WebSign& Sign() const { return web; }
    const WebIdentity& Identity() const { return identity; }

    bool IsWatched() const override { return !viewers.empty(); }

    // After each tick of the sign: tells the viewers what is new.
    void Publish(std::uint64_t nowMs) override;

    void Join(const std::shared_ptr<Viewer>& viewer);
    void Leave(const std::shared_ptr<Viewer>& viewer);

    // What is to be known of the sign has been changed by a page: the next tick tells it.
    void Refresh();

    const TrafficRing& Traffic() const { return traffic; }
    SignMoment MomentAt(std::uint64_t nowMs);

private:
    void Keep(const Carried& carried);
    void Look(std::uint64_t nowMs);
    const std::string& NextFile(const std::string& file, std::uint64_t nowMs);

    WebSign web;
    WebIdentity identity;
    std::chrono::milliseconds idleStep;
    AskQueue& questions;
    TrafficRing traffic;
    CarriedPacket answered; // what the sign has told of the request that it answers now
    std::vector<std::shared_ptr<Viewer>> viewers;
    Sight sight;
    std::uint64_t toldPacket = 0;
    std::uint64_t nextLookMs = 0;
    std::string nextFile;
    std::string nextAfter; // the file that it comes after
    std::uint64_t nextFileMs = 0;
};

} // namespace vxsim

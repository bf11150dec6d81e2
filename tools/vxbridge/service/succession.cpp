#include "vxbridge/service/succession.h"

#include "vxbridge/journal/journal.h"
#include "vxbridge/mqtt/topics.h"
#include "vxbridge/work/sharing.h"

namespace vxbridge {

namespace {

constexpr std::chrono::milliseconds kGrace{500}; // for one that is only started anew
constexpr std::chrono::milliseconds kQuiet{1000};

} // namespace

std::string CommandClient(const std::string& bridge)
{
    return "vxbridge-" + bridge + "-commands";
}

void Succession::Note(const std::string& bridge, const Peer& peer, Time now)
{
    const std::lock_guard lock(mutex);
    if (OwnerOf(bridge, peers.Online()) == settings.id)
        estates.try_emplace(bridge, Estate{peer, now + kGrace, nullptr});
}

void Succession::Look(Time now)
{
    std::map<std::string, Estate> done; // ended behind the lock, since links wait for their threads
    {
        const std::lock_guard lock(mutex);
        for (auto estate = estates.begin(); estate != estates.end();) {
            const auto current = estate++;
            const bool isOver = current->second.link == nullptr ? peers.IsOnline(current->first)
                                                                : current->second.link->IsQuiet(kQuiet);
            if (isOver)
                done.insert(estates.extract(current));
            else if (current->second.link == nullptr && now >= current->second.due)
                Open(current->first, current->second);
        }
    }
    for (auto& [bridge, estate] : done) {
        if (estate.link != nullptr)
            estate.link->Stop(true);
    }
}

// Its subscriptions end first, so that no further command comes to a bridge that is no more.
void Succession::Open(const std::string& bridge, Estate& estate)
{
    const LinkOptions options{CommandClient(bridge), settings.sessionSeconds, std::nullopt, true};
    estate.link = std::make_unique<BrokerLink>(
        settings.broker, options,
        BrokerLink::Events{[this, bridge, link = &estate.link, sites = estate.peer.sites](bool hadSession) {
                               if (!hadSession)
                                   return;
                               Tell("finishes what " + bridge + " has left");
                               counters.AddTakeover();
                               for (const std::string& site : sites)
                                   (*link)->Unsubscribe(CommandFilter(site));
                           },
                           take});
    estate.link->Start();
}

void Succession::Close()
{
    const std::lock_guard lock(mutex);
    for (auto& [bridge, estate] : estates) {
        if (estate.link != nullptr)
            estate.link->Stop();
    }
}

} // namespace vxbridge

// Finishes what bridges leave that go: the broker still has their sessions, with every command that they did not
// answer.
#pragma once

#include "vxbridge/mqtt/brokerLink.h"
#include "vxbridge/service/common.h"
#include "vxbridge/work/peers.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace vxbridge {

// The name that a bridge has at the broker for its commands.
std::string CommandClient(const std::string& bridge);

class Succession
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Taker = std::function<void(const Message&)>;

    Succession(const Settings& all, Peers& everyone, Counters& counts, Taker taker)
        : settings(all), peers(everyone), counters(counts), take(std::move(taker))
    {
    }

    // A bridge has gone. Of those that are left one is its heir, and all know which.
    void Note(const std::string& bridge, const Peer& peer, Time now);

    // Begins what is due, and ends what is done.
    void Look(Time now);

    // Lets go of all; what is open stays with the broker.
    void Close();

private:
    struct Estate
    {
        Peer peer;
        Time due;
        std::unique_ptr<BrokerLink> link; // once it is due
    };

    void Open(const std::string& bridge, Estate& estate);

    const Settings& settings;
    Peers& peers;
    Counters& counters;
    const Taker take;
    std::mutex mutex;
    std::map<std::string, Estate> estates;
};

} // namespace vxbridge

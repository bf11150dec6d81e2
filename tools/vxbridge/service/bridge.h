// The service: puts its parts together, and does what time brings.
#pragma once

#include "vxbridge/metrics/scrapeServer.h"
#include "vxbridge/service/commandDesk.h"
#include "vxbridge/service/common.h"
#include "vxbridge/service/poller.h"
#include "vxbridge/service/succession.h"
#include "vxbridge/work/peers.h"
#include "vxbridge/work/pollPlan.h"

#include <atomic>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vxbridge {

class Bridge
{
public:
    // Throws vxctl::UsageError for a book that cannot be read.
    explicit Bridge(const Settings& wanted);

    // Until SIGTERM or SIGINT, which have to be blocked in all threads like SIGHUP.
    void Run();

private:
    Peer Self(bool isOnline) const;
    BrokerLink::Events EventsOfLink();
    BrokerLink::Events EventsOfCommands();
    void TakePeer(const std::string& bridge, const std::string& payload);
    void Subscribe();
    void SayOnline();
    void Reload();
    void Look();
    void Share();
    void Introduce(const vxctl::BookSign& sign);
    void Remove(const vxctl::BookSign& sign);
    void End();
    std::string MetricsText() const;

    const Settings& settings;
    BookShelf shelf;
    OwnSigns own;
    SignBoard board;
    Counters counters;
    Peers peers;
    PollPlan plan;
    std::shared_ptr<const vxctl::SignBook> planned; // the book that its places are of
    std::atomic<bool> isPlanOld{true};
    std::atomic<bool> isEnding{false};
    BrokerLink link;
    SignQueues queues;
    const Common common;
    Poller poller;
    CommandDesk desk;
    Succession succession;
    BrokerLink commands;
    std::optional<ScrapeServer> server;
};

} // namespace vxbridge

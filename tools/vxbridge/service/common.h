// What the parts of the service share.
#pragma once

#include "vxbridge/metrics/metrics.h"
#include "vxbridge/mqtt/brokerLink.h"
#include "vxbridge/service/settings.h"
#include "vxbridge/sign/signBoard.h"
#include "vxbridge/work/signQueues.h"
#include "vxctl/book/signBook.h"

#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <utility>

namespace vxbridge {

// The book in force; whoever works with a former one keeps it for as long.
class BookShelf
{
public:
    explicit BookShelf(vxctl::SignBook book) { Put(std::move(book)); }

    std::shared_ptr<const vxctl::SignBook> Get() const;
    void Put(vxctl::SignBook book);

    // Null when there is no such sign. It lives as long as whoever holds it.
    std::shared_ptr<const vxctl::BookSign> Find(const std::string& sign) const;

private:
    mutable std::mutex mutex;
    std::shared_ptr<const vxctl::SignBook> current;
};

// The signs that this bridge polls.
class OwnSigns
{
public:
    bool Has(const std::string& sign) const;
    std::size_t Count() const;

    // Gives the former ones.
    std::set<std::string> Put(std::set<std::string> signs);

private:
    mutable std::mutex mutex;
    std::set<std::string> names;
};

struct Common
{
    const Settings& settings;
    BookShelf& shelf;
    OwnSigns& own;
    SignQueues& queues;
    SignBoard& board;
    Counters& counters;
    BrokerLink& link; // for all that is published
};

// Runs something with a sign, and counts its time.
vxctl::Outcome Timed(Counters& counters, const char* kind, const vxctl::Options& sign, const vxctl::Order& order);

} // namespace vxbridge

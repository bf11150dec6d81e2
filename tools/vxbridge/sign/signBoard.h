// What is known of each sign, and what the broker has been told of it.
#pragma once

#include "vxbridge/mqtt/message.h"
#include "vxctl/book/signBook.h"
#include "vxctl/cli/outcome.h"

#include <nlohmann/json.hpp>

#include <chrono>
#include <functional>
#include <map>
#include <mutex>
#include <string>
#include <vector>

namespace vxbridge {

using Json = nlohmann::ordered_json;
using WallTime = std::chrono::system_clock::time_point;

// "2026-11-22T16:20:05Z"
std::string TimeText(WallTime time);

struct SignRecord
{
    std::string site;
    bool isAvailable = false;
    std::string reason; // why it is not
    WallTime since;     // of availability or the lack of it
    WallTime polled;
    Json values = Json::object();              // of the last poll that it answered
    std::map<std::string, std::string> told{}; // by topic, without times
    unsigned quietPolls = 0;                   // since all was told
};

class SignBoard
{
public:
    // The words of vxctl that a poll is.
    static std::vector<std::string> PollWords() { return {"status"}; }

    // After a poll: what has changed, and everything each tenth time.
    std::vector<Publication> Take(const vxctl::BookSign& sign, const vxctl::Outcome& outcome, WallTime now);

    // Everything, for a broker that knows nothing any more.
    std::vector<Publication> All() const;

    // The sign is another bridge's now, or is no more; then what the broker keeps goes as well.
    void Forget(const std::string& sign);
    static std::vector<Publication> Removal(const vxctl::BookSign& sign);

    // Whether the last poll found nothing there: the next one makes one try only.
    bool IsDead(const std::string& sign) const;

    void ForEach(const std::function<void(const std::string& sign, const SignRecord& record)>& look) const;

private:
    mutable std::mutex mutex;
    std::map<std::string, SignRecord> records;
};

} // namespace vxbridge

#include "vxbridge/sign/signBoard.h"

#include "vxbridge/mqtt/topics.h"

#include <array>
#include <ctime>
#include <initializer_list>

namespace vxbridge {

namespace {

constexpr unsigned kQuietMost = 10; // polls

// A topic, and what of the values of a poll goes there.
struct TopicRow
{
    const char* topic;
    std::initializer_list<const char*> keys;
};

constexpr const char* kAvailability = "availability";

const TopicRow kTopics[] = {
    {"state", {"state", "stateCode", "power", "measured", "lightEighths", "lightFixed", "beacon", "face", "colours"}},
    {"warnings", {"warnings"}},
    {"playing", {"playing"}},
};

Json HeadOf(const std::string& sign, const SignRecord& record)
{
    return {{"site", record.site}, {"sign", sign}};
}

Json ValuesFor(const TopicRow& row, const std::string& sign, const SignRecord& record)
{
    Json payload = HeadOf(sign, record);
    for (const char* const key : row.keys) {
        if (const auto value = record.values.find(key); value != record.values.end())
            payload[key] = *value;
    }
    return payload;
}

Json AvailabilityOf(const std::string& sign, const SignRecord& record)
{
    Json payload = HeadOf(sign, record);
    payload["available"] = record.isAvailable;
    payload["reason"] = record.isAvailable ? Json() : Json(record.reason);
    payload["since"] = TimeText(record.since);
    return payload;
}

Publication Make(const std::string& sign, const SignRecord& record, const char* topic, Json payload)
{
    payload["time"] = TimeText(record.polled);
    return {SignTopic(record.site, sign, topic), payload.dump(-1, ' ', false, Json::error_handler_t::replace)};
}

// What differs from what was told; all of it for a null pointer.
std::vector<Publication> Differences(const std::string& sign, const SignRecord& record,
                                     std::map<std::string, std::string>* told)
{
    std::vector<Publication> changed;
    const auto compare = [&](const char* topic, Json payload) {
        std::string text = payload.dump(-1, ' ', false, Json::error_handler_t::replace);
        if (told != nullptr && (*told)[topic] == text)
            return;
        if (told != nullptr)
            (*told)[topic] = std::move(text);
        changed.push_back(Make(sign, record, topic, std::move(payload)));
    };
    for (const TopicRow& row : kTopics) {
        if (!record.values.empty())
            compare(row.topic, ValuesFor(row, sign, record));
    }
    compare(kAvailability, AvailabilityOf(sign, record));
    return changed;
}

} // namespace

std::string TimeText(WallTime time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%FT%TZ", &parts)};
}

std::vector<Publication> SignBoard::Take(const vxctl::BookSign& sign, const vxctl::Outcome& outcome, WallTime now)
{
    const std::lock_guard lock(mutex);
    const auto [found, isNew] = records.try_emplace(sign.name);
    SignRecord& record = found->second;
    const bool isAvailable = outcome.result == VX_OK;
    if (isNew || record.isAvailable != isAvailable)
        record.since = now;
    record.site = sign.site;
    record.isAvailable = isAvailable;
    record.reason = outcome.reason.empty() ? vxErrorDesc(outcome.result) : outcome.reason;
    record.polled = now;
    if (isAvailable)
        record.values = outcome.values;
    if (++record.quietPolls >= kQuietMost)
        record.told.clear();
    if (record.told.empty())
        record.quietPolls = 0;
    return Differences(sign.name, record, &record.told);
}

std::vector<Publication> SignBoard::All() const
{
    const std::lock_guard lock(mutex);
    std::vector<Publication> all;
    for (const auto& [sign, record] : records) {
        for (Publication& publication : Differences(sign, record, nullptr))
            all.push_back(std::move(publication));
    }
    return all;
}

void SignBoard::Forget(const std::string& sign)
{
    const std::lock_guard lock(mutex);
    records.erase(sign);
}

std::vector<Publication> SignBoard::Removal(const vxctl::BookSign& sign)
{
    std::vector<Publication> gone{{SignTopic(sign.site, sign.name, kAvailability), ""}};
    for (const TopicRow& row : kTopics)
        gone.push_back({SignTopic(sign.site, sign.name, row.topic), ""});
    return gone;
}

bool SignBoard::IsDead(const std::string& sign) const
{
    const std::lock_guard lock(mutex);
    const auto found = records.find(sign);
    return found != records.end() && !found->second.isAvailable;
}

void SignBoard::ForEach(const std::function<void(const std::string&, const SignRecord&)>& look) const
{
    const std::lock_guard lock(mutex);
    for (const auto& [sign, record] : records)
        look(sign, record);
}

} // namespace vxbridge

// What comes and goes over the connection.
#include "vxbridge/journal/journal.h"
#include "vxbridge/mqtt/brokerLink.h"
#include "vxbridge/mqtt/properties.h"

namespace vxbridge {

namespace {

using std::chrono::milliseconds;

constexpr int kOnce = 1; // quality of service: at least once
constexpr std::size_t kMostWaiting = 10'000;

} // namespace

void BrokerLink::TakeMessage(Message message, int id, int qos)
{
    lastNews = Clock::now();
    message.isRedelivered = isRedelivered;
    if (qos > 0 && options.sessionSeconds != 0) {
        message.receipt = unanswered->Take(id, isRedelivered);
        if (message.receipt == nullptr)
            return; // it is in work, or done
    }
    events.onMessage(message);
}

bool BrokerLink::IsQuiet(milliseconds time) const
{
    return isTakenOver || (unanswered->IsEmpty() && Clock::now() - lastNews.load() > time);
}

void BrokerLink::Publish(const Publication& publication, const Receipt& receipt)
{
    const std::lock_guard lock(mutex);
    if (!Send(publication, receipt) && !publication.isRetained && waiting.size() < kMostWaiting)
        waiting.push_back({publication, receipt});
    Wake();
}

// Under the lock, so that the arrival of a message does not overtake its receipt.
bool BrokerLink::Send(const Publication& publication, const Receipt& receipt)
{
    if (!isConnected)
        return false;
    Properties properties;
    if (!publication.payload.empty())
        properties.AddText(MQTT_PROP_CONTENT_TYPE, "application/json");
    if (!publication.correlation.empty())
        properties.AddBytes(MQTT_PROP_CORRELATION_DATA, publication.correlation);
    if (publication.isRedelivered)
        properties.AddUser("redelivered", "true");
    int id = 0;
    const int result =
        mosquitto_publish_v5(client, &id, publication.topic.c_str(), static_cast<int>(publication.payload.size()),
                             publication.payload.data(), kOnce, publication.isRetained, properties.Get());
    if (result == MOSQ_ERR_SUCCESS && !publication.isRetained)
        underWay[id] = {publication, receipt};
    if (result != MOSQ_ERR_SUCCESS && result != MOSQ_ERR_NO_CONN)
        Tell("cannot publish to " + publication.topic + ": " + mosquitto_strerror(result));
    return result != MOSQ_ERR_NO_CONN;
}

void BrokerLink::SendWaiting()
{
    const std::lock_guard lock(mutex);
    for (const auto& [publication, receipt] : std::exchange(waiting, {}))
        Send(publication, receipt);
}

// They go once more over the next connection: better twice than never.
void BrokerLink::KeepUnderWay()
{
    const std::lock_guard lock(mutex);
    for (auto& [id, sent] : std::exchange(underWay, {}))
        waiting.push_back(std::move(sent));
}

void BrokerLink::TakeArrived(int id)
{
    Receipt gone; // let go behind the lock
    const std::lock_guard lock(mutex);
    if (const auto found = underWay.find(id); found != underWay.end()) {
        gone = std::move(found->second.receipt);
        underWay.erase(found);
    }
}

void BrokerLink::Subscribe(const std::string& filter)
{
    mosquitto_subscribe_v5(client, nullptr, filter.c_str(), kOnce, 0, nullptr);
    Wake();
}

void BrokerLink::Unsubscribe(const std::string& filter)
{
    mosquitto_unsubscribe_v5(client, nullptr, filter.c_str(), nullptr);
    Wake();
}

} // namespace vxbridge

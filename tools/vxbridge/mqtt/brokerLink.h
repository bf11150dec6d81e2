// A connection to the broker with a thread of its own, which makes it anew for as long as it is wanted.
#pragma once

#include "vxbridge/mqtt/brokerAddress.h"
#include "vxbridge/mqtt/message.h"
#include "vxbridge/mqtt/unanswered.h"

#include <atomic>
#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <unordered_map>
#include <utility>

struct mosquitto;

namespace vxbridge {

struct LinkOptions
{
    std::string client;                // its name at the broker
    std::uint32_t sessionSeconds = 0;  // for which the broker keeps what was not done; 0 for no session
    std::optional<Publication> will{}; // what the broker says when the connection is lost
    bool givesWay = false;             // ends when another connection takes its name
};

class BrokerLink
{
public:
    // All run on the thread of the link.
    struct Events
    {
        std::function<void(bool hadSession)> onConnected = [](bool) {};
        std::function<void(const Message&)> onMessage = [](const Message&) {};
    };

    BrokerLink(const BrokerAddress& broker, LinkOptions wanted, Events whatHappens);
    ~BrokerLink();
    BrokerLink(const BrokerLink&) = delete;
    BrokerLink& operator=(const BrokerLink&) = delete;

    // Begins to connect, with growing pauses as long as the broker is away.
    void Start();

    // The broker is there: does not wait for the end of a pause.
    void Hurry();

    // Sends what still waits for a moment, and says goodbye when nothing that came is open. A session stays with the
    // broker unless it is to end.
    void Stop(bool endsSession = false);

    // What is not retained waits for a broker that is away; what is has to be published anew when it is back. The
    // receipt is let go when the broker has it.
    void Publish(const Publication& publication, const Receipt& receipt = nullptr);
    void Subscribe(const std::string& filter);
    void Unsubscribe(const std::string& filter);

    bool IsConnected() const { return isConnected; }

    // Whether it has given way, or all that came is done and nothing has come for so long.
    bool IsQuiet(std::chrono::milliseconds time) const;

private:
    using Clock = std::chrono::steady_clock;

    struct Callbacks;

    void Prepare(const BrokerAddress& broker);
    void Run();
    bool Connect();
    void Serve();
    int Turn();
    int Write();
    void End();
    void Wake() const;
    void AwaitBell(std::chrono::milliseconds time) const;
    bool Send(const Publication& publication, const Receipt& receipt);
    void SendWaiting();
    void KeepUnderWay();
    void TakeConnected(int code, bool hadSession);
    void TakeMessage(Message message, int id, int qos);
    void TakeArrived(int id);

    const BrokerAddress address;
    const LinkOptions options;
    const Events events;
    mosquitto* client = nullptr;
    int bell = -1;
    std::thread thread;
    std::atomic<bool> isConnected{false};
    std::atomic<bool> isStopping{false};
    std::atomic<bool> isTakenOver{false};
    std::atomic<bool> isHurried{false};
    std::atomic<bool> endsSession{false};
    std::atomic<Clock::time_point> lastNews{Clock::now()};
    bool isGreeting = false;    // the broker has not answered yet
    bool isRedelivered = false; // the message that is being read
    std::shared_ptr<Unanswered> unanswered;
    std::mutex mutex; // of what follows
    struct Sent
    {
        Publication publication;
        Receipt receipt;
    };
    std::unordered_map<int, Sent> underWay; // answers that the broker does not have yet
    std::deque<Sent> waiting;               // and those that could not go
};

} // namespace vxbridge

// The connection: how it is made, kept and ended.
#include "vxbridge/mqtt/brokerLink.h"

#include "vxbridge/journal/journal.h"
#include "vxbridge/mqtt/properties.h"
#include "vxctl/cli/failure.h"

#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <new>

namespace vxbridge {

namespace {

using std::chrono::milliseconds;

constexpr int kOnce = 1; // quality of service: at least once
constexpr int kKeepAliveSeconds = 10;
constexpr int kReceiveMost = 4096; // messages that are not done yet; then the broker keeps the others
constexpr milliseconds kFirstPause{250};
constexpr milliseconds kLongestPause{30'000};
constexpr milliseconds kTurn{500};
constexpr milliseconds kFarewell{1000};

// While acknowledgements are held back no ping goes out, so that the system has to notice a broker that is gone.
void KeepAliveByTcp(int socket)
{
    const int on = 1;
    const int idle = kKeepAliveSeconds;
    const int between = 5;
    const int tries = 2;
    ::setsockopt(socket, SOL_SOCKET, SO_KEEPALIVE, &on, sizeof on);
    ::setsockopt(socket, IPPROTO_TCP, TCP_KEEPIDLE, &idle, sizeof idle);
    ::setsockopt(socket, IPPROTO_TCP, TCP_KEEPINTVL, &between, sizeof between);
    ::setsockopt(socket, IPPROTO_TCP, TCP_KEEPCNT, &tries, sizeof tries);
}

} // namespace

struct BrokerLink::Callbacks
{
    static BrokerLink& LinkOf(void* object) { return *static_cast<BrokerLink*>(object); }

    static void Connected(mosquitto*, void* object, int code, int flags, const mosquitto_property*)
    {
        LinkOf(object).TakeConnected(code, (flags & 1) != 0);
    }

    static void Disconnected(mosquitto*, void* object, int code, const mosquitto_property*)
    {
        LinkOf(object).isTakenOver = code == MQTT_RC_SESSION_TAKEN_OVER;
    }

    static void Arrived(mosquitto*, void* object, int id, int, const mosquitto_property*)
    {
        LinkOf(object).TakeArrived(id);
    }

    static void Came(mosquitto*, void* object, const mosquitto_message* message, const mosquitto_property* properties)
    {
        LinkOf(object).TakeMessage(
            {message->topic,
             {static_cast<const char*>(message->payload), static_cast<std::size_t>(message->payloadlen)},
             TextOf(properties, MQTT_PROP_RESPONSE_TOPIC),
             BytesOf(properties, MQTT_PROP_CORRELATION_DATA)},
            message->mid, message->qos);
    }

    // Whether a message went out before is told here alone, right before the message itself.
    static void Logged(mosquitto*, void* object, int, const char* text)
    {
        if (const char* const found = std::strstr(text, "received PUBLISH (d"); found != nullptr)
            LinkOf(object).isRedelivered = found[std::strlen("received PUBLISH (d")] == '1';
    }
};

BrokerLink::BrokerLink(const BrokerAddress& broker, LinkOptions wanted, Events whatHappens)
    : address(broker), options(std::move(wanted)), events(std::move(whatHappens)),
      client(mosquitto_new(options.client.c_str(), options.sessionSeconds == 0, this)),
      bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK)), unanswered(std::make_shared<Unanswered>([this] { Wake(); }))
{
    if (client == nullptr || bell < 0)
        throw std::bad_alloc();
    Prepare(broker);
}

BrokerLink::~BrokerLink()
{
    Stop();
    unanswered->Close();
    mosquitto_destroy(client);
    ::close(bell);
}

void BrokerLink::Prepare(const BrokerAddress& broker)
{
    mosquitto_int_option(client, MOSQ_OPT_PROTOCOL_VERSION, MQTT_PROTOCOL_V5);
    mosquitto_int_option(client, MOSQ_OPT_RECEIVE_MAXIMUM, kReceiveMost);
    mosquitto_int_option(client, MOSQ_OPT_TCP_NODELAY, 1);
    mosquitto_threaded_set(client, true); // what goes out waits for Write
    mosquitto_connect_v5_callback_set(client, Callbacks::Connected);
    mosquitto_disconnect_v5_callback_set(client, Callbacks::Disconnected);
    mosquitto_publish_v5_callback_set(client, Callbacks::Arrived);
    mosquitto_message_v5_callback_set(client, Callbacks::Came);
    mosquitto_log_callback_set(client, Callbacks::Logged);
    if (!broker.user.empty())
        mosquitto_username_pw_set(client, broker.user.c_str(), broker.password.c_str());
    const auto orNull = [](const std::string& text) { return text.empty() ? nullptr : text.c_str(); };
    if (broker.isSecret &&
        mosquitto_tls_set(client, orNull(broker.authorities), broker.authorities.empty() ? "/etc/ssl/certs" : nullptr,
                          orNull(broker.certificate), orNull(broker.key), nullptr) != MOSQ_ERR_SUCCESS)
        throw vxctl::UsageError("cannot use the certificates for " + broker.host);
    if (const auto& will = options.will)
        mosquitto_will_set_v5(client, will->topic.c_str(), static_cast<int>(will->payload.size()), will->payload.data(),
                              kOnce, will->isRetained, nullptr);
}

void BrokerLink::Start()
{
    thread = std::thread([this] { Run(); });
}

void BrokerLink::Stop(bool isSessionEnd)
{
    if (!thread.joinable())
        return;
    endsSession = isSessionEnd;
    isStopping = true;
    Wake();
    thread.join();
}

void BrokerLink::Hurry()
{
    isHurried = true;
    Wake();
}

void BrokerLink::Wake() const
{
    ::eventfd_write(bell, 1);
}

void BrokerLink::AwaitBell(milliseconds time) const
{
    pollfd watched{bell, POLLIN, 0};
    eventfd_t rung = 0;
    if (::poll(&watched, 1, static_cast<int>(time.count())) > 0)
        ::eventfd_read(bell, &rung);
}

void BrokerLink::Run()
{
    milliseconds pause = kFirstPause;
    while (!isStopping && !(isTakenOver && options.givesWay)) {
        const auto began = Clock::now();
        if (Connect())
            Serve();
        if (Clock::now() - began > kLongestPause)
            pause = kFirstPause;
        for (const auto end = Clock::now() + pause; !isStopping && !isHurried && Clock::now() < end;)
            AwaitBell(std::chrono::duration_cast<milliseconds>(end - Clock::now()) + milliseconds(1));
        pause = std::min(pause * 2, kLongestPause);
    }
}

bool BrokerLink::Connect()
{
    isTakenOver = false;
    isHurried = false;
    isGreeting = true;
    Properties properties;
    properties.AddNumber(MQTT_PROP_SESSION_EXPIRY_INTERVAL, options.sessionSeconds);
    const int result =
        mosquitto_connect_bind_v5(client, address.host.c_str(), address.port,
                                  options.sessionSeconds == 0 ? kKeepAliveSeconds : 0, nullptr, properties.Get());
    if (result != MOSQ_ERR_SUCCESS) {
        const char* const why = result == MOSQ_ERR_ERRNO ? std::strerror(errno) : mosquitto_strerror(result);
        Tell("no broker at " + address.host + ":" + std::to_string(address.port) + ": " + why);
        return false;
    }
    if (options.sessionSeconds != 0)
        KeepAliveByTcp(mosquitto_socket(client));
    return true;
}

void BrokerLink::Serve()
{
    int result = MOSQ_ERR_SUCCESS;
    while (!isStopping && result == MOSQ_ERR_SUCCESS)
        result = Turn();
    if (isStopping && result == MOSQ_ERR_SUCCESS)
        return End();
    isConnected = false;
    KeepUnderWay();
    Tell(options.client +
         " lost the broker: " + (isTakenOver ? "another connection has its name" : mosquitto_strerror(result)));
}

int BrokerLink::Turn()
{
    const bool mayWrite = isGreeting || unanswered->IsEmpty();
    const short wanted = mayWrite && mosquitto_want_write(client) ? POLLIN | POLLOUT : POLLIN;
    std::array<pollfd, 2> watched{{{mosquitto_socket(client), wanted, 0}, {bell, POLLIN, 0}}};
    ::poll(watched.data(), watched.size(), static_cast<int>(kTurn.count()));
    AwaitBell(milliseconds(0));
    int result = MOSQ_ERR_SUCCESS;
    if ((watched[0].revents & (POLLIN | POLLHUP | POLLERR)) != 0)
        result = mosquitto_loop_read(client, 1);
    if (result == MOSQ_ERR_SUCCESS)
        result = Write();
    return result == MOSQ_ERR_SUCCESS ? mosquitto_loop_misc(client) : result;
}

// The library has put acknowledgements among what goes out as the messages came: none goes as long as one of them is
// not done.
int BrokerLink::Write()
{
    if (!isGreeting && !unanswered->IsEmpty())
        return MOSQ_ERR_SUCCESS;
    if (mosquitto_want_write(client)) {
        const int result = mosquitto_loop_write(client, 1);
        if (result != MOSQ_ERR_SUCCESS || mosquitto_want_write(client))
            return result;
    }
    if (!isGreeting)
        unanswered->Forget();
    return MOSQ_ERR_SUCCESS;
}

// A goodbye would take along the acknowledgements of what is not done: then the line is cut.
void BrokerLink::End()
{
    const auto isBusy = [this] {
        const std::lock_guard lock(mutex);
        return mosquitto_want_write(client) || !underWay.empty() || !waiting.empty();
    };
    for (const auto end = Clock::now() + kFarewell; isConnected && isBusy() && Clock::now() < end;) {
        if (Turn() != MOSQ_ERR_SUCCESS)
            return;
    }
    isConnected = false;
    if (!unanswered->IsEmpty())
        return;
    Properties properties;
    if (endsSession)
        properties.AddNumber(MQTT_PROP_SESSION_EXPIRY_INTERVAL, 0);
    mosquitto_disconnect_v5(client, MQTT_RC_NORMAL_DISCONNECTION, properties.Get());
    mosquitto_loop_write(client, 1);
}

void BrokerLink::TakeConnected(int code, bool hadSession)
{
    if (code != MQTT_RC_SUCCESS)
        return Tell("the broker refuses " + options.client + ": " + mosquitto_reason_string(code));
    isGreeting = false;
    lastNews = Clock::now();
    if (!hadSession)
        unanswered->Forget();
    isConnected = true;
    SendWaiting();
    events.onConnected(hadSession);
}

} // namespace vxbridge

// The threads that speak with browsers.
#pragma once

#include "sim/platform/descriptor.h"
#include "sim/web/httpConnection.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <httplib.h>
#include <optional>
#include <string>
#include <thread>
#include <utility>

namespace vxsim {

// Takes connections and answers one request on each, by the routes it is given. No connection waits for another: those
// that would are refused.
class HttpServer : public httplib::Server
{
public:
    // Pages that look on hold a connection each; the others are for what they ask.
    static constexpr int kMostStreams = 16;
    static constexpr int kMostConnections = 48;

    // Listens, but serves nobody yet. `host` is an IPv4 address. Throws std::system_error if it cannot.
    HttpServer(const std::string& host, std::uint16_t port);
    ~HttpServer() override { Stop(); }

    std::uint16_t Port() const { return port; }

    // Changes each request before anybody looks at it.
    void PrepareBy(std::function<void(httplib::Request&)> change) { prepare = std::move(change); }

    void Start();

    // Ends all connections.
    void Stop();

    // Can be read when the server ends.
    const Descriptor& Stopping() const { return stopping; }

private:
    void Accept();
    void Serve(int connection);
    void Answer(HttpConnection& connection);

    Descriptor stopping;
    Descriptor listening;
    std::uint16_t port = 0;
    std::atomic<int> open = 0; // connections
    std::function<void(httplib::Request&)> prepare;
    std::optional<httplib::ThreadPool> pool;
    std::thread acceptor;
};

} // namespace vxsim

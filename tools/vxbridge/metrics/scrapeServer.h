// The HTTP server that Prometheus asks: /metrics, and /probe?target=SIGN.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <thread>

namespace httplib {
class Server;
}

namespace vxbridge {

class ScrapeServer
{
public:
    struct Answers
    {
        std::function<std::string()> metrics;
        std::function<std::optional<std::string>(const std::string& target)> probe; // nothing for no such sign
    };

    // "HOST:PORT"; port 0 picks one. Throws vxctl::UsageError, and std::runtime_error when it cannot listen there.
    ScrapeServer(const std::string& place, const Answers& answers);
    ~ScrapeServer();
    ScrapeServer(const ScrapeServer&) = delete;
    ScrapeServer& operator=(const ScrapeServer&) = delete;

    const std::string& Url() const { return url; }

private:
    std::unique_ptr<httplib::Server> server;
    std::string url;
    std::thread thread;
};

} // namespace vxbridge

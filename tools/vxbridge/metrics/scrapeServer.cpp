#include "vxbridge/metrics/scrapeServer.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <httplib.h>

#include <stdexcept>
#include <utility>

namespace vxbridge {

namespace {

constexpr const char* kTextFormat = "text/plain; version=0.0.4; charset=utf-8";
constexpr std::size_t kThreads = 4;

} // namespace

ScrapeServer::ScrapeServer(const std::string& place, const Answers& answers)
    : server(std::make_unique<httplib::Server>())
{
    const std::size_t colon = place.rfind(':');
    const auto port = colon == std::string::npos ? std::nullopt : vxctl::ParseNumber(place.substr(colon + 1));
    if (!port || *port > UINT16_MAX || colon == 0)
        throw vxctl::UsageError("'" + place + "' is no HOST:PORT");
    server->new_task_queue = [] { return new httplib::ThreadPool(kThreads); };
    server->set_keep_alive_timeout(1); // a scraper that stays keeps a thread
    server->set_payload_max_length(0);
    server->Get("/metrics", [answers](const httplib::Request&, httplib::Response& response) {
        response.set_content(answers.metrics(), kTextFormat);
    });
    server->Get("/probe", [answers](const httplib::Request& request, httplib::Response& response) {
        if (const auto text = answers.probe(request.get_param_value("target")))
            return response.set_content(*text, kTextFormat);
        response.status = 404;
        response.set_content("no sign of that name: /probe?target=NAME\n", "text/plain");
    });
    const std::string host = place.substr(0, colon);
    const int bound = *port == 0                                            ? server->bind_to_any_port(host)
                      : server->bind_to_port(host, static_cast<int>(*port)) ? static_cast<int>(*port)
                                                                            : -1;
    if (bound < 0)
        throw std::runtime_error("cannot listen at " + place);
    url = "http://" + host + ":" + std::to_string(bound);
    thread = std::thread([this] { server->listen_after_bind(); });
    while (!server->is_running())
        std::this_thread::yield(); // what stops it ahead of that is lost
}

ScrapeServer::~ScrapeServer()
{
    server->stop();
    thread.join();
}

} // namespace vxbridge

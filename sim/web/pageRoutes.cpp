// The files of the page, and its stream of events.
#include "sim/web/eventStream.h"
#include "sim/web/pageFiles.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"

#include <algorithm>
#include <memory>
#include <string_view>
#include <utility>

namespace vxsim {
namespace {

constexpr std::pair<std::string_view, const char*> kTypes[] = {{".html", "text/html; charset=utf-8"},
                                                               {".css", "text/css; charset=utf-8"},
                                                               {".js", "text/javascript; charset=utf-8"},
                                                               {".svg", "image/svg+xml"}};

const char* TypeOf(std::string_view path)
{
    const auto* const type =
        std::ranges::find_if(kTypes, [&](const auto& known) { return path.ends_with(known.first); });
    return type == std::end(kTypes) ? "application/octet-stream" : type->second;
}

// Counts a stream as long as it lives.
class Seat
{
public:
    explicit Seat(std::atomic<int>& of) : taken(of)
    {
        if (++taken > HttpServer::kMostStreams) {
            --taken;
            throw Refusal(503, "too many pages look on");
        }
    }
    ~Seat() { --taken; }
    Seat(const Seat&) = delete;
    Seat& operator=(const Seat&) = delete;

private:
    std::atomic<int>& taken;
};

struct SeatedStream
{
    Seat seat;
    EventStream events;
};

} // namespace

void AddPages(HttpServer& server)
{
    for (const PageFile& file : PageFiles()) {
        const auto give = [file](const httplib::Request&, httplib::Response& response) {
            response.set_content(file.bytes.data(), file.bytes.size(), TypeOf(file.path));
        };
        std::string pattern;
        for (const char c : file.path)
            pattern += c == '.' ? "\\." : std::string(1, c);
        server.Get(pattern, give);
        if (file.path == "/index.html")
            server.Get("/", give);
    }
}

void AddEvents(HttpServer& server, SignDesk& desk, const std::string& sign)
{
    const auto seats = std::make_shared<std::atomic<int>>(0);
    server.Get("/events", [&server, &desk, sign, seats](const httplib::Request&, httplib::Response& response) {
        const std::shared_ptr<SeatedStream> stream(new SeatedStream{Seat(*seats), {desk, server.Stopping(), sign}});
        response.set_content_provider(
            "text/event-stream", [stream](std::size_t, httplib::DataSink& sink) { return stream->events.Tell(sink); });
    });
}

} // namespace vxsim

// The files of the page, and its stream of events.
#include "sim/web/eventStream.h"
#include "sim/web/jsonText.h"
#include "sim/web/pageFiles.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"

#include <algorithm>
#include <memory>
#include <string>
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

void Give(const PageFile& file, httplib::Response& response)
{
    response.set_content(file.bytes.data(), file.bytes.size(), TypeOf(file.path));
}

std::string SignEvent(const SignDesk& desk)
{
    const SignSettings& settings = desk.Sign().sign.Settings();
    const WebIdentity& identity = desk.Identity();
    return Dump({{"version", identity.version},
                 {"name", identity.name},
                 {"width", settings.width},
                 {"height", settings.height},
                 {"controller", settings.controller},
                 {"drives", settings.drives},
                 {"folder", identity.folder},
                 {"lines", identity.lines}});
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

void AddPages(HttpServer& server, const std::function<std::string(const httplib::Request&)>& first)
{
    for (const PageFile& file : PageFiles()) {
        std::string pattern;
        for (const char c : file.path)
            pattern += c == '.' ? "\\." : std::string(1, c);
        server.Get(pattern, [file](const auto&, auto& response) { Give(file, response); });
    }
    server.Get("/", [first](const auto& request, auto& response) {
        Give(*std::ranges::find(PageFiles(), first(request), &PageFile::path), response);
    });
}

void AddEvents(HttpServer& server, const DeskOf& deskOf)
{
    const auto seats = std::make_shared<std::atomic<int>>(0);
    server.Get("/events", [&server, deskOf, seats](const httplib::Request& request, httplib::Response& response) {
        SignDesk& desk = deskOf(request);
        const std::shared_ptr<SeatedStream> stream(
            new SeatedStream{Seat(*seats), {desk, server.Stopping(), SignEvent(desk)}});
        response.set_content_provider(
            "text/event-stream", [stream](std::size_t, httplib::DataSink& sink) { return stream->events.Tell(sink); });
    });
}

void AddSign(HttpServer& server, const DeskOf& deskOf)
{
    AddEvents(server, deskOf);
    AddTraffic(server, deskOf);
    AddChanges(server, deskOf);
    AddFiles(server, deskOf);
    AddReports(server, deskOf);
}

} // namespace vxsim

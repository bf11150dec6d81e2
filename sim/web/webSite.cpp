#include "sim/web/webSite.h"

#include "sim/web/guard.h"
#include "sim/web/jsonText.h"
#include "sim/web/refusal.h"
#include "sim/web/routes.h"

#include <utility>

namespace vxsim {
namespace {

constexpr std::string_view kJson = "application/json";

const httplib::Headers kAlways{
    {"Content-Security-Policy", "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' blob:; "
                                "connect-src 'self'; base-uri 'none'; form-action 'none'; frame-ancestors 'none'"},
    {"X-Content-Type-Options", "nosniff"},
    {"Referrer-Policy", "no-referrer"},
    {"Cross-Origin-Resource-Policy", "same-origin"},
    {"Cache-Control", "no-store"},
};

void Answer(httplib::Response& response, int status, const std::string& why)
{
    response.status = status;
    response.set_content(Dump({{"error", why}}), std::string(kJson));
    if (status == 401)
        response.set_header("WWW-Authenticate", "Basic realm=\"vxsim\", charset=\"UTF-8\"");
}

// What a handler has thrown, as an answer.
void AnswerFailure(const httplib::Request&, httplib::Response& response, std::exception_ptr failure)
{
    try {
        std::rethrow_exception(std::move(failure));
    } catch (const Refusal& refusal) {
        Answer(response, refusal.status, refusal.what());
    } catch (const SignGone& gone) {
        Answer(response, 503, gone.what());
    } catch (const std::exception& error) {
        Answer(response, 500, error.what());
    }
}

std::string SignEvent(const WebSign& web, const WebIdentity& identity)
{
    const SignSettings& settings = web.sign.Settings();
    return Dump({{"version", identity.version},
                 {"width", settings.width},
                 {"height", settings.height},
                 {"controller", settings.controller},
                 {"drives", settings.drives},
                 {"folder", identity.folder},
                 {"lines", identity.lines}});
}

} // namespace

WebSite::WebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
                 std::chrono::milliseconds step)
    : desk(sign, step), http(settings.host, settings.port),
      address("http://" + settings.host + ":" + std::to_string(http.Port()) + "/")
{
    http.set_default_headers(kAlways);
    http.set_exception_handler(AnswerFailure);
    http.set_error_handler([](const httplib::Request&, httplib::Response& response) {
        if (response.body.empty())
            Answer(response, response.status, response.status == 404 ? "there is nothing here" : "a broken request");
    });
    http.set_pre_routing_handler([guard = Guard(settings, http.Port())](const auto& request, auto&) {
        guard.Check(request);
        return httplib::Server::HandlerResponse::Unhandled;
    });
    AddPages(http);
    AddEvents(http, desk, SignEvent(sign, identity));
    AddTraffic(http, desk);
    AddChanges(http, desk);
    AddFiles(http, desk);
    AddReports(http, desk);
    http.Start();
}

WebSite::~WebSite()
{
    desk.Questions().Close();
    http.Stop();
}

std::unique_ptr<Onlooker> MakeWebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
                                      std::chrono::milliseconds step)
{
    return std::make_unique<WebSite>(settings, sign, identity, step);
}

} // namespace vxsim

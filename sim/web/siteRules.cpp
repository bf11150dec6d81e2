#include "sim/web/siteRules.h"

#include "sim/web/askQueue.h"
#include "sim/web/guard.h"
#include "sim/web/jsonText.h"
#include "sim/web/refusal.h"

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

} // namespace

void AddRules(HttpServer& http, const WebSettings& settings)
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
}

std::string AddressOf(const WebSettings& settings, const HttpServer& http)
{
    return "http://" + settings.host + ":" + std::to_string(http.Port()) + "/";
}

} // namespace vxsim

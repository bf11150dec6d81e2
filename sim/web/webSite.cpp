#include "sim/web/webSite.h"

#include "sim/web/routes.h"
#include "sim/web/siteRules.h"

namespace vxsim {

WebSite::WebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
                 std::chrono::milliseconds step)
    : desk(sign, identity, questions, step), http(settings.host, settings.port), address(AddressOf(settings, http))
{
    sign.server.Watch(questions.Waiting(), [this] { questions.Answer(); });
    AddRules(http, settings);
    AddPages(http, [](const httplib::Request&) { return "/index.html"; });
    AddSign(http, [this](const httplib::Request&) -> SignDesk& { return desk; });
    http.Start();
}

WebSite::~WebSite()
{
    questions.Close();
    http.Stop();
}

std::unique_ptr<Onlooker> MakeWebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
                                      std::chrono::milliseconds step)
{
    return std::make_unique<WebSite>(settings, sign, identity, step);
}

} // namespace vxsim

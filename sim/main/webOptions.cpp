#include "sim/main/webOptions.h"

#include <stdexcept>

namespace vxsim {

void WebOptions::AddTo(CLI::App& app)
{
    CLI::Option* const needed =
        app.add_option("--web", settings.port, "shows the sign as a page on this port; 0 picks one")
            ->expected(0, 1)
            ->capture_default_str()
            ->check(CLI::Range(0U, 65535U));
    web = needed;
    app.add_option("--web-host", settings.host, "IPv4 address of the page; one that others reach wants a password")
        ->capture_default_str()
        ->needs(needed);
    app.add_option("--web-password", settings.password, "password of the page, for any user")->needs(needed);
}

const WebSettings& WebOptions::Settings() const
{
    if (!settings.host.starts_with("127.") && settings.password.empty())
        throw std::invalid_argument("a page that others can reach wants --web-password");
    return settings;
}

} // namespace vxsim

// Who may ask the page for what.
#pragma once

#include "sim/web/onlooker.h"

#include <cstdint>
#include <httplib.h>
#include <utility>

namespace vxsim {

// Looks at each request before anything else does.
class Guard
{
public:
    // `port` is where the page is served.
    Guard(WebSettings of, std::uint16_t servedPort) : settings(std::move(of)), port(servedPort) {}

    // Throws Refusal unless the request is for this page by its own name, from this page or from no page, with the
    // password, and of a form and size that makes sense.
    void Check(const httplib::Request& request) const;

private:
    bool IsOwnHost(const httplib::Request& request) const;
    bool HasPassword(const httplib::Request& request) const;

    WebSettings settings;
    std::uint16_t port;
};

} // namespace vxsim

// The sign in the browser.
#pragma once

#include "sim/web/httpServer.h"
#include "sim/web/onlooker.h"
#include "sim/web/signDesk.h"

#include <chrono>
#include <cstdint>
#include <string>

namespace vxsim {

// The page's server with all that it answers. Belongs to the sign's thread and goes before what it shows.
class WebSite : public Onlooker
{
public:
    // As MakeWebSite.
    WebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
            std::chrono::milliseconds step);
    ~WebSite() override;

    bool IsWatched() const override { return desk.IsWatched(); }
    void Publish(std::uint64_t nowMs) override { desk.Publish(nowMs); }
    const std::string& Address() const override { return address; }

private:
    AskQueue questions;
    SignDesk desk;
    HttpServer http;
    std::string address;
};

} // namespace vxsim

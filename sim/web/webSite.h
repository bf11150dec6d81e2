// The sign in the browser.
#pragma once

#include "sim/web/guard.h"
#include "sim/web/signDesk.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vxsim {

class HttpServer;

// What a page is told once.
struct WebIdentity
{
    std::string version;
    std::string folder;
    std::vector<std::string> lines; // "udp 127.0.0.1:9520"
};

// Serves the page. Belongs to the sign's thread and goes before what it shows.
class WebSite
{
public:
    // `step` is that of the sign while nobody looks on. Throws std::invalid_argument and std::system_error if it cannot
    // listen there.
    WebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
            std::chrono::milliseconds step);
    ~WebSite();

    bool IsWatched() const { return desk.IsWatched(); }
    void Publish(std::uint64_t nowMs) { desk.Publish(nowMs); }

    // "http://127.0.0.1:8520/"
    const std::string& Address() const { return address; }

private:
    SignDesk desk;
    std::unique_ptr<HttpServer> http;
    std::string address;
};

} // namespace vxsim

// Who shows the sign to those who are not in front of it.
#pragma once

#include "sim/devices/modbusDevices.h"
#include "sim/server/server.h"
#include "sim/stage/stage.h"
#include "sim/virtualSign.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace vxsim {

struct WebSettings
{
    std::string host = "127.0.0.1"; // IPv4 address to listen on
    std::uint16_t port = 8520;      // 0 picks a free one
    std::string password;           // empty: none is asked for
};

// What the page shows and changes.
struct WebSign
{
    VirtualSign& sign;
    Stage& stage;
    Server& server;
    const ModbusDevices* devices = nullptr;
};

// What a page is told once.
struct WebIdentity
{
    std::string version;
    std::string folder;
    std::vector<std::string> lines; // "udp 127.0.0.1:9520"
    std::string name = {};          // of one among many
};

// Who is told of a sign whenever it has looked after itself.
class Watcher
{
public:
    virtual ~Watcher() = default;

    // Whether the face has to be drawn.
    virtual bool IsWatched() const = 0;

    // Passes on what is new, after each tick of the sign.
    virtual void Publish(std::uint64_t nowMs) = 0;
};

class Onlooker : public Watcher
{
public:
    // "http://127.0.0.1:8520/"
    virtual const std::string& Address() const = 0;
};

// Serves the page. `step` is that of the sign while nobody looks on. Throws std::invalid_argument and
// std::system_error if it cannot listen there.
std::unique_ptr<Onlooker> MakeWebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
                                      std::chrono::milliseconds step);

// Many signs, as their page needs them. Each of these is for their own thread, but for Signs.
class WebFleet
{
public:
    struct Place
    {
        std::string name; // "sign-0001"
        std::string at;   // "127.0.0.1:9520"
    };

    virtual ~WebFleet() = default;

    // In their order, and the same for ever.
    virtual const std::vector<Place>& Signs() const = 0;

    // A sign with all that a page can do to it, which is made if nobody has asked it yet. The watcher is told of it
    // from then on, as long as both live. Throws what the making of a sign throws.
    virtual WebSign Open(std::size_t index) = 0;
    virtual void TellTo(std::size_t index, Watcher& watcher) = 0;

    // The face at that time; null for a sign that nobody has asked yet. Valid until the next call.
    virtual const Canvas* Face(std::size_t index, std::uint64_t nowMs) = 0;

    // What the page says of a sign of the fleet.
    virtual WebIdentity IdentityOf(std::size_t index) const = 0;

    // The loop in which questions are answered.
    virtual Loop& Turns() = 0;
};

class FleetPage
{
public:
    virtual ~FleetPage() = default;

    virtual const std::string& Address() const = 0;
};

// Serves a page of all of them. Throws as MakeWebSite.
std::unique_ptr<FleetPage> MakeFleetSite(const WebSettings& settings, WebFleet& fleet);

} // namespace vxsim

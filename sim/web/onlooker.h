// Who shows the sign to those who are not in front of it.
#pragma once

#include "sim/devices/modbusDevices.h"
#include "sim/server/server.h"
#include "sim/stage/stage.h"
#include "sim/virtualSign.h"

#include <chrono>
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
};

class Onlooker
{
public:
    virtual ~Onlooker() = default;

    // Whether the face has to be drawn.
    virtual bool IsWatched() const = 0;

    // Passes on what is new, after each tick of the sign.
    virtual void Publish(std::uint64_t nowMs) = 0;

    // "http://127.0.0.1:8520/"
    virtual const std::string& Address() const = 0;
};

// Serves the page. `step` is that of the sign while nobody looks on. Throws std::invalid_argument and
// std::system_error if it cannot listen there.
std::unique_ptr<Onlooker> MakeWebSite(const WebSettings& settings, const WebSign& sign, const WebIdentity& identity,
                                      std::chrono::milliseconds step);

} // namespace vxsim

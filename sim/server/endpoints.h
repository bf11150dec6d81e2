// The sockets and the pseudo-terminal of the sign.
#pragma once

#include "sim/platform/descriptor.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace vxsim {

struct ListenSettings
{
    std::string host = "127.0.0.1"; // IPv4 address of this machine, dotted
    std::uint16_t port = 9520;      // UDP and TCP; 0 picks one that is free in both
    bool serial = false;            // a pseudo-terminal as well
};

// The port of the sign with this index among many; each picks its own where the first one does.
inline std::uint16_t Following(std::uint16_t first, std::size_t index)
{
    return static_cast<std::uint16_t>(first == 0 ? 0 : first + index);
}

// Where hosts reach the sign. All descriptors are non-blocking.
struct Endpoints
{
    // Throws std::invalid_argument for a host that is no IPv4 address, std::system_error if something cannot be opened.
    explicit Endpoints(const ListenSettings& settings);

    std::string Place() const { return host + ":" + std::to_string(port); }

    std::string host;
    std::uint32_t address = 0; // of the host, first octet in the top byte
    std::uint16_t port = 0;
    std::string serialPath; // the device for the host to open; empty without
    Descriptor tcp;         // listening
    Descriptor udp;
    Descriptor serial;       // our side of the pseudo-terminal
    Descriptor serialDevice; // the host's side, held open so that the line stays up between two hosts

private:
    bool OpenSockets(std::uint16_t wanted);
    void OpenSerial();
};

} // namespace vxsim

// Where the broker is, and what it wants to see.
#pragma once

#include <cstdint>
#include <string>

namespace vxbridge {

struct BrokerAddress
{
    std::string host = "127.0.0.1";
    std::uint16_t port = 1883;
    bool isSecret = false;   // TLS
    std::string authorities; // file with the certificates that the broker's one is to come from; "" for the system's
    std::string certificate; // our own, and its key
    std::string key;
    std::string user;
    std::string password;
};

// Takes host, port and TLS from mqtt://HOST[:PORT] or mqtts://HOST[:PORT]. Throws vxctl::UsageError.
void ParseBrokerUrl(const std::string& url, BrokerAddress& address);

// The first line of a file. Throws vxctl::UsageError.
std::string ReadSecret(const std::string& file);

} // namespace vxbridge

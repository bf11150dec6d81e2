// The bridges of the broker, as their topics tell.
#pragma once

#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace vxbridge {

struct Peer
{
    bool isOnline = false;
    std::vector<std::string> sites; // whose signs it has in its book

    bool operator==(const Peer&) const = default;
};

class Peers
{
public:
    // What a bridge says of itself, or the broker in its place. Nothing for what is not understood.
    static std::optional<Peer> Parse(const std::string& payload);
    static std::string Format(const std::string& bridge, const Peer& peer);

    explicit Peers(std::string ownName) : self(std::move(ownName)) {}

    // False when nothing changes. This bridge itself is always there.
    bool Take(const std::string& bridge, const Peer& peer);

    // Those online that have the site.
    std::set<std::string> With(const std::string& site) const;
    std::set<std::string> Online() const;
    bool IsOnline(const std::string& bridge) const { return Online().contains(bridge); }

private:
    const std::string self;
    mutable std::mutex mutex;
    std::map<std::string, Peer> peers;
};

} // namespace vxbridge

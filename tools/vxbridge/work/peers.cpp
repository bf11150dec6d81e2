#include "vxbridge/work/peers.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace vxbridge {

std::optional<Peer> Peers::Parse(const std::string& payload)
{
    const auto said = nlohmann::json::parse(payload, nullptr, false);
    const auto online = said.is_object() ? said.find("online") : said.end();
    const auto sites = said.is_object() ? said.find("sites") : said.end();
    if (online == said.end() || !online->is_boolean() || sites == said.end() || !sites->is_array())
        return std::nullopt;
    Peer peer{online->get<bool>(), {}};
    for (const auto& site : *sites) {
        if (site.is_string())
            peer.sites.push_back(site);
    }
    return peer;
}

std::string Peers::Format(const std::string& bridge, const Peer& peer)
{
    return nlohmann::ordered_json{{"bridge", bridge}, {"online", peer.isOnline}, {"sites", peer.sites}}.dump();
}

bool Peers::Take(const std::string& bridge, const Peer& peer)
{
    const std::lock_guard lock(mutex);
    Peer& known = peers[bridge];
    if (bridge == self || known == peer)
        return false;
    known = peer;
    return true;
}

std::set<std::string> Peers::With(const std::string& site) const
{
    const std::lock_guard lock(mutex);
    std::set<std::string> names{self};
    for (const auto& [name, peer] : peers) {
        if (peer.isOnline && std::ranges::find(peer.sites, site) != peer.sites.end())
            names.insert(name);
    }
    return names;
}

std::set<std::string> Peers::Online() const
{
    const std::lock_guard lock(mutex);
    std::set<std::string> names{self};
    for (const auto& [name, peer] : peers) {
        if (peer.isOnline)
            names.insert(name);
    }
    return names;
}

} // namespace vxbridge

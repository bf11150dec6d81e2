// The names of the topics: vx/SITE/SIGN/..., and vx/bridge/ID/online.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace vxbridge {

struct CommandTopic
{
    std::string site;
    std::string sign;
    std::string verb;
};

// "state" and the like, or "cmd/show".
std::string SignTopic(std::string_view site, std::string_view sign, std::string_view what);

// vx/SITE/SIGN/cmd/VERB; nothing for any other topic.
std::optional<CommandTopic> ParseCommandTopic(std::string_view topic);

// All commands of a site. The bridges of one broker share what comes: each goes to one of them.
std::string CommandFilter(std::string_view site);

inline constexpr const char* kOnlineFilter = "vx/bridge/+/online";
std::string OnlineTopic(std::string_view bridge);
std::optional<std::string> ParseOnlineTopic(std::string_view topic);

} // namespace vxbridge

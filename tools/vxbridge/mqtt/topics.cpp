#include "vxbridge/mqtt/topics.h"

#include <algorithm>
#include <vector>

namespace vxbridge {

namespace {

std::vector<std::string> LevelsOf(std::string_view topic)
{
    std::vector<std::string> levels;
    for (std::size_t begin = 0; begin <= topic.size();) {
        const std::size_t end = std::min(topic.find('/', begin), topic.size());
        levels.emplace_back(topic.substr(begin, end - begin));
        begin = end + 1;
    }
    return levels;
}

} // namespace

std::string SignTopic(std::string_view site, std::string_view sign, std::string_view what)
{
    return std::string("vx/").append(site).append("/").append(sign).append("/").append(what);
}

std::optional<CommandTopic> ParseCommandTopic(std::string_view topic)
{
    const std::vector<std::string> levels = LevelsOf(topic);
    if (levels.size() != 5 || levels[0] != "vx" || levels[3] != "cmd")
        return std::nullopt;
    return CommandTopic{levels[1], levels[2], levels[4]};
}

std::string CommandFilter(std::string_view site)
{
    return "$share/vxbridge/" + SignTopic(site, "+", "cmd/+");
}

std::string OnlineTopic(std::string_view bridge)
{
    return SignTopic("bridge", bridge, "online");
}

std::optional<std::string> ParseOnlineTopic(std::string_view topic)
{
    const std::vector<std::string> levels = LevelsOf(topic);
    if (levels.size() != 4 || levels[0] != "vx" || levels[1] != "bridge" || levels[3] != "online")
        return std::nullopt;
    return levels[2];
}

} // namespace vxbridge

#include "vxbridge/sign/homeAssistant.h"

#include "vxbridge/mqtt/topics.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace vxbridge {

namespace {

using Json = nlohmann::ordered_json;

// A thing that it shows. Of its members those that end in "topic" are topics of the sign.
struct Entity
{
    const char* kind;
    const char* id;
    const char* members;
};

constexpr Entity kEntities[] = {
    {"light", "face", R"({
        "name": "Face",
        "command_topic": "cmd/power",
        "payload_on": "{\"action\": \"on\"}",
        "payload_off": "{\"action\": \"off\"}",
        "state_topic": "state",
        "state_value_template": "{\"action\": \"{{ 'on' if value_json.power else 'off' }}\"}",
        "brightness_command_topic": "cmd/bright",
        "brightness_command_template": "{\"level\": {{ value }}}",
        "brightness_state_topic": "state",
        "brightness_value_template": "{{ value_json.lightEighths }}",
        "brightness_scale": 8})"},
    {"text", "text", R"({
        "name": "Text",
        "command_topic": "cmd/show",
        "command_template": "{\"text\": {{ value | tojson }}}"})"},
    {"sensor", "inside", R"({
        "name": "Temperature inside",
        "state_topic": "state",
        "value_template": "{{ value_json.measured.insideC }}",
        "unit_of_measurement": "\u00B0C",
        "device_class": "temperature",
        "state_class": "measurement"})"},
    {"sensor", "outside", R"({
        "name": "Temperature outside",
        "state_topic": "state",
        "value_template": "{{ value_json.measured.outsideC }}",
        "unit_of_measurement": "\u00B0C",
        "device_class": "temperature",
        "state_class": "measurement"})"},
    {"sensor", "tile", R"({
        "name": "Hottest tile",
        "state_topic": "state",
        "value_template": "{{ value_json.measured.hottestTileC }}",
        "unit_of_measurement": "\u00B0C",
        "device_class": "temperature",
        "state_class": "measurement"})"},
    {"sensor", "humidity", R"({
        "name": "Humidity",
        "state_topic": "state",
        "value_template": "{{ value_json.measured.humidityPercent }}",
        "unit_of_measurement": "%",
        "device_class": "humidity",
        "state_class": "measurement"})"},
    {"sensor", "warnings", R"({
        "name": "Warnings",
        "state_topic": "warnings",
        "value_template": "{{ value_json.warnings | count }}"})"},
    {"sensor", "playing", R"({
        "name": "Playing",
        "state_topic": "playing",
        "value_template": "{{ value_json.playing or 'nothing' }}"})"},
};

// It takes letters, digits, '-' and '_' in its names.
std::string NodeOf(const vxctl::BookSign& sign)
{
    std::string node = sign.site + "_" + sign.name;
    std::ranges::replace(node, '.', '_');
    return node;
}

std::string TopicOf(const Entity& entity, const std::string& node, const std::string& prefix)
{
    return prefix + "/" + entity.kind + "/" + node + "/" + entity.id + "/config";
}

Json ConfigOf(const Entity& entity, const vxctl::BookSign& sign, const std::string& node)
{
    Json config = Json::parse(entity.members);
    for (auto& [key, value] : config.items()) {
        if (key.ends_with("topic"))
            value = SignTopic(sign.site, sign.name, value.get<std::string>());
    }
    config["unique_id"] = "vx_" + node + "_" + entity.id;
    config["availability_topic"] = SignTopic(sign.site, sign.name, "availability");
    config["availability_template"] = "{{ 'online' if value_json.available else 'offline' }}";
    config["device"] = {{"identifiers", {"vx_" + node}}, {"name", sign.name}, {"model", "LED sign"}};
    if (const auto road = sign.labels.find("road"); road != sign.labels.end())
        config["device"]["suggested_area"] = road->second;
    return config;
}

} // namespace

std::vector<Publication> DiscoveryOf(const vxctl::BookSign& sign, const std::string& prefix)
{
    const std::string node = NodeOf(sign);
    std::vector<Publication> told;
    for (const Entity& entity : kEntities)
        told.push_back({TopicOf(entity, node, prefix), ConfigOf(entity, sign, node).dump()});
    return told;
}

std::vector<Publication> DiscoveryRemoval(const vxctl::BookSign& sign, const std::string& prefix)
{
    std::vector<Publication> gone;
    for (const Entity& entity : kEntities)
        gone.push_back({TopicOf(entity, NodeOf(sign), prefix), ""});
    return gone;
}

} // namespace vxbridge

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
    const char* members;
};

constexpr Entity kEntities[] = {
    {"light", R"({
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
    {"text", R"({
        "name": "Text",
        "command_topic": "cmd/show",
        "command_template": "{\"text\": {{ value | tojson }}}"})"},
};

struct Sensor
{
    const char* id;
    const char* name;
    const char* topic;
    const char* value;          // in the payload
    const char* unit = nullptr; // with what is measured
    const char* measures = nullptr;
};

constexpr Sensor kSensors[] = {
    {"inside", "Temperature inside", "state", "measured.insideC", "\u00B0C", "temperature"},
    {"outside", "Temperature outside", "state", "measured.outsideC", "\u00B0C", "temperature"},
    {"tile", "Hottest tile", "state", "measured.hottestTileC", "\u00B0C", "temperature"},
    {"humidity", "Humidity", "state", "measured.humidityPercent", "%", "humidity"},
    {"warnings", "Warnings", "warnings", "warnings | count"},
    {"playing", "Playing", "playing", "playing or 'nothing'"},
};

// It takes letters, digits, '-' and '_' in its names.
std::string NodeOf(const vxctl::BookSign& sign)
{
    std::string node = sign.site + "_" + sign.name;
    std::ranges::replace(node, '.', '_');
    return node;
}

Json MembersOf(const Sensor& sensor)
{
    Json members = {{"name", sensor.name},
                    {"state_topic", sensor.topic},
                    {"value_template", std::string("{{ value_json.") + sensor.value + " }}"}};
    if (sensor.unit != nullptr)
        members.update(
            {{"unit_of_measurement", sensor.unit}, {"device_class", sensor.measures}, {"state_class", "measurement"}});
    return members;
}

// The members that end in "topic" get the whole name of the sign's topic.
Publication ConfigOf(const vxctl::BookSign& sign, const std::string& prefix, const std::string& kind,
                     const std::string& id, Json config)
{
    const std::string node = NodeOf(sign);
    for (auto& [key, value] : config.items()) {
        if (key.ends_with("topic"))
            value = SignTopic(sign.site, sign.name, value.get<std::string>());
    }
    config["unique_id"] = "vx_" + node + "_" + id;
    config["availability_topic"] = SignTopic(sign.site, sign.name, "availability");
    config["availability_template"] = "{{ 'online' if value_json.available else 'offline' }}";
    config["device"] = {{"identifiers", {"vx_" + node}}, {"name", sign.name}, {"model", "LED sign"}};
    if (const auto road = sign.labels.find("road"); road != sign.labels.end())
        config["device"]["suggested_area"] = road->second;
    return {prefix + "/" + kind + "/" + node + "/" + id + "/config", config.dump()};
}

} // namespace

std::vector<Publication> DiscoveryOf(const vxctl::BookSign& sign, const std::string& prefix)
{
    std::vector<Publication> told;
    for (const Entity& entity : kEntities)
        told.push_back(ConfigOf(sign, prefix, entity.kind, entity.kind, Json::parse(entity.members)));
    for (const Sensor& sensor : kSensors)
        told.push_back(ConfigOf(sign, prefix, "sensor", sensor.id, MembersOf(sensor)));
    return told;
}

std::vector<Publication> DiscoveryRemoval(const vxctl::BookSign& sign, const std::string& prefix)
{
    std::vector<Publication> gone = DiscoveryOf(sign, prefix);
    for (Publication& publication : gone)
        publication.payload.clear();
    return gone;
}

} // namespace vxbridge

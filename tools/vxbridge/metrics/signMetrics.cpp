// The gauges of the signs: a row for each.
#include "vxbridge/metrics/metrics.h"

#include <algorithm>
#include <cctype>
#include <optional>

namespace vxbridge {

namespace {

using prometheus::ClientMetric;
using prometheus::MetricFamily;

struct GaugeRow
{
    const char* name;
    const char* help;
    const char* at;              // in the values of a poll
    double factor = 1;           // to the unit of the name
    const char* place = nullptr; // tells rows of one name apart
};

constexpr GaugeRow kGauges[] = {
    {"vx_sign_state", "State word of the sign, 0 when all is well", "/stateCode"},
    {"vx_sign_power", "Whether the face has power", "/power"},
    {"vx_sign_light_ratio", "Brightness of the face", "/lightEighths", 0.125},
    {"vx_sign_humidity_ratio", "Humidity in the sign", "/measured/humidityPercent", 0.01},
    {"vx_sign_temperature_celsius", "Temperatures of the sign", "/measured/insideC", 1, "inside"},
    {"vx_sign_temperature_celsius", "", "/measured/outsideC", 1, "outside"},
    {"vx_sign_temperature_celsius", "", "/measured/hottestTileC", 1, "tile"},
    {"vx_sign_warnings", "Warnings that the sign has now", "/warnings"},
    {"vx_sign_playing", "Whether the sign plays a file", "/playing"},
};

using Labels = std::vector<ClientMetric::Label>;

// A label of the book under a name that the server takes, and none of ours.
std::string LabelName(const std::string& name)
{
    std::string taken = name;
    std::ranges::replace_if(
        taken, [](unsigned char c) { return std::isalnum(c) == 0; }, '_');
    const bool isOurs = taken == "site" || taken == "sign" || taken == "place" || taken == "drive";
    return isOurs || taken.starts_with("__") || std::isdigit(static_cast<unsigned char>(taken.front())) != 0
               ? "label_" + taken
               : taken;
}

Labels LabelsOf(const vxctl::BookSign& sign)
{
    Labels labels{{"site", sign.site}, {"sign", sign.name}};
    for (const auto& [name, value] : sign.labels) {
        if (!name.empty() && std::ranges::find(labels, LabelName(name), &ClientMetric::Label::name) == labels.end())
            labels.push_back({LabelName(name), value});
    }
    return labels;
}

// A number as it is, true and whatever else is there as 1, a list by its length.
std::optional<double> NumberAt(const Json& values, const char* at)
{
    const Json::json_pointer place(at);
    if (!values.contains(place))
        return std::nullopt;
    const Json& value = values[place];
    if (value.is_number())
        return value.get<double>();
    if (value.is_array())
        return static_cast<double>(value.size());
    return value.is_null() || value == false ? 0 : 1;
}

class SignGauges
{
public:
    void Add(const Labels& labels, const SignRecord& record)
    {
        Put("vx_sign_available", "Whether the sign answered its last poll", labels, record.isAvailable ? 1 : 0);
        Put("vx_sign_polled_timestamp_seconds", "When the sign was polled", labels,
            std::chrono::duration<double>(record.polled.time_since_epoch()).count());
        for (const GaugeRow& row : kGauges)
            AddRow(row, labels, record.values);
        for (const Json& drive : record.values.value("drives", Json::array()))
            AddDrive(drive, labels);
    }

    std::vector<MetricFamily> families;

private:
    void AddRow(const GaugeRow& row, Labels labels, const Json& values)
    {
        const auto number = NumberAt(values, row.at);
        if (row.place != nullptr)
            labels.push_back({"place", row.place});
        if (number)
            Put(row.name, row.help, labels, *number * row.factor);
    }

    void AddDrive(const Json& drive, Labels labels)
    {
        labels.push_back({"drive", drive.value("drive", "")});
        Put("vx_sign_drive_free_bytes", "Free space on a drive of the sign", labels, drive.value("freeBytes", 0.0));
    }

    void Put(const char* name, const char* help, const Labels& labels, double value)
    {
        auto family = std::ranges::find(families, name, &MetricFamily::name);
        if (family == families.end())
            family = families.insert(family, {name, help, prometheus::MetricType::Gauge, {}});
        ClientMetric metric;
        metric.label = labels;
        metric.gauge.value = value;
        family->metric.push_back(std::move(metric));
    }
};

} // namespace

std::vector<MetricFamily> SignFamilies(const vxctl::SignBook& book, const SignBoard& board, const std::string& only)
{
    std::map<std::string_view, const vxctl::BookSign*> byName;
    for (const vxctl::BookSign& sign : book)
        byName[sign.name] = &sign;
    SignGauges gauges;
    board.ForEach([&](const std::string& name, const SignRecord& record) {
        if (const auto found = byName.find(name); found != byName.end() && (only.empty() || only == name))
            gauges.Add(LabelsOf(*found->second), record);
    });
    return gauges.families;
}

} // namespace vxbridge

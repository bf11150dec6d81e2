#include "sim/server/faults.h"

#include "sim/protocol/bytes.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <stdexcept>
#include <string>

namespace vxsim {
namespace {

constexpr std::size_t kIdAt = 10;
constexpr std::size_t kChecksumAt = 2;

[[noreturn]] void Refuse(std::string_view item, const std::string& reason)
{
    throw std::invalid_argument("fault '" + std::string(item) + "': " + reason);
}

template <typename Number>
Number Parse(std::string_view item, std::string_view text, Number most)
{
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size() || !(value >= 0 && value <= most))
        Refuse(item, "expected a number from 0 to " + (most == Number{1} ? "1" : std::to_string(most)));
    return value;
}

void ParseItem(FaultSettings& faults, std::string_view item, std::string_view name, std::string_view value)
{
    if (name == "drop")
        faults.drop = Parse(item, value, 1.0);
    else if (name == "truncate")
        faults.truncate = Parse(item, value, 1.0);
    else if (name == "wrongid")
        faults.wrongId = Parse(item, value, 1.0);
    else if (name == "badsum")
        faults.badSum = Parse(item, value, 1.0);
    else if (name == "noise")
        faults.noise = Parse(item, value, kMostNoise);
    else if (name == "seed")
        faults.seed = Parse(item, value, std::uint32_t{0xFFFFFFFF});
    else
        Refuse(item, "unknown; there are drop, truncate, wrongid, badsum, noise and seed");
}

} // namespace

FaultSettings ParseFaults(std::string_view text)
{
    FaultSettings faults;
    std::set<std::string_view> seen;
    for (std::size_t at = 0; at <= text.size();) {
        const std::size_t comma = std::min(text.find(',', at), text.size());
        const std::string_view item = text.substr(at, comma - at);
        const std::size_t equals = item.find('=');
        if (equals == std::string_view::npos)
            Refuse(item, "expected name=value, as in drop=0.1,noise=4");
        if (!seen.insert(item.substr(0, equals)).second)
            Refuse(item, "given twice");
        ParseItem(faults, item, item.substr(0, equals), item.substr(equals + 1));
        at = comma + 1;
    }
    return faults;
}

bool FaultInjector::Happens(double probability)
{
    return probability > 0 && static_cast<double>(random()) < probability * 4294967296.0;
}

std::size_t FaultInjector::Below(std::size_t limit)
{
    return random() % limit;
}

std::vector<std::uint8_t> FaultInjector::Apply(std::vector<std::uint8_t> reply)
{
    if (reply.size() < kHeaderSize || Happens(settings.drop))
        return {};
    if (Happens(settings.wrongId)) {
        const auto other = static_cast<std::uint16_t>(Load16(reply, kIdAt) + 1 + Below(0xFFFF));
        Store16(reply, kIdAt, other);
        RestoreChecksum(reply);
    }
    if (Happens(settings.badSum))
        reply[kChecksumAt] ^= static_cast<std::uint8_t>(1 + Below(255));
    if (Happens(settings.truncate))
        reply.resize(1 + Below(reply.size() - 1));
    AddNoise(reply);
    return reply;
}

std::vector<std::uint8_t> FaultInjector::ApplyToBytes(std::vector<std::uint8_t> reply)
{
    if (reply.empty() || Happens(settings.drop))
        return {};
    if (Happens(settings.badSum))
        reply.back() ^= static_cast<std::uint8_t>(1 + Below(255));
    if (reply.size() > 1 && Happens(settings.truncate))
        reply.resize(1 + Below(reply.size() - 1));
    AddNoise(reply);
    return reply;
}

void FaultInjector::AddNoise(std::vector<std::uint8_t>& reply)
{
    std::vector<std::uint8_t> noise(settings.noise);
    for (std::uint8_t& byte : noise) {
        // 255 values: the sync byte has no place.
        const auto value = static_cast<std::uint8_t>(Below(255));
        byte = value < kSync ? value : static_cast<std::uint8_t>(value + 1);
    }
    reply.insert(reply.begin(), noise.begin(), noise.end());
}

} // namespace vxsim

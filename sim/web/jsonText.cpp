#include "sim/web/jsonText.h"

#include "sim/web/refusal.h"

#include <cstddef>
#include <ctime>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr int kDeepest = 8;
constexpr int kBadRequest = 400;

const json& MemberOf(const json& object, const std::string& name)
{
    const auto member = object.find(name);
    if (member == object.end())
        throw Refusal(kBadRequest, "'" + name + "' is missing");
    return *member;
}

[[noreturn]] void RefuseMember(const std::string& name, const std::string& wanted)
{
    throw Refusal(kBadRequest, "'" + name + "' is no " + wanted);
}

} // namespace

std::string Dump(const json& value)
{
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

json ParseObject(std::string_view text)
{
    const auto bounded = [](int depth, json::parse_event_t, json&) {
        if (depth > kDeepest)
            throw Refusal(kBadRequest, "the JSON is too deep");
        return true;
    };
    json value = json::parse(text, bounded, false);
    if (value.is_discarded() || !value.is_object())
        throw Refusal(kBadRequest, "the body is no JSON object");
    return value;
}

bool FlagOf(const json& object, const std::string& name)
{
    const json& member = MemberOf(object, name);
    if (!member.is_boolean())
        RefuseMember(name, "true or false");
    return member.get<bool>();
}

std::int64_t WholeOf(const json& object, const std::string& name, std::int64_t least, std::int64_t most)
{
    const json& member = MemberOf(object, name);
    const bool isHuge = member.is_number_unsigned() && member.get<std::uint64_t>() > INT64_MAX;
    if (!member.is_number_integer() || isHuge || member.get<std::int64_t>() < least ||
        member.get<std::int64_t>() > most)
        RefuseMember(name, "whole number from " + std::to_string(least) + " to " + std::to_string(most));
    return member.get<std::int64_t>();
}

double PartOf(const json& object, const std::string& name)
{
    const json& member = MemberOf(object, name);
    if (!member.is_number() || !(member.get<double>() >= 0 && member.get<double>() <= 1))
        RefuseMember(name, "number from 0 to 1");
    return member.get<double>();
}

std::string TextOf(const json& object, const std::string& name)
{
    const json& member = MemberOf(object, name);
    if (!member.is_string())
        RefuseMember(name, "text");
    return member.get<std::string>();
}

std::string Hex(std::span<const std::uint8_t> bytes)
{
    constexpr char kDigits[] = "0123456789abcdef";
    std::string text;
    text.reserve(2 * bytes.size());
    for (const std::uint8_t byte : bytes) {
        text += kDigits[byte >> 4];
        text += kDigits[byte & 15];
    }
    return text;
}

std::string Base64(std::span<const std::uint8_t> bytes)
{
    constexpr char kDigits[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const auto group = bytes.subspan(at, std::min<std::size_t>(3, bytes.size() - at));
        unsigned bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < group.size() ? group[i] : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            text += i <= group.size() ? kDigits[bits >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

std::string LocalTimeText(std::int64_t secondsAhead)
{
    const std::time_t then = std::time(nullptr) + secondsAhead;
    std::tm local = {};
    ::localtime_r(&then, &local);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local)};
}

} // namespace vxsim

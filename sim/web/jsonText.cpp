#include "sim/web/jsonText.h"

#include "sim/web/refusal.h"

#include <cstddef>

namespace vxsim {
namespace {

using nlohmann::json;

constexpr int kDeepest = 8;
constexpr int kBadRequest = 400;
constexpr std::string_view kBase64 = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

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

// Ahead of the parser, which has no bound of its own that would be as fast.
bool IsTooDeep(std::string_view text)
{
    int depth = 0;
    bool isText = false;
    for (std::size_t at = 0; at < text.size() && depth <= kDeepest; ++at) {
        const char c = text[at];
        if (c == '"')
            isText = !isText;
        else if (isText)
            at += c == '\\'; // and what it stands for
        else
            depth += (c == '{' || c == '[') - (c == '}' || c == ']');
    }
    return depth > kDeepest;
}

} // namespace

std::string Dump(const json& value)
{
    return value.dump(-1, ' ', false, json::error_handler_t::replace);
}

json ParseObject(std::string_view text)
{
    if (IsTooDeep(text))
        throw Refusal(kBadRequest, "the JSON is too deep");
    json value = json::parse(text, nullptr, false);
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
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t at = 0; at < bytes.size(); at += 3) {
        const auto group = bytes.subspan(at, std::min<std::size_t>(3, bytes.size() - at));
        unsigned bits = 0;
        for (std::size_t i = 0; i < 3; ++i)
            bits = bits << 8 | (i < group.size() ? group[i] : 0U);
        for (std::size_t i = 0; i < 4; ++i)
            text += i <= group.size() ? kBase64[bits >> (18 - 6 * i) & 63] : '=';
    }
    return text;
}

std::string FromBase64(std::string_view text)
{
    std::string bytes;
    unsigned bits = 0;
    int count = 0;
    for (const char c : text) {
        const std::size_t digit = kBase64.find(c);
        if (digit == std::string_view::npos)
            break;
        bits = (bits << 6 | static_cast<unsigned>(digit)) & 0xFFFF;
        count += 6;
        if (count >= 8) {
            count -= 8;
            bytes += static_cast<char>(bits >> count & 255);
        }
    }
    return bytes;
}

std::string LocalTimeText(std::time_t time)
{
    std::tm local = {};
    ::localtime_r(&time, &local);
    char text[32];
    return {text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%S", &local)};
}

} // namespace vxsim

// JSON in and out: bounded, and of any text.
#pragma once

#include <cstdint>
#include <ctime>
#include <nlohmann/json.hpp>
#include <span>
#include <string>
#include <string_view>

namespace vxsim {

// In one line. What is no UTF-8 in a text, which may come from any host, is replaced.
std::string Dump(const nlohmann::json& value);

// An object of a few levels. Throws Refusal for anything else.
nlohmann::json ParseObject(std::string_view text);

// Members of an object. Each throws Refusal unless the member is there and of that kind, a number also within its
// bounds.
bool FlagOf(const nlohmann::json& object, const std::string& name);
std::int64_t WholeOf(const nlohmann::json& object, const std::string& name, std::int64_t least, std::int64_t most);
double PartOf(const nlohmann::json& object, const std::string& name); // 0 to 1
std::string TextOf(const nlohmann::json& object, const std::string& name);

std::string Hex(std::span<const std::uint8_t> bytes);
std::string Base64(std::span<const std::uint8_t> bytes);
std::string FromBase64(std::string_view text); // up to the first character that is none of its digits

// "2026-11-22T12:30:00", the local time of this machine.
std::string LocalTimeText(std::time_t time);

} // namespace vxsim

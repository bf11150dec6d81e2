// Codes of signs that have names: in JSON the name, and the number behind it.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace vxctl {

// By the number, from 0 on; words with hyphens between, as programs compare them. "" for a number without a name.
using CodeNames = std::span<const std::string_view>;

// The number itself where it has no name.
std::string NameOf(CodeNames names, std::uint32_t code);

// The name as people read it: blanks in place of hyphens.
std::string Words(std::string name);

// By the sign's number of a day.
inline constexpr std::string_view kWeekdays[] = {"sunday",   "monday", "tuesday", "wednesday",
                                                 "thursday", "friday", "saturday"};

} // namespace vxctl

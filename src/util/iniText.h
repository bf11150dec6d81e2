// INI files as text: lines "[section]" and "key=value", names without regard to case, lines that begin with ';' left
// aside. The first section and the first key of a name count.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace vxsign::ini {

/// The value of a key, without blanks and one pair of quotes around it.
std::optional<std::string> Find(std::string_view text, std::string_view section, std::string_view key);

/// Sets a value. Every other byte of the text stays; key and section are added if they are missing.
void Set(std::string& text, std::string_view section, std::string_view key, std::string_view value);

/// A number at the beginning of a value, decimal or 0x, with or without sign, modulo 2^32; 0 if there is none.
std::uint32_t Number(std::string_view value);

} // namespace vxsign::ini

// What a path on the sign says.
#pragma once

#include "vxctl/cli/argument.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vxctl {

// The letter of "D", "d:" or "D:\", in upper case. Throws UsageError for anything else.
char ParseDrive(std::string_view text);

inline constexpr ArgumentType kDriveLetter{
    "LETTER", [](const Argument&, const std::string& text) { return std::string(1, ParseDrive(text)); }};

// Whether both name the same folder ahead of their last name, in whatever case. A name alone is in every folder.
bool IsSameFolder(std::string_view from, std::string_view to);

// A file as the sign plays it ahead of all others: 0 for the drive or folder lets the sign look for it.
struct PlayFile
{
    std::uint8_t drive = 0;
    std::uint8_t folder = 0;
    std::string name;

    bool operator==(const PlayFile&) const = default;
};

// "HELLO.NMG" or "D:\T\HELLO.NMG". Throws UsageError for any other path, and for a name that is not whole in 12
// characters.
PlayFile ParsePlayFile(std::string_view path);

} // namespace vxctl

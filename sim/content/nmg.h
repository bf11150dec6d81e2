// NMG files: one message, text or picture, with its display attributes.
#pragma once

#include "sim/face/text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

// Groups and text are looked for in this many bytes from the start of a file; what text lies behind is dropped.
inline constexpr std::size_t kMostMessageBytes = 65536;

// What a message holds. Attributes that it doesn't set are empty.
struct Message
{
    std::optional<std::uint8_t> entryMode;
    std::optional<std::uint8_t> exitMode;
    std::optional<std::uint32_t> staySeconds;
    std::vector<TextRun> runs;
    std::optional<std::span<const std::uint8_t>> picture; // the embedded picture file, a view of the parsed bytes
};

// Whether the bytes start with one of the two intros of an NMG file.
bool IsNmg(std::span<const std::uint8_t> bytes);

// Reads a message; nullopt without an intro. Any bytes behind it make some message: a group that is cut off or has no
// known form loses its control byte, and the rest of it counts as text.
std::optional<Message> ParseNmg(std::span<const std::uint8_t> bytes);

} // namespace vxsim

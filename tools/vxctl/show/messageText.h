// A text for the face, as it is typed or piped.
#pragma once

#include "vxctl/cli/encoding.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vxctl {

inline constexpr Argument kMessageText =
    Text("TEXT", "the text; \\n breaks the line, - reads the text from standard input");
inline constexpr Argument kAllowEmpty = Flag("--allow-empty", "show a text of nothing, which is a dark face");
inline constexpr Argument kMarkup = Flag(
    "--markup", "the text has marks: {red} {#FF8000} {font 2} {line} {page} {flash} {/flash} {plain}, {{ is a brace");

// The text with the sign's line breaks, in UTF-8. Throws UsageError for an empty one without --allow-empty.
std::string MessageText(const Args& args, std::string_view name = "TEXT");

// A text with what it looks like, as the library takes it.
struct Message
{
    std::string text;
    std::uint32_t font = 0;
    std::uint32_t colour = 0;
    std::uint32_t mode = 0;
    std::uint32_t staySeconds = 0;
};

// What a command with kMessageText, kAllowEmpty, kMarkup, kEncoding, kFont, kColour, kMode and kStay has for arguments.
Message MessageOf(const Session& session, const Args& args, std::string_view name = "TEXT");

// Makes a message file of this PC, as signs and play lists take it. Throws SignFailure.
void WriteMessage(const Message& message, const std::string& local);

} // namespace vxctl

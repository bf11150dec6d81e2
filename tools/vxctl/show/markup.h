// Texts with marks such as {red}, and what a message makes of them.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace vxctl {

inline constexpr char kLineBreak = '\r'; // a line feed ahead of I or O may be a mode; a return never is
inline constexpr char kPageBreak = '\f';

// What a message with marks begins with; {plain} goes back to it.
struct TextStyle
{
    std::uint32_t font = 0; // as ParseFont and ParseColour give them
    std::uint32_t colour = 0;
};

// A text with the codes of a message. Where something flashes, each page is there once a second, now with that lit,
// now without, for as long as it is to stay: so it must come and go at once, and stay for one second.
struct MarkedText
{
    std::string text;
    bool flashes = false;
};

// The marks, of a text in UTF-8: {line} {page} {plain} {flash} {/flash}, a colour's name, {#RRGGBB}, {colour CODE},
// {font CODE}, and {{ for a brace; what is between them goes out in the encoding. Throws UsageError for any other, for
// more pages than a message has, and as Encoded.
MarkedText ReadMarkup(std::string_view text, const TextStyle& style, std::uint32_t staySeconds,
                      const std::string& encoding = "utf-8");

} // namespace vxctl

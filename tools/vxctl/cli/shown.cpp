// Takes out of texts what gives a terminal orders.
#include "vxctl/cli/shown.h"

#include "sim/face/utf8.h"
#include "vxctl/platform/console.h"

#include <cstdlib>

namespace vxctl {

namespace {

bool IsIn(char32_t character, char32_t first, char32_t last)
{
    return character >= first && character <= last;
}

bool IsHarmful(char32_t character)
{
    const bool isControl = character < ' ' || IsIn(character, 0x7F, 0x9F);
    const bool isDirection = character == 0x61C || IsIn(character, 0x200E, 0x200F) || IsIn(character, 0x202A, 0x202E) ||
                             IsIn(character, 0x2066, 0x2069);
    return isControl || isDirection || IsIn(character, 0x2028, 0x2029);
}

// A character off the front of the text, with its bytes. A byte that begins none stands alone.
struct Taken
{
    char32_t character;
    std::string_view bytes;

    bool IsUtf8() const { return character != vxsim::kReplacementCharacter || bytes.size() > 1; }
};

Taken Take(std::string_view& text)
{
    const std::string_view whole = text;
    const char32_t character = vxsim::TakeCharacter(text);
    return {character, whole.substr(0, whole.size() - text.size())};
}

const char* Escape(Tone tone)
{
    switch (tone) {
    case Tone::kFine:
        return "\x1b[32m";
    case Tone::kDoubtful:
        return "\x1b[33m";
    case Tone::kWrong:
        return "\x1b[1;31m";
    case Tone::kPlain:
        break;
    }
    return "";
}

} // namespace

std::string Printable(std::string_view text)
{
    std::string printable;
    while (!text.empty()) {
        const Taken taken = Take(text);
        printable += taken.IsUtf8() && !IsHarmful(taken.character) ? taken.bytes : "?";
    }
    return printable;
}

bool IsUtf8(std::string_view text)
{
    while (!text.empty()) {
        if (!Take(text).IsUtf8())
            return false;
    }
    return true;
}

bool IsColoured()
{
    static const bool isTerminal = [] {
        const char* const refusal = std::getenv("NO_COLOR");
        return platform::IsTerminal(platform::Standard::kOut) && (refusal == nullptr || *refusal == '\0');
    }();
    return isTerminal && !Colourless::IsWanted();
}

Shown Toned(Shown shown, Tone tone)
{
    if (tone != Tone::kPlain && IsColoured())
        shown.text = Escape(tone) + shown.text + "\x1b[0m";
    return shown;
}

} // namespace vxctl

#include "vxctl/tone.h"

#include <cstdlib>
#include <unistd.h>

namespace vxctl {

namespace {

bool IsColoured()
{
    const char* const refusal = std::getenv("NO_COLOR");
    return ::isatty(STDOUT_FILENO) != 0 && (refusal == nullptr || *refusal == '\0');
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

std::string Toned(std::string_view text, Tone tone)
{
    static const bool coloured = IsColoured();
    const std::string plain(text);
    return coloured && tone != Tone::kPlain ? Escape(tone) + plain + "\x1b[0m" : plain;
}

} // namespace vxctl

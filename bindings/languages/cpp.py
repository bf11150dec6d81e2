"""include/vxsign/advice.hpp: what helps, for each result that has such a word."""

from resultWords import literal

OUTPUT = "include/vxsign/advice.hpp"

HEAD = """// What helps when a result is no success. Written by bindings/generate.py from words/resultWords.def.
#ifndef VXSIGN_ADVICE_HPP
#define VXSIGN_ADVICE_HPP

#include <cstdint>
#include <string_view>

namespace vxsign::detail {

struct Advice
{
    std::uint32_t code;
    std::string_view text;
};

// clang-format off
inline constexpr Advice kAdvice[] = {
"""

TAIL = """};
// clang-format on

// Empty where there is nothing to tell.
constexpr std::string_view AdviceFor(std::uint32_t code)
{
    for (const Advice& advice : kAdvice)
        if (advice.code == code)
            return advice.text;
    return {};
}

} // namespace vxsign::detail

#endif
"""


def write(model):
    rows = [f'    {{0x{code:04X}, {literal(advice)}}},\n' for code, (_, advice) in sorted(model.words.items()) if advice]
    return HEAD + "".join(rows) + TAIL

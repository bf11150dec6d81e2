// Scripts of answers in a few words.
#pragma once

#include "support/scriptedSign.h"

#include <sstream>

namespace vxsign::test {

/// Parts of a script, one behind the other.
inline std::string Words(std::initializer_list<std::string_view> parts)
{
    std::string words;
    for (const std::string_view part : parts)
        words.append(part).append(" ");
    return words;
}

/// Scripts answers in a few words: "+0102" has a payload, "=0102" an extended part, "!3075" refuses with that code, "."
/// is a bare good one. Returns how many.
inline std::size_t Play(ScriptedSign& sign, const std::string& script)
{
    std::istringstream words(script);
    std::size_t count = 0;
    for (std::string word; words >> word; ++count) {
        const std::string rest = word.substr(1);
        if (word[0] == '!')
            sign.Then(Refusal(static_cast<std::uint16_t>(std::stoul(rest))));
        else
            sign.Then(word[0] == '+' ? Good(Hex(rest)) : Good({}, Hex(rest)));
    }
    return count;
}

} // namespace vxsign::test

// Regular expressions through PCRE's POSIX functions.
#include "reports/pattern.h"

#include <pcre2posix.h>

namespace vxsign {

struct Pattern::Compiled
{
    regex_t expression{};
    bool good = false;

    ~Compiled()
    {
        if (good)
            ::regfree(&expression);
    }
};

Pattern::Pattern(const char* expression) : compiled(std::make_unique<Compiled>())
{
    compiled->good = ::regcomp(&compiled->expression, expression, REG_ICASE) == 0;
    if (!compiled->good)
        compiled.reset();
}

Pattern::~Pattern() = default;

bool Pattern::Find(const char* text, Groups& groups) const
{
    std::array<regmatch_t, std::tuple_size_v<Groups>> matches{};
    if (!Good() || ::regexec(&compiled->expression, text, matches.size(), matches.data(), 0) != 0)
        return false;
    for (std::size_t i = 0; i < matches.size(); ++i) {
        const auto [begin, end] = matches[i];
        groups[i] = begin < 0 ? std::string_view() : std::string_view(text + begin, text + end);
    }
    return true;
}

} // namespace vxsign

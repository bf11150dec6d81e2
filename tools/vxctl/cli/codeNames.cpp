// Finds the names of codes.
#include "vxctl/cli/codeNames.h"

#include <algorithm>

namespace vxctl {

std::string NameOf(CodeNames names, std::uint32_t code)
{
    return code < names.size() && !names[code].empty() ? std::string(names[code]) : std::to_string(code);
}

std::string Words(std::string name)
{
    std::ranges::replace(name, '-', ' ');
    return name;
}

} // namespace vxctl

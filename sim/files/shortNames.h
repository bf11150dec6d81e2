// Names of eight and three characters for long ones.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>

namespace vxsim {

// Gives the entries of one folder their short names, each another one: eight characters and three, blank padded, in
// upper case. A name that fits is its own; any other gets a number, LONGNA~1, the least that is free.
class ShortNames
{
public:
    std::string Next(std::string_view name);

private:
    std::string Numbered(const std::string& stem, const std::string& extension);

    std::unordered_set<std::string> taken;
    std::unordered_map<std::string, unsigned> numbers; // the next one, by what stands around it
};

} // namespace vxsim

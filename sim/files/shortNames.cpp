#include "sim/files/shortNames.h"

namespace vxsim {
namespace {

constexpr std::size_t kStem = 8;
constexpr std::size_t kExtension = 3;

// The letters, digits and marks that a short name takes, in upper case; others are left out.
std::string ShortPart(std::string_view text)
{
    std::string part;
    for (const char c : text) {
        if (c >= 'a' && c <= 'z')
            part += static_cast<char>(c - 'a' + 'A');
        else if ((c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
                 std::string_view("!#$%&'()-@^_`{}~").find(c) != std::string_view::npos)
            part += c;
    }
    return part;
}

std::string Padded(std::string stem, std::string extension)
{
    stem.resize(kStem, ' ');
    extension.resize(kExtension, ' ');
    return stem + extension;
}

} // namespace

std::string ShortNames::Next(std::string_view name)
{
    const std::size_t dot = name.rfind('.');
    const bool hasExtension = dot != std::string_view::npos && dot > 0;
    const std::string_view wholeStem = hasExtension ? name.substr(0, dot) : name;
    const std::string_view wholeExtension = hasExtension ? name.substr(dot + 1) : std::string_view();
    const std::string stem = ShortPart(wholeStem);
    const std::string extension = ShortPart(wholeExtension).substr(0, kExtension);
    const bool fits = !stem.empty() && stem.size() <= kStem && stem.size() == wholeStem.size() &&
                      extension.size() == wholeExtension.size();
    std::string own = Padded(stem, extension);
    return fits && taken.insert(own).second ? own : Numbered(stem, extension);
}

// Goes on where the last name with the same letters ahead of a number of so many digits has ended, so that each number
// is tried once.
std::string ShortNames::Numbered(const std::string& stem, const std::string& extension)
{
    for (unsigned digits = 1, first = 1;; ++digits, first *= 10) {
        const std::string front = stem.substr(0, kStem - 1 - digits) + "~";
        unsigned& number = numbers.try_emplace(std::to_string(digits) + Padded(front, extension), first).first->second;
        while (number < first * 10) {
            std::string name = Padded(front + std::to_string(number++), extension);
            if (taken.insert(name).second)
                return name;
        }
    }
}

} // namespace vxsim

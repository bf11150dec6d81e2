// Short (8.3) names, made of long ones.
#include "platform/shortName.h"

#include <vxsign/result.h>

#include <algorithm>
#include <cctype>
#include <iterator>

namespace vxsign::platform {
namespace {

constexpr std::size_t kLongestStem = 8;
constexpr std::size_t kLongestExtension = 3;

std::string Upper(std::string_view text)
{
    std::string upper(text);
    std::transform(upper.begin(), upper.end(), upper.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return upper;
}

// The characters that a short name may have; others are left out.
std::string Allowed(std::string_view text)
{
    std::string allowed;
    std::copy_if(text.begin(), text.end(), std::back_inserter(allowed), [](unsigned char c) {
        return c > ' ' && c < 0x7F &&
               std::string_view("\"*+,./:;<=>?[\\]|").find(static_cast<char>(c)) == std::string_view::npos;
    });
    return allowed;
}

bool IsShort(std::string_view stem, std::string_view extension)
{
    return !stem.empty() && stem.size() <= kLongestStem && extension.size() <= kLongestExtension &&
           Allowed(stem) == stem && Allowed(extension) == extension;
}

} // namespace

std::string ShortNameOf(std::string_view name)
{
    if (name.empty())
        return {};
    const std::size_t dot = name.find_last_of('.');
    const std::string_view stem = name.substr(0, dot);
    const std::string_view extension = dot == std::string_view::npos ? std::string_view() : name.substr(dot + 1);
    if (IsShort(stem, extension))
        return std::string(name);

    constexpr char kDigits[] = "0123456789ABCDEF";
    const std::uint32_t sum = vxChkSum(name.data(), 0, static_cast<std::uint32_t>(name.size()), 1);
    std::string shortName = Upper(Allowed(stem)).substr(0, 2);
    for (int shift = 12; shift >= 0; shift -= 4)
        shortName += kDigits[sum >> shift & 0xF];
    shortName += "~1";
    if (const std::string kept = Upper(Allowed(extension)).substr(0, kLongestExtension); !kept.empty())
        shortName += '.' + kept;
    return shortName;
}

} // namespace vxsign::platform

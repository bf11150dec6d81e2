// Finds and changes values in the text of an INI file, and leaves all else as it is.
#include "util/iniText.h"

#include <algorithm>
#include <cctype>

namespace vxsign::ini {
namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

std::string_view Trim(std::string_view text)
{
    const auto blank = [](char c) { return c == ' ' || (c >= '\t' && c <= '\r'); };
    while (!text.empty() && blank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && blank(text.back()))
        text.remove_suffix(1);
    return text;
}

bool SameName(std::string_view one, std::string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

// Where a key stands in a text, or would.
struct Place
{
    std::optional<std::string_view> value;
    bool hasSection = false;
    std::size_t sectionEnd = 0; // behind the last line of the section that is not blank, its line end included
};

Place Locate(std::string_view text, std::string_view section, std::string_view key)
{
    Place place;
    std::size_t begin = text.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
    while (begin < text.size()) {
        const std::size_t end = std::min(text.find('\n', begin), text.size() - 1) + 1;
        const std::string_view line = Trim(text.substr(begin, end - begin));
        begin = end;
        if (line.empty())
            continue;
        if (line.front() == '[') {
            if (place.hasSection)
                break;
            place.hasSection = SameName(Trim(line.substr(1, line.find(']') - 1)), section);
        }
        if (!place.hasSection)
            continue;
        place.sectionEnd = end;
        const std::size_t equals = line.find('=');
        if (line.front() == '[' || line.front() == ';' || equals == std::string_view::npos ||
            !SameName(Trim(line.substr(0, equals)), key))
            continue;
        place.value = Trim(line.substr(equals + 1));
        break;
    }
    return place;
}

std::string_view WithoutQuotes(std::string_view value)
{
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') && value.back() == value.front())
        return value.substr(1, value.size() - 2);
    return value;
}

// A line break inside a name or a value would begin a line of its own.
std::string_view FirstLine(std::string_view text)
{
    return Trim(text.substr(0, text.find_first_of("\r\n")));
}

} // namespace

std::optional<std::string> Find(std::string_view text, std::string_view section, std::string_view key)
{
    const Place place = Locate(text, Trim(section), Trim(key));
    if (!place.value)
        return {};
    return std::string(WithoutQuotes(*place.value));
}

void Set(std::string& text, std::string_view section, std::string_view key, std::string_view value)
{
    section = FirstLine(section);
    key = FirstLine(key);
    value = FirstLine(value);
    const Place place = Locate(text, section, key);
    if (place.value) {
        text.replace(static_cast<std::size_t>(place.value->data() - text.data()), place.value->size(), value);
        return;
    }
    const std::string lineEnd = text.find("\r\n") != std::string::npos ? "\r\n" : "\n";
    const std::size_t at = place.hasSection ? place.sectionEnd : text.size();
    std::string added;
    if (at != 0 && text[at - 1] != '\n')
        added += lineEnd;
    if (!place.hasSection)
        added.append("[").append(section).append("]").append(lineEnd);
    added.append(key).append("=").append(value).append(lineEnd);
    text.insert(at, added);
}

std::uint32_t Number(std::string_view value)
{
    value = Trim(value);
    const bool negative = value.starts_with('-');
    if (negative || value.starts_with('+'))
        value.remove_prefix(1);
    const bool hexadecimal = value.starts_with("0x") || value.starts_with("0X");
    if (hexadecimal)
        value.remove_prefix(2);
    std::uint32_t number = 0;
    for (const char c : value) {
        const auto byte = static_cast<unsigned char>(c);
        if (std::isdigit(byte) == 0 && !(hexadecimal && std::isxdigit(byte) != 0))
            break;
        const auto digit = static_cast<unsigned>(std::isdigit(byte) != 0 ? byte - '0' : std::tolower(byte) - 'a' + 10);
        number = number * (hexadecimal ? 16 : 10) + digit;
    }
    return negative ? 0 - number : number;
}

} // namespace vxsign::ini

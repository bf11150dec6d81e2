// Colours, fonts, modes, and paths of the sign, as people write them.
#ifndef VXSIGN_CPP_CODES_HPP
#define VXSIGN_CPP_CODES_HPP

#include <vxsign/cpp/bytes.hpp>
#include <vxsign/cpp/result.hpp>

#include <algorithm>
#include <array>

namespace vxsign::detail {

// A character from '0' to '~' stands for itself, anything longer is a number from 48 on.
inline std::uint32_t ParseCode(std::string_view text, std::uint32_t last, const char* what)
{
    if (text.size() == 1 && text[0] >= '0' && text[0] <= '~')
        return static_cast<std::uint8_t>(text[0]);
    const std::uint32_t code = Number(text).value_or(0);
    if (code < '0' || code > last)
        Refuse("'" + std::string(text) + "' is no " + what + ": a character, or a number from 48 to " +
               std::to_string(last));
    return code;
}

inline std::uint32_t ParseFont(std::string_view text)
{
    return ParseCode(text, 169, "font");
}

inline std::uint32_t ParseMode(std::string_view text)
{
    return ParseCode(text, 255, "mode");
}

// The colour code '/', with the three colour bytes above it; 0 for what is no "#RRGGBB".
inline std::uint32_t TrueColour(std::string_view text)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::uint32_t code = '/';
    if (text.size() != 7 || text[0] != '#')
        return 0;
    for (std::size_t i = 0; i < 6; ++i) {
        const std::size_t digit = kDigits.find(Upper(text[i + 1]));
        if (digit == std::string_view::npos)
            return 0;
        code |= static_cast<std::uint32_t>(digit) << (8 + i / 2 * 8 + (i % 2 == 0 ? 4 : 0));
    }
    return code;
}

// A name, "#RRGGBB" or a code of the sign's own.
inline std::uint32_t ParseColour(std::string_view text)
{
    struct Named
    {
        std::string_view name;
        std::string_view value;
    };
    static constexpr std::array<Named, 9> kNamed = {{{"red", "#FF0000"},
                                                     {"green", "#00FF00"},
                                                     {"blue", "#0000FF"},
                                                     {"yellow", "#FFFF00"},
                                                     {"amber", "#FFB000"},
                                                     {"orange", "#FF6000"},
                                                     {"magenta", "#FF00FF"},
                                                     {"cyan", "#00FFFF"},
                                                     {"white", "#FFFFFF"}}};
    for (const Named& colour : kNamed)
        if (colour.name == text)
            return TrueColour(colour.value);
    if (const std::uint32_t code = TrueColour(text); code != 0)
        return code;
    return ParseCode(text, 255, "colour (a name such as red or amber, #RRGGBB, or a code of the sign)");
}

inline std::string CheckedPath(std::string path)
{
    constexpr std::size_t kLongest = 240;
    if (path.empty() || path.size() > kLongest)
        Refuse("a path on the sign has 1 to " + std::to_string(kLongest) + " bytes");
    return path;
}

// A path on the sign, before it is encoded: shells and programs like slashes, the sign has backslashes.
inline std::string SignPath(std::string_view text)
{
    std::string path(text);
    if (path.size() > 1 && path[1] == ':')
        std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

// The last name of a path.
inline std::string NameOf(std::string_view path)
{
    return std::string(path.substr(path.find_last_of("\\/:") + 1));
}

// Whether both name the same folder ahead of their last name; a name alone is in every folder.
inline bool IsSameFolder(std::string_view from, std::string_view to)
{
    const auto folderOf = [](std::string_view path) { return Upper(path.substr(0, path.find_last_of("\\/:") + 1)); };
    return folderOf(to).empty() || folderOf(from) == folderOf(to);
}

// A file as the sign plays it ahead of all others: 0 for the drive or folder lets the sign look for it.
struct PlayFile
{
    std::uint8_t drive = 0;
    std::uint8_t folder = 0;
    std::string name;
};

inline PlayFile ParsePlayFile(std::string_view text)
{
    const std::string path = SignPath(text);
    const std::string name = NameOf(path);
    const std::string folder = Upper(std::string_view(path).substr(0, path.size() - name.size()));
    const auto isLetter = [&](std::size_t at) { return folder[at] >= 'A' && folder[at] <= 'Z'; };
    if (folder.empty())
        return {0, 0, name};
    if (folder.size() != 5 || !isLetter(0) || !isLetter(3) || folder[1] != ':' || folder[2] != '\\' ||
        folder[4] != '\\')
        Refuse("'" + path + "' cannot play: a name alone, or with a drive and a folder of one letter, as D:/T/A.NMG");
    return {static_cast<std::uint8_t>(folder[0]), static_cast<std::uint8_t>(folder[3]), name};
}

} // namespace vxsign::detail

#endif

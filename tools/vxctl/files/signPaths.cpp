// Takes paths on the sign apart.
#include "vxctl/files/signPaths.h"

#include "vxctl/cli/failure.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr std::string_view kSeparators = "\\/";
constexpr std::size_t kLongestPlayName = 12;

bool IsLetter(char character)
{
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

char Upper(char character)
{
    return character >= 'a' && character <= 'z' ? static_cast<char>(character - 'a' + 'A') : character;
}

// The path without its last name.
std::string_view FolderOf(std::string_view path)
{
    return path.substr(0, path.find_last_of("\\/:") + 1);
}

bool IsSeparator(char character)
{
    return kSeparators.find(character) != std::string_view::npos;
}

} // namespace

char ParseDrive(std::string_view text)
{
    const std::string_view behind = text.substr(std::min<std::size_t>(text.size(), 1));
    if (text.empty() || !IsLetter(text[0]) || !(behind.empty() || behind == ":" || behind == ":\\" || behind == ":/"))
        throw UsageError("'" + std::string(text) + "' is no drive such as D");
    return Upper(text[0]);
}

bool IsSameFolder(std::string_view from, std::string_view to)
{
    const std::string_view target = FolderOf(to);
    return target.empty() || std::ranges::equal(FolderOf(from), target, [](char left, char right) {
               return Upper(left) == Upper(right) || (IsSeparator(left) && IsSeparator(right));
           });
}

PlayFile ParsePlayFile(std::string_view path)
{
    const std::string_view folder = FolderOf(path);
    PlayFile file{0, 0, std::string(path.substr(folder.size()))};
    if (!folder.empty()) {
        if (folder.size() != 5 || !IsLetter(folder[0]) || folder[1] != ':' || !IsSeparator(folder[2]) ||
            !IsLetter(folder[3]) || !IsSeparator(folder[4]))
            throw UsageError("'" + std::string(path) +
                             "' cannot play: a name alone, or with a drive and a folder of one letter, as D:/T/A.NMG");
        file.drive = static_cast<std::uint8_t>(Upper(folder[0]));
        file.folder = static_cast<std::uint8_t>(Upper(folder[3]));
    }
    if (file.name.empty() || file.name.size() > kLongestPlayName)
        throw UsageError("the name of a file that plays has 1 to " + std::to_string(kLongestPlayName) + " characters");
    return file;
}

} // namespace vxctl

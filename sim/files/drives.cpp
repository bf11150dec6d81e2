#include "sim/files/drives.h"

#include "sim/files/signText.h"

#include <algorithm>
#include <stdexcept>
#include <system_error>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

constexpr std::size_t kMaxSignPath = 255;
constexpr std::string_view kStandardFolders[] = {"T", "P", "S", "A", "FONT"};

bool IsSeparator(char c)
{
    return c == '\\' || c == '/';
}

bool IsPlainName(std::string_view name)
{
    return !name.empty() && name != "." && name != ".." && std::none_of(name.begin(), name.end(), [](char c) {
        return (c >= 0 && c < ' ') || std::string_view("<>:\"|?*\\/").find(c) != std::string_view::npos;
    });
}

// The entry of `folder` with this name. Nothing if it is a link, which could lead anywhere.
std::optional<fs::path> Entry(const fs::path& folder, std::string_view name)
{
    std::error_code error;
    fs::path exact = folder / name;
    fs::file_status status = fs::symlink_status(exact, error);
    if (fs::exists(status))
        return fs::is_symlink(status) ? std::nullopt : std::optional(exact);
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        if (SameName(entry->path().filename().native(), name))
            return entry->is_symlink(error) ? std::nullopt : std::optional(entry->path());
    }
    return exact;
}

} // namespace

std::string Drives::CheckLetters(std::string_view wanted)
{
    std::string letters;
    for (const char c : wanted) {
        const char letter = Upper(c);
        if (letter < 'A' || letter > 'Z')
            throw std::invalid_argument("a drive is named by a letter, not by '" + std::string(1, c) + "'");
        if (letters.find(letter) == std::string::npos)
            letters += letter;
    }
    if (letters.find('C') == std::string::npos)
        throw std::invalid_argument("a sign needs drive C, where its system files are");
    return letters;
}

Drives::Drives(const fs::path& rootFolder, std::string_view wanted) : root(rootFolder), letters(CheckLetters(wanted))
{
    for (const char letter : letters)
        fs::create_directories(root / std::string(1, letter));
}

bool Drives::Has(char letter) const
{
    return letters.find(Upper(letter)) != std::string::npos;
}

std::optional<fs::path> Drives::Resolve(std::string_view signPath) const
{
    if (signPath.size() < 2 || signPath.size() > kMaxSignPath || signPath[1] != ':' || !Has(signPath[0]))
        return std::nullopt;
    fs::path found = root / std::string(1, Upper(signPath[0]));
    auto at = signPath.begin() + 2;
    while (at != signPath.end()) {
        const auto end = std::find_if(at, signPath.end(), IsSeparator);
        const std::string_view name(at, end);
        if (!name.empty()) {
            if (!IsPlainName(name))
                return std::nullopt;
            auto entry = Entry(found, name);
            if (!entry)
                return std::nullopt;
            found = std::move(*entry);
        }
        at = end == signPath.end() ? end : end + 1;
    }
    return found;
}

bool Drives::IsStandardFolder(const fs::path& path) const
{
    const auto hasName = [&](std::string_view name) { return SameName(path.filename().native(), name); };
    return path.parent_path().parent_path() == root && std::ranges::any_of(kStandardFolders, hasName);
}

fs::path Drives::SequenceFile() const
{
    return Resolve(kSequencePath).value_or(root / "C" / "SEQUENT.SYS");
}

std::optional<fs::path> Drives::FileIn(char drive, std::string_view folder, std::string_view name) const
{
    if (!IsPlainName(name))
        return std::nullopt;
    std::string path{drive, ':'};
    path.append("\\").append(folder).append("\\").append(name);
    return Resolve(path);
}

} // namespace vxsim

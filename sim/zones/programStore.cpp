#include "sim/zones/programStore.h"

#include "sim/files/directory.h"
#include "sim/files/signText.h"
#include "sim/files/storedRecord.h"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <system_error>

namespace vxsim {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kFolder = "PLAYER";
constexpr std::string_view kExtension = ".PRG";
constexpr std::size_t kMostBytes = 32768;
constexpr std::size_t kLongestPath = 255;

// The name ahead of the extension, in whatever case that is; empty for another file.
std::string_view ProgramName(std::string_view file)
{
    const std::size_t dot = std::min(file.rfind('.'), file.size());
    if (dot > kLongestProgram || !SameName(file.substr(dot), kExtension))
        return {};
    return file.substr(0, dot);
}

std::optional<ProgramFile> ParseLine(std::string_view line)
{
    while (!line.empty() && (line.back() == '\r' || line.back() == ' '))
        line.remove_suffix(1);
    const std::size_t bar = std::min(line.find('|'), line.size());
    ProgramFile file{std::string(line.substr(0, bar))};
    const std::string_view seconds = line.substr(std::min(bar + 1, line.size()));
    std::from_chars(seconds.data(), seconds.data() + seconds.size(), file.staySeconds);
    if (file.path.empty() || file.path.size() > kLongestPath)
        return std::nullopt;
    return file;
}

std::vector<ProgramFile> ParseProgram(std::string_view text)
{
    std::vector<ProgramFile> files;
    while (!text.empty() && files.size() < kMostProgramFiles) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        if (auto file = ParseLine(text.substr(0, end)))
            files.push_back(std::move(*file));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return files;
}

std::vector<DirectoryEntry> EntriesOf(const std::optional<fs::path>& folder)
{
    auto entries = folder ? ReadDirectory(*folder) : std::nullopt;
    return entries ? std::move(*entries) : std::vector<DirectoryEntry>();
}

// The files of a project's programs, no more than a project can have.
std::vector<DirectoryEntry> ProgramEntries(const std::optional<fs::path>& folder)
{
    auto entries = EntriesOf(folder);
    std::erase_if(entries,
                  [](const DirectoryEntry& entry) { return entry.isFolder || ProgramName(entry.name).empty(); });
    entries.resize(std::min(entries.size(), kMostPrograms));
    return entries;
}

} // namespace

std::optional<fs::path> ProgramStore::FolderOf(std::string_view project) const
{
    return project.size() <= kLongestProject ? drives.FileIn('C', kFolder, project) : std::nullopt;
}

std::vector<std::string> ProgramStore::Projects() const
{
    std::vector<std::string> names;
    for (const DirectoryEntry& entry : EntriesOf(drives.FileIn('C', "", kFolder))) {
        if (names.size() < kMostProjects && entry.isFolder && !ProgramEntries(FolderOf(entry.name)).empty())
            names.push_back(entry.name);
    }
    return names;
}

std::vector<std::string> ProgramStore::Programs(std::string_view project) const
{
    std::vector<std::string> names;
    for (const DirectoryEntry& entry : ProgramEntries(FolderOf(project)))
        names.emplace_back(ProgramName(entry.name));
    return names;
}

std::optional<Program> ProgramStore::Find(std::string_view project, std::string_view name) const
{
    const auto folder = FolderOf(project);
    for (const DirectoryEntry& entry : ProgramEntries(folder)) {
        const std::string_view found = ProgramName(entry.name);
        if (!SameName(found, name))
            continue;
        const auto bytes = ReadFileStart(*folder / entry.name, kMostBytes);
        return Program{folder->filename().string(), std::string(found),
                       ParseProgram({reinterpret_cast<const char*>(bytes.data()), bytes.size()}), entry.date,
                       entry.time};
    }
    return std::nullopt;
}

ProgramStore::Content ProgramStore::ContentOf(const Program& program) const
{
    Content content;
    for (const ProgramFile& file : program.files) {
        const auto local = drives.Resolve(file.path);
        std::error_code error;
        if (!local || !fs::is_regular_file(*local, error))
            continue;
        const std::uintmax_t size = fs::file_size(*local, error);
        content.bytes += error ? 0 : size;
        ++content.files;
    }
    return content;
}

} // namespace vxsim

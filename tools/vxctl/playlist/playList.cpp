// A play list by way of the library.
#include "vxctl/playlist/playList.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/platform/localFiles.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <limits>
#include <memory>
#include <system_error>
#include <tuple>
#include <utility>

namespace vxctl {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestPath = 254;
constexpr std::size_t kMostEntries = 255; // that a search can reach
constexpr std::uint16_t kNoLevel = std::numeric_limits<std::uint16_t>::max();
constexpr const char* kPassingName = "\x01"; // which no one types

std::string GroupPath(const std::string& name)
{
    return '/' + name + '/';
}

std::string SubGroupPath(const std::string& group, const std::string& name)
{
    return GroupPath(group) + name + '/';
}

std::string Show(const PlayListPlace& place)
{
    std::string path = "/";
    for (const std::string& name : {place.group, place.subGroup})
        if (!name.empty())
            path += name + '/';
    return path + place.file;
}

// The library takes texts that it could change.
std::uint32_t AddGroupAt(std::string path, std::uint16_t index, std::string name, std::uint8_t playType)
{
    return vxPLAddGroup(path.data(), index, name.data(), playType);
}

std::uint32_t RenameGroup(std::string path, std::string name, std::uint8_t playType)
{
    return vxPLModifyGroup(path.data(), name.data(), playType);
}

bool Bind(const fs::path& file)
{
    std::string folder = file.parent_path().string();
    std::string name = file.filename().string();
    Check(vxPLInit(folder.data(), name.data()));
    return vxLoadSYSFromXML(nullptr) == VX_OK; // what the first one makes of the file it keeps to itself
}

fs::path WithFolder(const fs::path& file)
{
    if (file.filename().empty())
        throw UsageError("a play list is a file, " + file.string() + " is a folder");
    return file.has_parent_path() ? file : "." / file;
}

} // namespace

PlayListPlace ParsePlace(std::string_view path)
{
    if (path.size() > kLongestPath)
        throw UsageError("a path in a play list has " + std::to_string(kLongestPath) + " bytes at most");
    std::vector<std::string> names;
    std::string_view rest = path.starts_with('/') ? path.substr(1) : path;
    for (std::size_t slash = rest.find('/'); slash != std::string_view::npos; slash = rest.find('/')) {
        names.emplace_back(rest.substr(0, slash));
        rest.remove_prefix(slash + 1);
    }
    if (names.size() > 2 || std::ranges::any_of(names, &std::string::empty))
        throw UsageError('"' + std::string(path) +
                         "\" is none of /FILE, /GROUP/, /GROUP/FILE, /GROUP/SUB/, /GROUP/SUB/FILE");
    names.resize(2);
    return {names[0], names[1], std::string(rest)};
}

PlayList::PlayList(fs::path boundFile) : file(std::move(boundFile)), lines(kNoLevel)
{
}

PlayList PlayList::Open(const fs::path& file)
{
    PlayList list(WithFolder(file));
    std::error_code error;
    if (!fs::is_regular_file(list.file, error))
        throw UsageError("there is no play list " + file.string() + "; \"vxctl playlist new\" makes one");
    if (!Bind(list.file))
        throw UsageError(file.string() + " is no play list");
    return list;
}

PlayList PlayList::OpenOrMake(const fs::path& file)
{
    std::error_code error;
    if (fs::exists(file, error))
        return Open(file);
    PlayList list(WithFolder(file));
    fs::create_directories(list.Folder(), error);
    if (error)
        throw UsageError("cannot make " + list.Folder().string() + ": " + error.message());
    Bind(list.file); // an empty file is no list yet
    list.Save();
    return list;
}

void PlayList::Save()
{
    std::error_code error;
    const bool hasContent = fs::file_size(file, error) != 0 && !error;
    const std::vector<std::uint8_t> before = hasContent ? ReadWhole(file.string()) : std::vector<std::uint8_t>();
    const auto root = Level("/");
    const auto version = platform::VersionOf(file);
    Check(vxPLSave());
    if (platform::VersionOf(file) == version) // it does not tell that it could not
        throw SignFailure(VX_OPEN_FILE);
    if (vxLoadSYSFromXML(nullptr) == VX_OK && Level("/") == root)
        return;
    std::ofstream restored(file, std::ios::binary);
    restored.write(reinterpret_cast<const char*>(before.data()), static_cast<std::streamsize>(before.size()));
    throw SignFailure(VX_OPEN_FILE);
}

std::optional<std::vector<PlayListEntry>> PlayList::Level(const std::string& levelPath) const
{
    std::string path = levelPath;
    std::uint16_t count = kNoLevel; // it stays so if there is no such level
    Check(vxPLGetItems(path.data(), &count, lines.data()));
    if (count == kNoLevel)
        return std::nullopt;
    std::vector<PlayListEntry> entries;
    for (std::size_t i = 0; i < count; ++i)
        entries.push_back({lines[i].kind == VX_ENTRY_GROUP, FieldText(lines[i].name)});
    return entries;
}

std::vector<VXPLAYLIST_FILE_INFO> PlayList::Files(const std::string& levelPath) const
{
    std::vector<VXPLAYLIST_FILE_INFO> files;
    for (const PlayListEntry& entry : Level(levelPath).value_or(std::vector<PlayListEntry>())) {
        if (entry.isGroup)
            std::ranges::copy(Files(levelPath + entry.name + '/'), std::back_inserter(files));
        else if (const auto info = Get(levelPath, entry.name))
            files.push_back(*info);
    }
    return files;
}

std::string PlayList::FilesOf(const PlayListPlace& place) const
{
    if (place.group.empty())
        return "/";
    std::string level = SubGroupPath(place.group, place.subGroup.empty() ? place.group : place.subGroup);
    if (!Level(level))
        throw UsageError("the play list has no " + Show({place.group, place.subGroup, ""}));
    return level;
}

PlayList::Spot PlayList::Find(const PlayListPlace& place) const
{
    PlayListEntry wanted{place.file.empty(), place.file};
    std::string level;
    if (!place.file.empty()) {
        level = FilesOf(place);
    } else if (!place.subGroup.empty()) {
        level = GroupPath(place.group);
        wanted.name = place.subGroup;
    } else {
        level = "/";
        wanted.name = place.group;
    }
    const auto entries = Level(level).value_or(std::vector<PlayListEntry>());
    const auto found = std::ranges::find(entries, wanted);
    if (found == entries.end())
        throw UsageError("the play list has no " + Show(place));
    return {level, static_cast<std::uint16_t>(found - entries.begin())};
}

std::optional<VXPLAYLIST_FILE_INFO> PlayList::Get(const std::string& levelPath, const std::string& name) const
{
    std::string path = levelPath + name;
    VXPLAYLIST_FILE_INFO info{};
    Check(vxPLGetFile(path.data(), &info));
    // A search that meets the same name in another sub-group gives whatever file stands at its place here.
    if (FieldText(info.fileName) != name)
        return std::nullopt;
    return info;
}

void PlayList::AddGroup(const PlayListPlace& place, std::uint8_t playType, std::uint16_t index)
{
    const std::string& group = place.group;
    if (group.empty() || !place.file.empty())
        throw UsageError("a group is /GROUP/ or /GROUP/SUB/");
    const bool isSub = !place.subGroup.empty();
    const std::string level = isSub ? GroupPath(group) : "/";
    const auto entries = Level(level);
    if (!entries)
        throw UsageError("the play list has no " + GroupPath(group));
    const std::string& name = isSub ? place.subGroup : group;
    if (std::ranges::find(*entries, PlayListEntry{true, name}) != entries->end())
        throw UsageError("the play list has " + Show(place) + " already");
    if (entries->size() >= kMostEntries)
        throw UsageError("the list has no room for another entry there");
    if (!isSub)
        Check(AddGroupAt("/", index, group, playType));
    // The library compares a new sub-group with the wrong group, so it comes in under a name that is nowhere.
    Check(AddGroupAt(GroupPath(group), isSub ? index : 0, kPassingName, isSub ? playType : 0));
    Check(RenameGroup(SubGroupPath(group, kPassingName), name, isSub ? playType : 0));
    if (!isSub)
        Check(vxPLDelItem(GroupPath(group).data(), 1, 1)); // the default child
}

void PlayList::AddFile(const PlayListPlace& place, const VXPLAYLIST_FILE_INFO& info, std::uint16_t index)
{
    std::string level = FilesOf(place);
    const std::size_t before = Level(level)->size();
    if (before >= kMostEntries)
        throw UsageError("the list has no room for another entry there");
    auto* const record = static_cast<VXPLAYLIST_FILE_INFO*>(std::malloc(sizeof(VXPLAYLIST_FILE_INFO)));
    if (record == nullptr)
        throw std::bad_alloc();
    *record = info;
    const std::uint32_t result = vxPLAddFile(level.data(), index, record);
    if (result == VX_OK && Level(level)->size() > before)
        return; // the list has it
    std::free(record);
    Check(result);
    throw UsageError("the name " + std::string(info.fileName) + " is taken in that part of the list");
}

void PlayList::Modify(const PlayListPlace& place, const VXPLAYLIST_FILE_INFO& info)
{
    std::string path = FilesOf(place) + place.file;
    VXPLAYLIST_FILE_INFO copy = info;
    Check(vxPLModifyFile(path.data(), &copy));
}

void PlayList::Remove(const PlayListPlace& place)
{
    if (place.file.empty() && place.group == place.subGroup)
        throw UsageError(Show(place) + " holds the files of the group itself");
    Spot spot = Find(place);
    Check(vxPLDelItem(spot.level.data(), spot.index, spot.index));
}

void PlayList::Move(const PlayListPlace& place, int steps)
{
    Spot spot = Find(place);
    const int last = static_cast<int>(Level(spot.level)->size()) - 1;
    const int target = std::clamp(spot.index + steps, 0, last);
    for (int at = spot.index; at < target; ++at)
        Check(vxPLMoveItem(spot.level.data(), static_cast<std::uint16_t>(at), VX_MOVE_DOWN));
    for (int at = spot.index; at > target; --at)
        Check(vxPLMoveItem(spot.level.data(), static_cast<std::uint16_t>(at), VX_MOVE_DOWN + 1));
}

} // namespace vxctl

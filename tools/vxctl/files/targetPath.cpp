// Tells folders of the sign from files.
#include "vxctl/files/targetPath.h"

#include "vxctl/cli/failure.h"
#include "vxctl/files/directoryEntry.h"

#include <vxsign/filesystem.h>

#include <array>
#include <filesystem>

namespace vxctl {

namespace {

bool EndsAsFolder(const std::string& path)
{
    return path.ends_with('\\') || path.ends_with(':');
}

// One entry is enough to know. A sign may list a file by its path as that file alone, and what is not there as nothing.
bool IsListed(const std::string& path)
{
    std::uint32_t total = 0;
    std::array<std::uint8_t, kShortEntrySize> page{};
    if (!IsDone(vxGetDirFileEx(path.c_str(), 0, 1, &total, page.data(), 1)))
        return false;
    if (total == 0)
        return vxIsFileExist(path.c_str()) == VX_OK;
    const auto entry = DecodeShortEntry(page);
    return total > 1 || !entry || entry->isFolder || entry->name != path.substr(path.find_last_of("\\:") + 1);
}

} // namespace

std::string TargetPath(const std::string& path, const std::string& local)
{
    const std::string name = std::filesystem::path(local).filename().string();
    if (EndsAsFolder(path))
        return path + (path.ends_with(':') ? "\\" : "") + name;
    return IsListed(path) ? path + '\\' + name : path;
}

} // namespace vxctl

// Folders, process id and names on POSIX systems.
#include "platform/paths.h"

#include "platform/shortName.h"

#include <cstdlib>
#include <unistd.h>

namespace vxsign::platform {

const std::string_view kSeparators = "/";

std::string TempFolder()
{
    const char* const set = std::getenv("TMPDIR");
    std::string folder = set != nullptr && *set != '\0' ? set : "/tmp";
    if (folder.back() != '/')
        folder += '/';
    return folder;
}

std::uint32_t ProcessId()
{
    return static_cast<std::uint32_t>(::getpid());
}

std::string ExecutablePath()
{
    std::error_code error;
    return std::filesystem::read_symlink("/proc/self/exe", error).string();
}

std::string ShortFileName(std::string_view path)
{
    std::error_code error;
    if (path.empty() || !std::filesystem::exists(path, error))
        return {};
    // A sign's path separator counts in either form.
    return ShortNameOf(path.substr(path.find_last_of("/\\") + 1));
}

std::filesystem::path NativePath(std::string_view path)
{
    return path;
}

std::string PathText(const std::filesystem::path& path)
{
    return path.string();
}

bool IsLeadByte(char /*byte*/)
{
    return false;
}

bool LeavesFolder(std::string_view component)
{
    return component == "..";
}

} // namespace vxsign::platform

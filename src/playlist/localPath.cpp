// Which names stay inside their folder.
#include "playlist/localPath.h"

#include "platform/paths.h"

namespace vxsign::playlist {

bool StaysInside(std::string_view name)
{
    if (name.empty())
        return false;
    for (;;) {
        const std::size_t separator = name.find_first_of("/\\");
        if (platform::LeavesFolder(name.substr(0, separator)))
            return false;
        if (separator == std::string_view::npos)
            return true;
        name.remove_prefix(separator + 1);
    }
}

std::string LocalPath(std::string_view directory, std::string_view name)
{
    if (directory.empty() || !StaysInside(name))
        return {};
    std::string path(directory);
    path += '/';
    path += name;
    return path;
}

} // namespace vxsign::playlist

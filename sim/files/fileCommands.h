#pragma once

#include "sim/files/drives.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {

// Major 7: what a host does with the drives besides moving contents.
class FileCommands
{
public:
    // `makeSystemFiles` puts onto drive C what every sign has there.
    FileCommands(const Drives& drives, std::function<void()> makeSystemFiles);

    Reply Execute(const Frame& request) const;

private:
    Reply Format(const Frame& request) const;
    Reply CreateFolder(std::string_view path) const;
    Reply Rename(std::string_view paths) const;
    Reply Move(std::string_view paths) const;
    Reply Delete(std::string_view path) const;
    Reply DeleteKind(const Frame& request, char folder) const;
    Reply List(std::string_view path, std::size_t start, std::size_t count) const;
    Reply ListLong(std::string_view path) const;
    Reply DriveInfo(const Frame& request) const;
    Reply Exists(std::string_view path) const;
    Reply ClearPlayFiles(const Frame& request) const;

    std::pair<std::string, std::string> SplitPaths(std::string_view paths) const;
    bool IsEntry(std::string_view path) const;
    std::size_t DeleteFilesIn(char drive, char folder) const;

    const Drives& drives;
    std::function<void()> makeSystemFiles;
};

} // namespace vxsim

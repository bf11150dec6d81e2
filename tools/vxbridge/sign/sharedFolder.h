// The folder of this PC whose files may go to signs.
#pragma once

#include <filesystem>
#include <string>

namespace vxbridge {

class SharedFolder
{
public:
    SharedFolder() = default; // none: no file goes

    // Throws vxctl::UsageError when there is no such folder.
    explicit SharedFolder(const std::string& path);

    // The file that "file:///FOLDER/NAME" or "NAME" below the folder stands for, wherever its links lead as long as
    // that is below the folder. Throws vxctl::UsageError.
    std::string Find(const std::string& url) const;

private:
    std::filesystem::path folder;
};

} // namespace vxbridge

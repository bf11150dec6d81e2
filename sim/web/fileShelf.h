// Files on the drives, by their sign paths.
#pragma once

#include "sim/files/directory.h"
#include "sim/files/drives.h"
#include "sim/platform/descriptor.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {

struct OpenFile
{
    std::filesystem::path path;
    Descriptor descriptor;
    std::size_t size = 0;
};

// A file on its way in: under a name of its own until it is complete.
class NewFile
{
public:
    // In `folder`, on the same file system as `target`. Throws Refusal if it cannot be made.
    NewFile(const std::filesystem::path& folder, std::filesystem::path target);
    ~NewFile();
    NewFile(const NewFile&) = delete;
    NewFile& operator=(const NewFile&) = delete;

    // False if there is no room; no more can be written then.
    bool Write(std::string_view bytes);
    bool IsWritten() const { return written; }

    // Takes the place of what has stood there. Throws Refusal if it cannot.
    void Place();

    const std::filesystem::path& Target() const { return target; }

private:
    std::filesystem::path target;
    std::string temporary;
    Descriptor file;
    bool written = true;
};

// The drives, for other threads than the sign's: what is done here is seen by the sign once it is told. No path leaves
// its drive, as with Drives; each function throws Refusal where there is nothing to be done.
class FileShelf
{
public:
    FileShelf(const std::filesystem::path& signFolder, const std::string& letters)
        : temporary(signFolder / "sign"), drives(signFolder, letters)
    {
    }

    // Folders first, each group by name; of no path the drives.
    std::vector<FolderEntry> List(const std::string& path) const;

    OpenFile Open(const std::string& path) const;
    NewFile Make(const std::string& path) const;

    // A file or an empty folder. Gives where it was.
    std::filesystem::path Delete(const std::string& path) const;

private:
    std::filesystem::path Resolve(const std::string& path) const;

    std::filesystem::path temporary;
    Drives drives;
};

} // namespace vxsim

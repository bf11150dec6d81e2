// Files and folders of this PC.
#ifndef VXSIGN_CPP_LOCAL_HPP
#define VXSIGN_CPP_LOCAL_HPP

#include <vxsign/cpp/result.hpp>
#include <vxsign/local.h>

#include <filesystem>
#include <fstream>

namespace vxsign::detail {

namespace fs = std::filesystem;

// A path as the library takes it.
inline std::string LocalPath(const fs::path& path)
{
    std::string text = path.string();
    if (text.empty() || text.find('\0') != std::string::npos)
        Refuse("'" + text + "' is no path");
    return text;
}

// One that leads to a file.
inline std::string LocalFile(const fs::path& path)
{
    std::string text = LocalPath(path);
    std::error_code error;
    if (!fs::is_regular_file(path, error))
        throw Failure(VX_OPEN_FILE, "there is no file '" + text + "'");
    return text;
}

inline void WriteLocal(const fs::path& path, const void* bytes, std::size_t size)
{
    std::ofstream file(path, std::ios::binary);
    file.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
    file.close();
    if (!file)
        throw Failure(VX_OPEN_FILE, "cannot write '" + path.string() + "'");
}

// A folder for as long as it is needed.
class TempFolder
{
public:
    TempFolder()
    {
        char name[1024] = {};
        vxGetPCTempFilename(name, sizeof name, "d");
        path = name;
        std::error_code error;
        if (!fs::create_directory(path, error))
            throw Failure(VX_OPEN_FILE, "cannot make the folder '" + path.string() + "'");
        fs::permissions(path, fs::perms::owner_all, error);
    }
    ~TempFolder()
    {
        std::error_code error;
        fs::remove_all(path, error);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    std::string File(const std::string& name) const { return (path / name).string(); }
    const fs::path& Path() const { return path; }

private:
    fs::path path;
};

} // namespace vxsign::detail

#endif

// Exported shortcuts to files and folders of this PC.
#include "platform/files.h"
#include "platform/paths.h"
#include "util/file.h"
#include "util/localCall.h"

#include <vxsign/local.h>

#include <filesystem>

using namespace vxsign;
using platform::NativePath;
namespace fs = std::filesystem;

FILE* vxFOpen(const char* path, const char* mode)
{
    return LocalCall<FILE*>(nullptr, [=] { return OpenFile(path, mode).release(); });
}

std::uint32_t vxFSDelete(const char* path)
{
    if (path == nullptr)
        return 0;
    return LocalCall<std::uint32_t>(0, [=] {
        std::error_code error;
        const fs::path file = NativePath(path);
        return !fs::is_directory(fs::symlink_status(file, error)) && fs::remove(file, error) ? 1u : 0u;
    });
}

std::uint32_t vxOSCreateDir(const char* path)
{
    if (path == nullptr)
        return 0;
    return LocalCall<std::uint32_t>(0, [=] {
        std::error_code error;
        return fs::create_directory(NativePath(path), error) ? 1u : 0u;
    });
}

std::uint32_t vxOSCopyFile(const char* from, const char* to, std::uint8_t failIfExists)
{
    if (from == nullptr || to == nullptr)
        return 0;
    return LocalCall<std::uint32_t>(0, [=] { return platform::CopyContents(from, to, failIfExists == 0) ? 1u : 0u; });
}

std::uint32_t vxOSGetFileSize(const char* path)
{
    return LocalCall<std::uint32_t>(0, [=] {
        const File file = OpenFile(path, "rb");
        return file ? SignFileSize(file).value_or(0) : 0;
    });
}

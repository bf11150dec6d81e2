// Files of POSIX systems, which no child process inherits.
#include "platform/files.h"

#include <cerrno>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

namespace vxsign::platform {

std::FILE* OpenStream(const char* path, const char* mode)
{
    std::string closeOnExec = mode;
    if (closeOnExec.empty())
        return nullptr;
    // Behind the first letter it is a flag wherever the other flags stand; at the end it could fall into a ",ccs=".
    closeOnExec.insert(1, 1, 'e');
    std::FILE* const stream = std::fopen(path, closeOnExec.c_str());
    if (stream == nullptr)
        return nullptr;
    // A folder opens for reading, and then has no bytes and a size without meaning.
    struct stat status = {};
    if (::fstat(fileno(stream), &status) != 0 || S_ISDIR(status.st_mode)) {
        std::fclose(stream);
        return nullptr;
    }
    return stream;
}

bool Sync(std::FILE* stream)
{
    // Not every file system has something to do here; those that have not say EINVAL.
    return std::fflush(stream) == 0 && (::fsync(fileno(stream)) == 0 || errno == EINVAL);
}

bool CopyAttributes(const char* from, std::FILE* to)
{
    constexpr mode_t kModes = 0777;
    struct stat wanted = {};
    struct stat made = {};
    const int file = fileno(to);
    if (::stat(from, &wanted) != 0 || ::fstat(file, &made) != 0)
        return false;
    const bool owned = wanted.st_uid == made.st_uid && wanted.st_gid == made.st_gid;
    return (owned || ::fchown(file, wanted.st_uid, wanted.st_gid) == 0) && ::fchmod(file, wanted.st_mode & kModes) == 0;
}

static_assert(sizeof(::off_t) == sizeof(std::int64_t), "built with _FILE_OFFSET_BITS=64");

bool SeekStream(std::FILE* stream, std::int64_t offset, int origin)
{
    return ::fseeko(stream, offset, origin) == 0;
}

std::int64_t TellStream(std::FILE* stream)
{
    return ::ftello(stream);
}

bool CopyContents(const char* from, const char* to, bool replace)
{
    namespace fs = std::filesystem;
    std::error_code error;
    const auto options = replace ? fs::copy_options::overwrite_existing : fs::copy_options::none;
    return fs::copy_file(from, to, options, error) && !error;
}

bool RemoveFile(const char* path)
{
    return std::remove(path) == 0;
}

} // namespace vxsign::platform

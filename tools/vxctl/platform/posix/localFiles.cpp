// Files and folders of POSIX systems.
#include "vxctl/platform/localFiles.h"

#include <cstdlib>
#include <sys/stat.h>
#include <unistd.h>

namespace vxctl::platform {

namespace fs = std::filesystem;

namespace {

fs::path Variable(const char* name)
{
    const char* const value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing here sets variables
    return value == nullptr ? "" : value;
}

} // namespace

std::FILE* MakeFile(std::string& pattern)
{
    const int descriptor = ::mkstemp(pattern.data());
    return descriptor < 0 ? nullptr : ::fdopen(descriptor, "wb");
}

bool MakeFolder(std::string& pattern)
{
    return ::mkdtemp(pattern.data()) != nullptr;
}

FileVersion VersionOf(const fs::path& file)
{
    struct stat status = {};
    ::stat(file.c_str(), &status);
    return {status.st_ino, status.st_mtim.tv_sec, status.st_mtim.tv_nsec};
}

void Link(const fs::path& file, const fs::path& name, std::error_code& error)
{
    fs::create_symlink(file, name, error);
}

std::tm LocalTime(std::time_t when)
{
    std::tm local = {};
    ::localtime_r(&when, &local);
    return local;
}

long SecondsAhead(std::tm local)
{
    std::mktime(&local);
    return local.tm_gmtoff;
}

fs::path SettingsFolder()
{
    const fs::path folder = Variable("XDG_CONFIG_HOME");
    return folder.empty() ? Variable("HOME") / ".config" : folder;
}

} // namespace vxctl::platform

// Files and folders of Windows.
#include "vxctl/platform/localFiles.h"

#include <cstdlib>
#include <io.h>
#include <windows.h>

namespace vxctl::platform {

namespace fs = std::filesystem;

std::FILE* MakeFile(std::string& pattern)
{
    return ::_mktemp(pattern.data()) == nullptr ? nullptr : std::fopen(pattern.c_str(), "wb");
}

bool MakeFolder(std::string& pattern)
{
    std::error_code error;
    return ::_mktemp(pattern.data()) != nullptr && fs::create_directory(pattern, error);
}

FileVersion VersionOf(const fs::path& file)
{
    BY_HANDLE_FILE_INFORMATION about{};
    const HANDLE handle = ::CreateFileW(file.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                        nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle != INVALID_HANDLE_VALUE) {
        ::GetFileInformationByHandle(handle, &about);
        ::CloseHandle(handle);
    }
    return {std::uint64_t{about.nFileIndexHigh} << 32 | about.nFileIndexLow, about.ftLastWriteTime.dwHighDateTime,
            about.ftLastWriteTime.dwLowDateTime};
}

// Not everyone may make a link that is a file of its own, and none leads to another drive.
void Link(const fs::path& file, const fs::path& name, std::error_code& error)
{
    if (!fs::is_regular_file(file, error))
        return;
    fs::create_hard_link(file, name, error);
    if (error) {
        error.clear();
        fs::copy_file(file, name, error);
    }
}

std::tm LocalTime(std::time_t when)
{
    std::tm local = {};
    ::localtime_s(&local, &when);
    return local;
}

long SecondsAhead(std::tm local)
{
    const std::time_t when = std::mktime(&local);
    return static_cast<long>(::_mkgmtime(&local) - when);
}

fs::path SettingsFolder()
{
    const wchar_t* const folder = ::_wgetenv(L"APPDATA");
    return folder == nullptr ? L"" : folder;
}

} // namespace vxctl::platform

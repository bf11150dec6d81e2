// Files of Windows, which no child process inherits, and which others may rename or delete meanwhile, as elsewhere.
#include "platform/files.h"

#include "platform/win32/names.h"

#include <cerrno>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <system_error>
#include <windows.h>

#include <aclapi.h> // behind windows.h

namespace vxsign::platform {
namespace {

struct Mode
{
    DWORD access;
    DWORD disposition;
    int flags;
};

// What a mode of fopen asks for. The letters behind the first may stand in any order.
Mode ModeOf(std::string_view mode)
{
    const auto has = [mode](char letter) { return mode.find(letter, 1) != std::string_view::npos; };
    const int text = has('b') ? _O_BINARY : _O_TEXT;
    const DWORD both = has('+') ? GENERIC_READ | GENERIC_WRITE : 0;
    const int update = has('+') ? _O_RDWR : _O_WRONLY;
    switch (mode.empty() ? '\0' : mode.front()) {
    case 'r':
        return {GENERIC_READ | both, OPEN_EXISTING, text | (has('+') ? _O_RDWR : _O_RDONLY)};
    case 'w':
        return {GENERIC_WRITE | both, static_cast<DWORD>(has('x') ? CREATE_NEW : CREATE_ALWAYS), text | update};
    case 'a':
        return {GENERIC_WRITE | both, OPEN_ALWAYS, text | update | _O_APPEND};
    default:
        return {};
    }
}

// The letters that tell the stream what the file was opened for; the C library at hand refuses an 'x'.
std::string StreamMode(std::string_view mode)
{
    std::string known;
    for (const char letter : mode)
        if (std::string_view("rwa+bt").find(letter) != std::string_view::npos)
            known += letter;
    return known;
}

HANDLE HandleOf(std::FILE* stream)
{
    return reinterpret_cast<HANDLE>(::_get_osfhandle(::_fileno(stream)));
}

} // namespace

std::FILE* OpenStream(const char* path, const char* mode)
{
    const Mode wanted = ModeOf(mode);
    if (wanted.access == 0) {
        errno = EINVAL;
        return nullptr;
    }
    const HANDLE file =
        ::CreateFileW(Wide(path).c_str(), wanted.access, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                      nullptr, wanted.disposition, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        errno = std::system_category().default_error_condition(static_cast<int>(::GetLastError())).value();
        return nullptr;
    }
    // "COM1" and "NUL", with any extension, are devices in every folder.
    if (::GetFileType(file) != FILE_TYPE_DISK) {
        ::CloseHandle(file);
        errno = EACCES;
        return nullptr;
    }
    const int descriptor = ::_open_osfhandle(reinterpret_cast<std::intptr_t>(file), wanted.flags);
    if (descriptor < 0) {
        ::CloseHandle(file);
        return nullptr;
    }
    std::FILE* const stream = ::_fdopen(descriptor, StreamMode(mode).c_str());
    if (stream == nullptr)
        ::_close(descriptor);
    return stream;
}

bool Sync(std::FILE* stream)
{
    return std::fflush(stream) == 0 && ::_commit(::_fileno(stream)) == 0;
}

bool CopyAttributes(const char* from, std::FILE* to)
{
    PACL access = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    if (::GetNamedSecurityInfoW(Wide(from).data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &access,
                                nullptr, &descriptor) != ERROR_SUCCESS)
        return false;
    std::wstring made(MAX_PATH, L'\0');
    const auto name = [&] {
        return ::GetFinalPathNameByHandleW(HandleOf(to), made.data(), static_cast<DWORD>(made.size() + 1), 0);
    };
    DWORD length = name();
    if (length > made.size()) {
        made.resize(length);
        length = name();
    }
    const bool copied = length != 0 && ::SetNamedSecurityInfoW(made.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION,
                                                               nullptr, nullptr, access, nullptr) == ERROR_SUCCESS;
    ::LocalFree(descriptor);
    return copied;
}

bool SeekStream(std::FILE* stream, std::int64_t offset, int origin)
{
    return ::_fseeki64(stream, offset, origin) == 0;
}

std::int64_t TellStream(std::FILE* stream)
{
    return ::_ftelli64(stream);
}

bool CopyContents(const char* from, const char* to, bool replace)
{
    return ::CopyFileW(Wide(from).c_str(), Wide(to).c_str(), replace ? FALSE : TRUE) != 0;
}

bool RemoveFile(const char* path)
{
    return ::DeleteFileW(Wide(path).c_str()) != 0;
}

} // namespace vxsign::platform

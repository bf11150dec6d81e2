// Folders, process id and names on Windows.
#include "platform/paths.h"

#include "platform/shortName.h"
#include "platform/win32/names.h"

#include <windows.h>

namespace vxsign::platform {
namespace {

// What a function of the system says that writes a text into a buffer, and tells how long it is or had to be.
template <class Ask>
std::wstring Told(Ask ask)
{
    std::wstring text(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = ask(text.data(), static_cast<DWORD>(text.size()));
        if (length < text.size()) {
            text.resize(length);
            return text;
        }
        text.resize(text.size() * 2);
    }
}

} // namespace

const std::string_view kSeparators = "/\\";

std::string TempFolder()
{
    return Narrow(Told([](wchar_t* text, DWORD size) { return ::GetTempPathW(size, text); }));
}

std::uint32_t ProcessId()
{
    return ::GetCurrentProcessId();
}

std::string ExecutablePath()
{
    return Narrow(Told([](wchar_t* text, DWORD size) { return ::GetModuleFileNameW(nullptr, text, size); }));
}

std::string ShortFileName(std::string_view path)
{
    const std::wstring wide = Wide(path);
    const std::wstring told =
        Told([&](wchar_t* text, DWORD size) { return ::GetShortPathNameW(wide.c_str(), text, size); });
    const std::string name = Narrow(told.substr(told.find_last_of(L"/\\") + 1));
    return name.empty() ? name : ShortNameOf(name); // a volume without short names tells the long one
}

std::filesystem::path NativePath(std::string_view path)
{
    return Wide(path);
}

std::string PathText(const std::filesystem::path& path)
{
    return Narrow(path.native());
}

bool IsLeadByte(char byte)
{
    return ::IsDBCSLeadByte(static_cast<BYTE>(byte)) != 0;
}

bool LeavesFolder(std::string_view component)
{
    // Dots and blanks at the end do not count, and a colon names a drive or a second stream.
    return component.find_first_not_of(". ") == std::string_view::npos || component.find(':') != std::string_view::npos;
}

} // namespace vxsign::platform

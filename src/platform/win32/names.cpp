// Names in the code page of the process: UTF-8 where its manifest says so, else that of the system.
#include "platform/win32/names.h"

#include <windows.h>

namespace vxsign::platform {

std::wstring Wide(std::string_view name)
{
    const int size = static_cast<int>(name.size());
    std::wstring wide(static_cast<std::size_t>(::MultiByteToWideChar(CP_ACP, 0, name.data(), size, nullptr, 0)), L'\0');
    ::MultiByteToWideChar(CP_ACP, 0, name.data(), size, wide.data(), static_cast<int>(wide.size()));
    return wide;
}

std::string Narrow(std::wstring_view name)
{
    const int size = static_cast<int>(name.size());
    std::string narrow(
        static_cast<std::size_t>(::WideCharToMultiByte(CP_ACP, 0, name.data(), size, nullptr, 0, nullptr, nullptr)),
        '\0');
    ::WideCharToMultiByte(CP_ACP, 0, name.data(), size, narrow.data(), static_cast<int>(narrow.size()), nullptr,
                          nullptr);
    return narrow;
}

} // namespace vxsign::platform

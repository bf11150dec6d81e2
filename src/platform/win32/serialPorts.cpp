// The serial ports that the registry lists.
#include "platform/serialPorts.h"

#include "platform/win32/names.h"

#include <algorithm>
#include <windows.h>

namespace vxsign::platform {

std::vector<std::string> SerialPorts()
{
    std::vector<std::string> ports;
    HKEY list = nullptr;
    if (::RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"HARDWARE\\DEVICEMAP\\SERIALCOMM", 0, KEY_QUERY_VALUE, &list) !=
        ERROR_SUCCESS)
        return ports;
    wchar_t driver[MAX_PATH];
    wchar_t port[MAX_PATH];
    for (DWORD row = 0;; ++row) {
        DWORD driverSize = MAX_PATH;
        DWORD portSize = sizeof port;
        DWORD type = REG_NONE;
        const LSTATUS status =
            ::RegEnumValueW(list, row, driver, &driverSize, nullptr, &type, reinterpret_cast<BYTE*>(port), &portSize);
        if (status != ERROR_SUCCESS && status != ERROR_MORE_DATA)
            break;
        if (status == ERROR_SUCCESS && type == REG_SZ)
            ports.push_back(Narrow({port, ::wcsnlen(port, portSize / sizeof *port)}));
    }
    ::RegCloseKey(list);
    // COM2 stands before COM10.
    std::sort(ports.begin(), ports.end(), [](const std::string& left, const std::string& right) {
        return left.size() != right.size() ? left.size() < right.size() : left < right;
    });
    return ports;
}

} // namespace vxsign::platform

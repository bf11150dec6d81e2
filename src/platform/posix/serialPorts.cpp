// The serial ports that the kernel lists.
#include "platform/posix/serialPorts.h"

#include "platform/serialPorts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>

namespace vxsign::platform {
namespace {

namespace fs = std::filesystem;

// Consoles and pseudo terminals have no device behind them. The driver of the PC's own ports lists all the ports that
// it could serve, with a chip type of 0 for those that are not there.
bool IsThere(const fs::path& terminal)
{
    std::error_code error;
    if (!fs::exists(terminal / "device", error))
        return false;
    std::ifstream type(terminal / "type");
    int chip = 0;
    return !(type >> chip) || chip != 0;
}

} // namespace

std::vector<std::string> SerialPorts()
{
    return SerialPortsIn("/sys/class/tty");
}

std::vector<std::string> SerialPortsIn(const std::string& classFolder)
{
    std::vector<std::string> ports;
    std::error_code error;
    for (fs::directory_iterator entry(classFolder, error), end; !error && entry != end; entry.increment(error))
        if (IsThere(entry->path()))
            ports.push_back(entry->path().filename().string());
    std::sort(ports.begin(), ports.end());
    return ports;
}

} // namespace vxsign::platform

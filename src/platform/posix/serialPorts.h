// Where the kernel lists serial ports.
#pragma once

#include <string>
#include <vector>

namespace vxsign::platform {

/// The serial ports among the terminals of a folder, in alphabetical order; a folder that cannot be read has none.
std::vector<std::string> SerialPortsIn(const std::string& classFolder);

} // namespace vxsign::platform

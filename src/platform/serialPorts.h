// The serial ports of this PC.
#pragma once

#include <string>
#include <vector>

namespace vxsign::platform {

/// The names of the serial ports that are really there ("ttyUSB0", "COM3"), in order.
std::vector<std::string> SerialPorts();

} // namespace vxsign::platform

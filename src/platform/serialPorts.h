// The serial ports of this PC.
#pragma once

#include <string>
#include <vector>

namespace vxsign::platform {

/// The names of the serial ports that are really there ("ttyUSB0"), in alphabetical order. classFolder is where the
/// system lists its terminals; a folder that cannot be read has none.
std::vector<std::string> SerialPorts(const std::string& classFolder = "/sys/class/tty");

} // namespace vxsign::platform

// What a host does, as the bytes of a run have it.
#pragma once

#include <cstdint>

namespace vxsign::fuzz {

/// Steps count modulo their number.
enum Step : std::uint8_t
{
    kRequest,   // major, minor, words of payload (8 bits each), extended part (16), destination (16), check (8), parts
    kPath,      // major, minor, fields ahead of the path (8 bits each), the fields, the path with its end
    kDatagram,  // a block, as it stands
    kStream,    // a block on a connection
    kXmodem,    // a block for the boot loader
    kModbusRtu, // a block for the Modbus devices
    kModbusTcp,
    kTime, // milliseconds that pass (32 bits); then the face is drawn
    kSteps
};

} // namespace vxsign::fuzz

// The command object of the Modbus devices.
#pragma once

#include "vxBaseCMD/vxBaseCMD.h"
#include "vxComm/MB/modbusFrame.h"

namespace vxsign {

/// The field devices on a Modbus line, reached without the packets of the sign.
class vxMBLED : public CBaseCMD
{
public:
    /// Reads a register into `value`, or writes `value` to it. A read that fails leaves it. Returns the result word.
    std::uint32_t ModbusExchange(std::uint8_t device, std::uint8_t section, modbus::Function function,
                                 std::uint16_t registerNumber, std::uint16_t& value);

private:
    /// Sends the request once. Returns the bytes that came back into replyBuffer.
    std::uint32_t ModbusTransact();
    std::uint32_t GatherAnswer();
    modbus::Answer FindAnswer(std::uint32_t length) const;

    std::uint32_t requestLength = 0;
    modbus::Function functionCode = modbus::Function::kRead; // of the request
};

} // namespace vxsign

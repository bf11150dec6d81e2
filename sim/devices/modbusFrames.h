// Requests for Modbus devices in the bytes of a line.
#pragma once

#include "sim/devices/modbusDevices.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace vxsim {

using ModbusAnswers = std::vector<std::vector<std::uint8_t>>; // whole frames

// Answers the requests of Modbus RTU among these bytes, whatever stands between them. What may be the beginning of a
// further one stays in `bytes`, the rest goes. A request that no device knows the length of ends where the bytes end.
ModbusAnswers AnswerModbusRtu(ModbusDevices& devices, std::vector<std::uint8_t>& bytes);

// The same for requests of Modbus TCP, one behind the other. Nothing if the bytes are none: what follows them makes no
// sense either.
std::optional<ModbusAnswers> AnswerModbusTcp(ModbusDevices& devices, std::vector<std::uint8_t>& bytes);

} // namespace vxsim

// The exports of the Modbus devices.
#include "vxComm/MB/vxMBLED.h"

#include "vxBaseCMD/call.h"

#include <vxsign/modbus.h>

#include <initializer_list>

using namespace vxsign;

namespace {

constexpr std::uint8_t kWholeDevice = 255; // the section of devices that have none
constexpr std::uint32_t kAllRegisters = 65536;

// Some of the first 128 registers.
class RegisterSet
{
public:
    constexpr RegisterSet(std::initializer_list<unsigned> numbers)
    {
        for (const unsigned number : numbers)
            words[number / kWord] |= std::uint64_t{1} << number % kWord;
    }
    constexpr bool Has(unsigned number) const
    {
        return number / kWord < words.size() && (words[number / kWord] >> number % kWord & 1) != 0;
    }

private:
    static constexpr unsigned kWord = 64;
    std::array<std::uint64_t, 2> words{};
};

struct DeviceClass
{
    std::uint32_t readable; // registers below this
    std::uint32_t writable;
    RegisterSet refused; // of the writable ones
    bool clearsValue;    // of a register that could not be read, whatever the reason
};

constexpr DeviceClass kLc{64, 64, {8, 9, 10, 17, 22, 55, 56, 57, 58, 59, 60, 61, 62}, false};
constexpr DeviceClass kTls{27, 27, {11, 12, 13, 15, 22}, true};
constexpr DeviceClass kAlcs{kAllRegisters, 29, {11, 12, 13, 15, 19, 20, 22}, true};
constexpr DeviceClass kMlcs{30, 30, {11, 13, 14, 15, 22}, true};
constexpr DeviceClass kVsls{30, 31, {11, 12, 14, 15, 22}, true};
constexpr DeviceClass kTor{24, 25, {14, 15, 22}, true};
constexpr DeviceClass kVms{101, 101, {11, 13, 14, 15, 18, 19, 22, 25, 30, 31, 32, 34, 35}, true};
constexpr DeviceClass kPvms{68, 68, {8, 22, 63, 64, 65, 66}, false};

std::uint32_t Get(const DeviceClass& of, std::uint8_t device, std::uint8_t section, std::uint16_t number,
                  std::uint16_t* value)
{
    std::uint16_t read = 0;
    const std::uint32_t result = Call<vxMBLED>(number < of.readable, [&](vxMBLED& line) {
        return line.ModbusExchange(device, section, modbus::Function::kRead, number, read);
    });
    if (value != nullptr && (result == VX_OK || of.clearsValue))
        *value = read;
    return result;
}

std::uint32_t Set(const DeviceClass& of, std::uint8_t device, std::uint8_t section, std::uint16_t number,
                  std::uint16_t value)
{
    return Call<vxMBLED>(number < of.writable && !of.refused.Has(number), [&](vxMBLED& line) {
        return line.ModbusExchange(device, section, modbus::Function::kWrite, number, value);
    });
}

} // namespace

std::uint32_t vxMB_LCGet(std::uint8_t device, std::uint16_t registerNumber, std::uint16_t* value)
{
    return Get(kLc, device, kWholeDevice, registerNumber, value);
}

std::uint32_t vxMB_LCSet(std::uint8_t device, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kLc, device, kWholeDevice, registerNumber, value);
}

std::uint32_t vxMB_TLSGet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t* value)
{
    return Get(kTls, device, section, registerNumber, value);
}

std::uint32_t vxMB_TLSSet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kTls, device, section, registerNumber, value);
}

std::uint32_t vxMB_ALCSGet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber,
                           std::uint16_t* value)
{
    return Get(kAlcs, device, section, registerNumber, value);
}

std::uint32_t vxMB_ALCSSet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kAlcs, device, section, registerNumber, value);
}

std::uint32_t vxMB_MLCSGet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber,
                           std::uint16_t* value)
{
    return Get(kMlcs, device, section, registerNumber, value);
}

std::uint32_t vxMB_MLCSSet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kMlcs, device, section, registerNumber, value);
}

std::uint32_t vxMB_VSLSGet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber,
                           std::uint16_t* value)
{
    return vxMB_MLCSGet(device, section, registerNumber, value);
}

std::uint32_t vxMB_VSLSSet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kVsls, device, section, registerNumber, value);
}

std::uint32_t vxMB_TORGet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t* value)
{
    return Get(kTor, device, section, registerNumber, value);
}

std::uint32_t vxMB_TORSet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kTor, device, section, registerNumber, value);
}

std::uint32_t vxMB_VMSGet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t* value)
{
    return Get(kVms, device, section, registerNumber, value);
}

std::uint32_t vxMB_VMSSet(std::uint8_t device, std::uint8_t section, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kVms, device, section, registerNumber, value);
}

std::uint32_t vxMB_PVMSGet(std::uint8_t device, std::uint16_t registerNumber, std::uint16_t* value)
{
    return Get(kPvms, device, kWholeDevice, registerNumber, value);
}

std::uint32_t vxMB_PVMSSet(std::uint8_t device, std::uint16_t registerNumber, std::uint16_t value)
{
    return Set(kPvms, device, kWholeDevice, registerNumber, value);
}

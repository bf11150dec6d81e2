// The registers of Modbus devices.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

// Two bytes as Modbus has them.
inline std::uint16_t HighFirst(std::span<const std::uint8_t> bytes, std::size_t at)
{
    return static_cast<std::uint16_t>(bytes[at] << 8 | bytes[at + 1]);
}

// Roadside devices that speak Modbus, two of each class: LC has the addresses 1 and 11, TLS 2 and 12, then ALCS, MLCS,
// VSLS, TOR, VMS and PVMS with 8 and 18. Each has holding registers that are kept over a restart. What they do not
// have and what cannot be written is refused.
class ModbusDevices
{
public:
    enum Function : std::uint8_t
    {
        kReadRegisters = 3,
        kWriteRegister = 6,
        kWriteRegisters = 16
    };

    // Keeps the registers as `file`, a line each: address of the device, register, value. With `exceptions` a request
    // that is refused is answered.
    ModbusDevices(std::filesystem::path file, bool exceptions);

    // Whether there is a device with this address.
    static bool Has(std::uint8_t device);

    // The answer to one request, both from the function on; empty for silence.
    std::vector<std::uint8_t> Answer(std::uint8_t device, std::span<const std::uint8_t> request);

    // Those registers that were written: address of the device, register as it travels, value.
    using Written = std::map<std::pair<std::uint8_t, std::uint16_t>, std::uint16_t>;
    const Written& Registers() const { return values; }

    // The last register that was written, in words such as "VSLS 5/1 r3=80"; empty before.
    const std::string& LastChange() const { return lastChange; }

    // Told of each register that is written and of each request that is refused, in words.
    void Observe(std::function<void(const std::string&)> observer) { tell = std::move(observer); }

private:
    std::vector<std::uint8_t> Execute(std::uint8_t device, std::span<const std::uint8_t> request);
    std::vector<std::uint8_t> Read(std::uint8_t device, std::span<const std::uint8_t> request) const;
    std::vector<std::uint8_t> Write(std::uint8_t device, std::span<const std::uint8_t> request);
    void TellRefusal(std::uint8_t device, std::span<const std::uint8_t> request, std::uint8_t why) const;
    std::uint16_t Value(std::uint8_t device, std::uint16_t address) const;
    void Load();
    bool Keep() const;

    std::filesystem::path file;
    bool answersRefusals;
    Written values;
    std::string lastChange;
    std::function<void(const std::string&)> tell;
};

} // namespace vxsim

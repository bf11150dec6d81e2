#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

// Roadside devices on a Modbus RTU line, two of each class: LC has the addresses 1 and 11, TLS 2 and 12, then ALCS,
// MLCS, VSLS, TOR, VMS and PVMS with 8 and 18. Each has holding registers that are kept over a restart; what they do
// not have, what cannot be written and what is no request gets no answer.
class ModbusDevices
{
public:
    // Keeps the registers as `file`, a line each: address of the device, register, value.
    explicit ModbusDevices(std::filesystem::path file);

    // Answers the requests among these bytes, whatever stands between them. What may be the beginning of a further one
    // stays in `bytes`, the rest goes.
    std::vector<std::vector<std::uint8_t>> Answer(std::vector<std::uint8_t>& bytes);

    // The last register that was written, in words such as "VSLS 5/1 r3=80"; empty before.
    const std::string& LastChange() const { return lastChange; }

    // Told of each register that is written and of each request that gets no answer, in words.
    void Observe(std::function<void(const std::string&)> observer) { tell = std::move(observer); }

private:
    std::vector<std::uint8_t> AnswerOne(std::span<const std::uint8_t> request);
    std::uint16_t Value(std::uint8_t device, std::uint16_t address) const;
    void Load();
    bool Keep() const;

    std::filesystem::path file;
    std::map<std::pair<std::uint8_t, std::uint16_t>, std::uint16_t> values; // that were written
    std::string lastChange;
    std::function<void(const std::string&)> tell;
};

} // namespace vxsim

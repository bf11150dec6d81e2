// What stands beside the sign on its lines, and the options for it.
#pragma once

#include "sim/devices/bootLoader.h"
#include "sim/devices/modbusDevices.h"
#include "sim/server/endpoints.h"
#include "sim/server/server.h"
#include "sim/stage/stage.h"

#include <CLI/CLI.hpp>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vxsim {

// What has its place on the lines of the sign beside it, as options tell it.
class CompanionOptions
{
public:
    void AddTo(CLI::App& app);

    bool bootLoader = false;
    bool sumsOnly = false;
    bool exceptions = false;
    bool showRegisters = false;
    std::uint16_t rtuPort = 9521;
    std::uint16_t tcpPort = 9522;

    bool HasModbus() const { return modbus->count() != 0; }
    bool HasModbusTcp() const { return modbusTcp->count() != 0; }

private:
    const CLI::Option* modbus = nullptr;
    const CLI::Option* modbusTcp = nullptr;
};

// These things themselves, and where they are to be seen.
class Companions
{
public:
    // Keeps what they keep in `kept`, has their ports on `host`; those of the sign with this index follow the given
    // ones. What they do is told to `tell`, which may be empty. Throws what Endpoints throws.
    Companions(const CompanionOptions& options, const std::filesystem::path& kept, const std::string& host,
               std::size_t index, const std::function<void(const std::string&)>& tell);
    Companions(const Companions&) = delete;
    Companions& operator=(const Companions&) = delete;

    const Beside& Lines() const { return beside; }

    void ShowOn(Stage& stage);

    // A line for each port: "modbus HOST:PORT".
    std::vector<std::string> Places() const;

    // Null without them.
    const ModbusDevices* Devices() const { return devices ? &*devices : nullptr; }

private:
    bool showRegisters;
    std::optional<BootLoader> bootLoader;
    std::optional<ModbusDevices> devices;
    std::optional<Endpoints> rtuPort;
    std::optional<Endpoints> tcpPort;
    Beside beside;
};

} // namespace vxsim

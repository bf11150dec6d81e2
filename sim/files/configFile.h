// C:\CONFIG.SYS.
#pragma once

#include <cstdint>
#include <filesystem>

namespace vxsim {

struct ConfigDefaults
{
    bool driveF = true;
    std::uint32_t address = 0; // IPv4, first octet in the top byte
    std::uint16_t port = 0;
};

// Makes CONFIG.SYS if there is none. In one that exists only the mark of drive F is brought in line, since that is a
// property of the sign and no setting. Throws std::runtime_error if the file cannot be written.
void PrepareConfigFile(const std::filesystem::path& file, const ConfigDefaults& defaults);

} // namespace vxsim

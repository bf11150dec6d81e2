// Packages: a play list together with its files, expanded on the way to the sign.
#pragma once

#include <vxsign/api.h>

#include <cstdint>

namespace vxsign::playlist {

enum class PackageForm : std::uint8_t
{
    kFlat, // PLAYFILE.PLS: one schedule for each file
    kTree, // PLAYFILE.PLM: any number of them
};

/// Unpacks a package beside itself, sends its files and then the sequence file made of them. The first failure ends it.
/// What is no package sends a SEQUENT.SYS that lies there already. VX_OPEN_FILE when the package cannot be opened or a
/// local file cannot be made.
std::uint32_t SendPackage(vxApiConfig& config, const char* path, PackageForm form);

} // namespace vxsign::playlist

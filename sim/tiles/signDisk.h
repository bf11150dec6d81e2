// Files of tiles on the sign's drives.
#pragma once

#include "sim/files/drives.h"
#include "sim/files/storedRecord.h"
#include "sim/tiles/tileFiles.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <system_error>
#include <vector>

// Files of tiles on the sign's drives, where hosts fetch and leave them.
namespace vxsim {

// Size of the file; 0 if it is none, or none that a tile takes.
inline std::size_t StagedSize(const Drives& drives, const std::string& signPath)
{
    const auto file = drives.Resolve(signPath);
    std::error_code error;
    if (!file || !std::filesystem::is_regular_file(*file, error))
        return 0;
    const auto size = std::filesystem::file_size(*file, error);
    return error || size > TileFiles::kMostFile ? 0 : static_cast<std::size_t>(size);
}

// All of it; empty in the same cases.
inline std::vector<std::uint8_t> ReadStaged(const Drives& drives, const std::string& signPath)
{
    const std::size_t size = StagedSize(drives, signPath);
    return size != 0 ? ReadFileStart(*drives.Resolve(signPath), size) : std::vector<std::uint8_t>();
}

// False if the file cannot be written.
inline bool WriteStaged(const Drives& drives, const std::string& signPath, std::span<const std::uint8_t> bytes)
{
    const auto file = drives.Resolve(signPath);
    std::error_code error;
    if (!file || std::filesystem::is_directory(*file, error))
        return false;
    std::filesystem::create_directories(file->parent_path(), error);
    return !error && ReplaceFile(*file, bytes);
}

} // namespace vxsim

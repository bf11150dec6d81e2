// The tables of the logs, read beside the sign.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace vxsim {

struct LogTable
{
    std::vector<std::string> columns;
    std::vector<std::vector<std::string>> rows; // newest first
};

// Each function opens the database for itself, and only to read, so that the sign is not kept from writing. Throws
// Refusal if it cannot be read or has no such table.
std::vector<std::string> LogTableNames(const std::filesystem::path& database);
LogTable ReadLogTable(const std::filesystem::path& database, const std::string& name, std::uint64_t mostRows);

} // namespace vxsim

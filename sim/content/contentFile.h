// Reading files that a host may have made.
#pragma once

#include <cstdint>
#include <filesystem>
#include <vector>

namespace vxsim {

// Larger content is passed over unread.
inline constexpr std::uintmax_t kMostContentBytes = std::uintmax_t{64} * 1024 * 1024;

// The whole file; empty if it is missing, not a file, too large or unreadable.
std::vector<std::uint8_t> ReadWholeFile(const std::filesystem::path& path, std::uintmax_t mostBytes);

} // namespace vxsim

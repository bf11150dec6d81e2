// The record that is kept of a project.
#pragma once

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/zones/programStore.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace vxsim {

// What a host told of a project: its name, the number of its programs and its version (16 bits each), and the program
// that it starts with. Texts are zero padded. A record that is empty, or missing, tells nothing.
inline constexpr std::size_t kProjectProgramsAt = kLongestProject;
inline constexpr std::size_t kProjectVersionAt = kProjectProgramsAt + 2;
inline constexpr std::size_t kProjectStartAt = kProjectVersionAt + 2;
inline constexpr std::size_t kProjectRecordSize = kProjectStartAt + kLongestProgram;

inline std::string ProjectName(std::span<const std::uint8_t> record)
{
    return std::string(TextAt(record.first(std::min(record.size(), kLongestProject)), 0));
}

inline std::string StartProgram(std::span<const std::uint8_t> record)
{
    return std::string(TextAt(record, kProjectStartAt));
}

} // namespace vxsim

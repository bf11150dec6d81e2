// The book of the signs, as vxctl and vxbridge read it.
#pragma once

#include "sim/main/options.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

// "sign-0001" is the first one.
std::string NameOf(std::size_t index);

using NamedPorts = std::vector<std::pair<std::string, std::uint16_t>>;

// Writes the file that the options name. Throws std::runtime_error if it cannot.
void WriteBook(const Options& options, const NamedPorts& signs);

} // namespace vxsim

// The size of a file on the sign.
#pragma once

#include <cstdint>
#include <string>

namespace vxctl {

// Asks for a file's first packet, as a transfer begins, for the size that its reply announces: the library keeps that
// to itself, and compares nothing with it. Gives the result word.
std::uint32_t AskSize(const std::string& path, bool isSystem, std::uint32_t chunk, std::uint32_t& size);

} // namespace vxctl

// The list that a sign keeps of the files it was sent: what stands in it is not sent again.
#pragma once

#include <span>
#include <string>

namespace vxctl {

// Takes files out of it. A sign without a list has forgotten all. Gives the result word.
std::uint32_t ForgetFiles(std::span<const std::string> names);

// Takes all out of it.
std::uint32_t ForgetAllFiles();

} // namespace vxctl

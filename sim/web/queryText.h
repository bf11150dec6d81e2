// What stands behind the question mark.
#pragma once

#include <cstdint>
#include <httplib.h>
#include <string>

namespace vxsim {

// Throws Refusal for what is no number, or one above `most`.
std::uint64_t ToNumber(const std::string& text, const std::string& name, std::uint64_t most);

// `usual` where it does not stand there.
std::uint64_t NumberIn(const httplib::Request& request, const std::string& name, std::uint64_t usual,
                       std::uint64_t most);

} // namespace vxsim

// How many files the program may have open.
#pragma once

#include <cstddef>

namespace vxsim {

// Raises the limit as far as the system allows. Gives what it is then.
std::size_t RaiseOpenFiles();

} // namespace vxsim

// Between names as callers have them, in the code page of the process, and as the system has them.
#pragma once

#include <string>
#include <string_view>

namespace vxsign::platform {

std::wstring Wide(std::string_view name);
std::string Narrow(std::wstring_view name);

} // namespace vxsign::platform

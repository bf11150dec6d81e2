// What the service tells whoever looks after it.
#pragma once

#include <string>

namespace vxbridge {

// A line on standard error; any thread may call it.
void Tell(const std::string& text);

// Tells the service manager that started it, if one did: "READY=1", "STATUS=...", "STOPPING=1".
void Notify(const std::string& state);

} // namespace vxbridge

// Ctrl-C.
#pragma once

namespace vxctl {

// From now on the first SIGINT or SIGTERM sets the abort flag of the calling thread, so that the running operation ends
// between two packets; the second ends the program at once.
void AbortOnInterrupt();

// What the first signal does. Any thread may call it.
void Abort();

} // namespace vxctl

// Ctrl-C.
#pragma once

namespace vxctl {

// From the first call on the first SIGINT or SIGTERM sets the abort flag of the calling thread, so that whatever waits
// for the sign ends at once; the second ends the program.
void AbortOnInterrupt();

// That signal; 0 as long as there was none.
int CaughtSignal();

// What the first signal does. Any thread may call it.
void Abort();

} // namespace vxctl

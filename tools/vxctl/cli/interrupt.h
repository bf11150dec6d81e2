// Ctrl-C, and whatever else ends all that waits.
#pragma once

namespace vxctl {

// From the first call on the first SIGINT or SIGTERM aborts; the second ends the program.
void AbortOnInterrupt();

// That signal; 0 as long as there was none.
int CaughtSignal();

// From here to its end the calling thread is among those that Abort() ends the waits of.
void HeedAborts();

// Sets the abort flags of all threads that heed it, so that whatever waits for a sign ends at once; what connects
// afterwards ends too. Any thread may call it, and a signal handler.
void Abort();
bool IsAborted();

} // namespace vxctl

// Waiting for descriptors with a limit in time.
#pragma once

#include <cstdint>

namespace vxsign::platform {

/// Waits until a descriptor is ready for `events` (of poll), at most timeoutMs and only until the thread is to stop
/// (platform/stop.h); goes on after a signal with the time that is left. True when it is ready or has failed, so
/// that the operation itself tells which.
bool WaitReady(int descriptor, short events, std::uint32_t timeoutMs);

} // namespace vxsign::platform

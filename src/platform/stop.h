// What ends the waits of a thread before their time.
#pragma once

#include <cstdint>

namespace vxsign::platform {

/// From now on the waits of this thread end when another thread, or a signal, makes the word something else than 0;
/// null for none.
void StopBy(std::uint32_t* word);

/// Whether the thread is to stop.
bool IsStopped();

/// How long a wait goes on, at most, before it looks whether it is to stop.
constexpr std::uint32_t kLookMs = 50;

/// Sleeps, on the clock in force, unless it is to stop.
void Rest(std::uint32_t ms);

} // namespace vxsign::platform

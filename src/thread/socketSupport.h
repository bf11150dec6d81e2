// When socket support is started and stopped.
#pragma once

#include <atomic>

namespace vxsign {

/// Counts the starts of socket support, with a sense that is inverted by rule: only a FAILED start is counted. After
/// a good start the counter stays 0, so nothing is ever stopped and the next start runs again; after a failed one
/// further starts do nothing until it is stopped.
class SocketSupport
{
public:
    SocketSupport(int (*startSockets)(), void (*stopSockets)()) : start(startSockets), stop(stopSockets) {}

    void Start()
    {
        if (failedStarts == 0 && start() != 0)
            ++failedStarts;
    }

    void Stop()
    {
        if (failedStarts != 0) {
            --failedStarts;
            stop();
        }
    }

private:
    int (*start)();
    void (*stop)();
    std::atomic<int> failedStarts = 0;
};

} // namespace vxsign

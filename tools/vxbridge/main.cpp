// vxbridge: between signs and a broker of MQTT, and a source for Prometheus.
#include "vxbridge/journal/journal.h"
#include "vxbridge/service/bridge.h"
#include "vxbridge/service/options.h"
#include "vxctl/cli/failure.h"

#include <mosquitto.h>

#include <csignal>
#include <cstdlib>
#include <exception>
#include <pthread.h>

namespace {

// All threads leave them to the one that reads them.
void BlockSignals()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    for (const int signal : {SIGTERM, SIGINT, SIGHUP, SIGPIPE})
        ::sigaddset(&signals, signal);
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

} // namespace

int main(int argc, char** argv)
{
    using namespace vxbridge;
    BlockSignals();
    mosquitto_lib_init();
    try {
        Settings settings;
        if (const std::optional<int> status = ReadOptions(argc, argv, settings))
            return *status;
        Bridge(settings).Run();
        return EXIT_SUCCESS;
    } catch (const vxctl::UsageError& error) {
        Tell(error.what());
        return vxctl::kExitUsage;
    } catch (const std::exception& error) {
        Tell(error.what());
        return vxctl::kExitFailure;
    }
}

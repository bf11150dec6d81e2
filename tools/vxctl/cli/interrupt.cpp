// Ctrl-C: ends what waits, then the program.
#include "vxctl/cli/interrupt.h"

#include <vxsign/api.h>

#include <atomic>
#include <csignal>

namespace vxctl {

namespace {

// The record of a thread stays in its place for as long as the thread lives: vxInitAPI only fills it anew.
std::atomic<vxApiConfig*> record{nullptr};
std::atomic<int> caught{0};

static_assert(std::atomic<vxApiConfig*>::is_always_lock_free && std::atomic<int>::is_always_lock_free &&
                  std::atomic_ref<std::uint32_t>::is_always_lock_free,
              "a signal handler may use atomics that take no lock");

extern "C" void OnSignal(int signal)
{
    caught.store(signal);
    Abort();
}

} // namespace

void Abort()
{
    if (vxApiConfig* const config = record.load())
        std::atomic_ref(config->abortFlag).store(1);
}

int CaughtSignal()
{
    return caught.load();
}

void AbortOnInterrupt()
{
    if (record.load() != nullptr)
        return;
    record = static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    struct sigaction action = {};
    action.sa_handler = OnSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND); // and what waits for standard input ends too
    ::sigemptyset(&action.sa_mask);
    for (const int signal : {SIGINT, SIGTERM}) {
        // A signal that whoever started the program had ignored, as for a job in the background, stays so.
        struct sigaction former = {};
        if (::sigaction(signal, nullptr, &former) == 0 && former.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

} // namespace vxctl

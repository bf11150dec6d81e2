// Ctrl-C: ends what waits, then the program.
#include "vxctl/cli/interrupt.h"

#include "vxctl/platform/console.h"

#include <vxsign/api.h>

#include <atomic>
#include <thread>

namespace vxctl {

namespace {

// The place of a thread's record. Threads come and go, but places stay, so that a signal handler can walk along them; a
// thread takes one that is free before it makes another.
struct Place
{
    std::atomic<vxApiConfig*> record;
    Place* next = nullptr;
};

std::atomic<Place*> places{nullptr};
std::atomic<int> walks{0}; // along the places, under way
std::atomic<bool> aborted{false};
std::atomic<int> caught{0};

static_assert(std::atomic<vxApiConfig*>::is_always_lock_free && std::atomic<Place*>::is_always_lock_free &&
                  std::atomic<int>::is_always_lock_free && std::atomic<bool>::is_always_lock_free &&
                  std::atomic_ref<std::uint32_t>::is_always_lock_free,
              "a signal handler may use atomics that take no lock");

// The record of this thread among the others. It stays where it is for as long as the thread lives: vxInitAPI only
// fills it anew.
class Entry
{
public:
    Entry() : place(Take(static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION)))) {}
    ~Entry()
    {
        place.record = nullptr;
        while (walks != 0) // one of them may still write to the record
            std::this_thread::yield();
    }
    Entry(const Entry&) = delete;
    Entry& operator=(const Entry&) = delete;

private:
    static Place& Take(vxApiConfig* record)
    {
        for (Place* place = places; place != nullptr; place = place->next) {
            vxApiConfig* none = nullptr;
            if (place->record.compare_exchange_strong(none, record))
                return *place;
        }
        auto* const added = new Place{record, places};
        while (!places.compare_exchange_weak(added->next, added)) {
        }
        return *added;
    }

    Place& place;
};

extern "C" void OnSignal(int signal)
{
    caught = signal;
    Abort();
}

} // namespace

void HeedAborts()
{
    thread_local const Entry entry;
}

void Abort()
{
    aborted = true; // ahead of the flags: what connects meanwhile looks at it behind its own
    ++walks;
    for (const Place* place = places; place != nullptr; place = place->next) {
        if (vxApiConfig* const config = place->record)
            std::atomic_ref(config->abortFlag).store(1);
    }
    --walks;
}

bool IsAborted()
{
    return aborted;
}

int CaughtSignal()
{
    return caught;
}

void AbortOnInterrupt()
{
    HeedAborts();
    static std::atomic<bool> isDone{false};
    if (isDone.exchange(true))
        return;
    platform::CatchSignals(OnSignal);
}

} // namespace vxctl

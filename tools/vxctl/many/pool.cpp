// Hands out signs to threads, and gathers what became of them.
#include "vxctl/many/pool.h"

#include "vxctl/cli/interrupt.h"
#include "vxctl/platform/console.h"

#include <algorithm>
#include <condition_variable>
#include <mutex>
#include <system_error>
#include <utility>

namespace vxctl {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr auto kPatience = std::chrono::milliseconds(800); // with what does not heed an abort

} // namespace

struct Pool::Work
{
    Work(std::size_t number, Task wanted, AtFailure then) : count(number), task(std::move(wanted)), atFailure(then) {}

    const std::size_t count;
    const Task task;
    const AtFailure atFailure;

    std::mutex mutex;
    std::condition_variable changed;
    std::size_t begun = 0;
    std::size_t busy = 0; // threads
    bool isFailed = false;
    std::vector<Ended> ended;

    // False when there is no more to do.
    bool Begin(std::size_t& which)
    {
        const std::lock_guard lock(mutex);
        if (begun == count || IsAborted() || (isFailed && atFailure == AtFailure::kBeginNoMore))
            return false;
        which = begun++;
        return true;
    }

    void Run()
    {
        for (std::size_t which = 0; Begin(which);) {
            Outcome outcome = task(which);
            const std::lock_guard lock(mutex);
            isFailed = isFailed || outcome.status != 0;
            ended.push_back({which, std::move(outcome)});
            changed.notify_one();
        }
        const std::lock_guard lock(mutex);
        --busy;
        changed.notify_one();
    }
};

Pool::Pool(std::size_t count, std::size_t jobs, Task task, AtFailure atFailure)
    : work(std::make_shared<Work>(count, std::move(task), atFailure))
{
    const platform::SignalsBlocked blocked;
    const std::lock_guard lock(work->mutex);
    try {
        for (; work->busy < std::min(count, jobs); ++work->busy)
            threads.emplace_back([shared = work] { shared->Run(); });
    } catch (const std::system_error&) {
        if (threads.empty())
            throw; // fewer will do
    }
}

Pool::~Pool()
{
    while (IsBusy() && !IsLate())
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    const bool isBusy = IsBusy();
    for (std::thread& thread : threads) {
        if (isBusy)
            thread.detach();
        else
            thread.join();
    }
}

std::vector<Pool::Ended> Pool::Take(std::chrono::milliseconds longest)
{
    std::unique_lock lock(work->mutex);
    if (work->ended.empty() && work->busy != 0)
        work->changed.wait_for(lock, longest);
    taken += work->ended.size();
    return std::exchange(work->ended, {});
}

bool Pool::IsOver()
{
    if (IsLate())
        return true;
    const std::lock_guard lock(work->mutex);
    return work->busy == 0 && taken == work->begun;
}

bool Pool::IsBusy() const
{
    const std::lock_guard lock(work->mutex);
    return work->busy != 0;
}

bool Pool::IsLate()
{
    if (IsAborted() && !deadline)
        deadline = SteadyClock::now() + kPatience;
    return deadline && SteadyClock::now() >= *deadline;
}

std::size_t Pool::Begun() const
{
    const std::lock_guard lock(work->mutex);
    return work->begun;
}

} // namespace vxctl

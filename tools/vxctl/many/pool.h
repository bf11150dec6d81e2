// Threads that work through many signs, each with one at a time.
#pragma once

#include "vxctl/cli/outcome.h"

#include <chrono>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <vector>

namespace vxctl {

class Pool
{
public:
    // What is done for the sign with that number, on a thread of the pool.
    using Task = std::function<Outcome(std::size_t which)>;

    struct Ended
    {
        std::size_t which;
        Outcome outcome;
    };

    enum class AtFailure
    {
        kGoOn,
        kBeginNoMore
    };

    // Begins with the first `jobs` of the signs 0 to count - 1, and with each other one as soon as one has ended; with
    // no more behind an abort. Threads of the pool leave signals to the others.
    Pool(std::size_t count, std::size_t jobs, Task task, AtFailure atFailure = AtFailure::kGoOn);

    // Waits for its threads, but for those that do not heed an abort, as over the name of a host.
    ~Pool();
    Pool(const Pool&) = delete;
    Pool& operator=(const Pool&) = delete;

    // What has ended since the last call; waits that long at most for it.
    std::vector<Ended> Take(std::chrono::milliseconds longest);

    // Whether all that was begun has been taken; behind an abort, whether it is time to wait no longer.
    bool IsOver();

    // Whether threads are at work. Behind the end of an abort the program has to end without them.
    bool IsBusy() const;

    std::size_t Begun() const;

private:
    bool IsLate(); // an abort has had its time

    struct Work;
    std::shared_ptr<Work> work; // of the threads too
    std::vector<std::thread> threads;
    std::optional<std::chrono::steady_clock::time_point> deadline; // behind an abort
    std::size_t taken = 0;
};

} // namespace vxctl

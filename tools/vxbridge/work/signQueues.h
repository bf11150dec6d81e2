// One queue for each sign, and the threads that work on them: a sign is on one thread at a time, and its commands come
// ahead of its polls.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace vxbridge {

class SignQueues
{
public:
    using Command = std::function<void()>;
    using Poll = std::function<bool()>;    // false when it was stopped: it comes again
    using Stopper = std::function<void()>; // ends what its thread waits for; any thread calls it

    struct Limits
    {
        std::size_t threads = 32;
        std::size_t pollThreads = 24; // polls of dead signs never take all threads
        std::size_t waiting = 1000;   // commands for one sign
    };

    struct Counts
    {
        std::size_t commands = 0; // that wait
        std::size_t polls = 0;
        std::size_t running = 0;
    };

    // `makeStopper` runs on each thread as it begins.
    SignQueues(const Limits& limits, const std::function<Stopper()>& makeStopper);
    ~SignQueues();
    SignQueues(const SignQueues&) = delete;
    SignQueues& operator=(const SignQueues&) = delete;

    // False when too many wait, or nothing is begun any more. A poll of this sign that is under way is stopped.
    bool PutCommand(const std::string& sign, Command command);

    // False when the sign has a poll that waits or is under way.
    bool PutPoll(const std::string& sign, Poll poll);

    // Stops, once more, polls that a command waits for: one that was only just beginning may not have noticed.
    void HurryPolls();

    // Begins nothing more, and stops polls.
    void Close();

    // Behind Close: waits for the commands that are under way. False when some still are.
    bool AwaitIdle(std::chrono::milliseconds longest);

    Counts Count() const;

private:
    struct Line
    {
        std::deque<Command> commands;
        Poll poll;
        const Stopper* polling = nullptr; // of the thread that polls it
        bool isRunning = false;
    };

    using Lines = std::unordered_map<std::string, Line>;

    void Work(const std::function<Stopper()>& makeStopper);
    Lines::value_type* TakeReady(bool& isPoll);
    void RunCommand(Line& line, std::unique_lock<std::mutex>& lock);
    void RunPoll(Line& line, const Stopper& stopper, std::unique_lock<std::mutex>& lock);
    void MakeReady(Lines::value_type& entry);

    const Limits limits;
    mutable std::mutex mutex;
    std::condition_variable changed;
    std::condition_variable idle;
    Lines lines; // of signs with something to do
    std::deque<Lines::value_type*> readyCommands;
    std::deque<Lines::value_type*> readyPolls;
    std::size_t running = 0;
    std::size_t pollsRunning = 0;
    bool isStopping = false;
    std::vector<std::thread> threads;
};

} // namespace vxbridge

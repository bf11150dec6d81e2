#include "vxbridge/work/signQueues.h"

#include <utility>

namespace vxbridge {

namespace {

constexpr std::chrono::milliseconds kHurry{20};

} // namespace

SignQueues::SignQueues(const Limits& wanted, const std::function<Stopper()>& makeStopper) : limits(wanted)
{
    for (std::size_t i = 0; i < limits.threads; ++i)
        threads.emplace_back([this, makeStopper] { Work(makeStopper); });
}

bool SignQueues::PutCommand(const std::string& sign, Command command)
{
    const std::lock_guard lock(mutex);
    if (isStopping)
        return false;
    auto& entry = *lines.try_emplace(sign).first;
    Line& line = entry.second;
    if (line.commands.size() >= limits.waiting)
        return false;
    line.commands.push_back(std::move(command));
    if (line.polling != nullptr)
        (*line.polling)();
    if (!line.isRunning && line.commands.size() == 1) {
        std::erase(readyPolls, &entry); // the command comes first
        MakeReady(entry);
    }
    return true;
}

bool SignQueues::PutPoll(const std::string& sign, Poll poll)
{
    const std::lock_guard lock(mutex);
    if (isStopping)
        return false;
    auto& entry = *lines.try_emplace(sign).first;
    Line& line = entry.second;
    if (line.poll)
        return false;
    line.poll = std::move(poll);
    if (!line.isRunning && line.commands.empty())
        MakeReady(entry);
    return true;
}

void SignQueues::MakeReady(Lines::value_type& entry)
{
    (entry.second.commands.empty() ? readyPolls : readyCommands).push_back(&entry);
    changed.notify_one();
}

void SignQueues::HurryPolls()
{
    const std::lock_guard lock(mutex);
    for (auto& [sign, line] : lines) {
        if (line.polling != nullptr && (isStopping || !line.commands.empty()))
            (*line.polling)();
    }
}

SignQueues::Lines::value_type* SignQueues::TakeReady(bool& isPoll)
{
    const auto take = [](auto& ready) -> Lines::value_type* {
        Lines::value_type* const first = ready.front();
        ready.pop_front();
        return first;
    };
    isPoll = readyCommands.empty();
    if (!isPoll)
        return take(readyCommands);
    return readyPolls.empty() || pollsRunning >= limits.pollThreads ? nullptr : take(readyPolls);
}

void SignQueues::Work(const std::function<Stopper()>& makeStopper)
{
    const Stopper stopper = makeStopper();
    std::unique_lock lock(mutex);
    while (true) {
        bool isPoll = false;
        Lines::value_type* entry = nullptr;
        changed.wait(lock, [&] { return isStopping || (entry = TakeReady(isPoll)) != nullptr; });
        if (isStopping)
            return;
        Line& line = entry->second;
        line.isRunning = true;
        ++running;
        if (isPoll)
            RunPoll(line, stopper, lock);
        else
            RunCommand(line, lock);
        --running;
        idle.notify_one();
        line.isRunning = false;
        if (!line.commands.empty() || line.poll)
            MakeReady(*entry);
        else
            lines.erase(entry->first);
    }
}

void SignQueues::RunCommand(Line& line, std::unique_lock<std::mutex>& lock)
{
    const Command command = std::move(line.commands.front());
    line.commands.pop_front();
    lock.unlock();
    command();
    lock.lock();
}

void SignQueues::RunPoll(Line& line, const Stopper& stopper, std::unique_lock<std::mutex>& lock)
{
    line.polling = &stopper;
    ++pollsRunning;
    lock.unlock();
    const bool isDone = line.poll();
    lock.lock();
    --pollsRunning;
    line.polling = nullptr;
    if (isDone)
        line.poll = nullptr;
    changed.notify_one(); // another poll may have waited for the place
}

void SignQueues::Close()
{
    {
        const std::lock_guard lock(mutex);
        isStopping = true;
        changed.notify_all();
    }
    HurryPolls();
}

bool SignQueues::AwaitIdle(std::chrono::milliseconds longest)
{
    const auto end = std::chrono::steady_clock::now() + longest;
    std::unique_lock lock(mutex);
    while (running != 0 && std::chrono::steady_clock::now() < end) {
        idle.wait_for(lock, kHurry);
        lock.unlock();
        HurryPolls();
        lock.lock();
    }
    return running == 0;
}

SignQueues::~SignQueues()
{
    Close();
    for (std::thread& thread : threads)
        thread.join();
}

SignQueues::Counts SignQueues::Count() const
{
    const std::lock_guard lock(mutex);
    Counts counts;
    for (const auto& [sign, line] : lines) {
        counts.commands += line.commands.size();
        counts.polls += line.poll ? 1 : 0;
    }
    counts.running = running;
    return counts;
}

} // namespace vxbridge

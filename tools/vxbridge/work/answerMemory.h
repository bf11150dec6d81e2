// What was answered to whom: a command that is delivered twice is executed once, and answered twice.
#pragma once

#include <chrono>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vxbridge {

class AnswerMemory
{
public:
    using Time = std::chrono::steady_clock::time_point;
    using Teller = std::function<void(const std::string& answer)>;

    static constexpr std::chrono::minutes kKept{10};
    static constexpr std::size_t kMost = 100000; // answers; the oldest go first

    // A delivery of the command with that key. True when it is the first, which is to be executed. Otherwise `tell`
    // gets the answer: at once when it is known, or together with the first one's.
    bool Take(const std::string& key, Teller tell, Time now);

    // The command is done: tells everyone who asked.
    void Answer(const std::string& key, const std::string& answer, Time now);

    // The command was never begun: who delivers it again finds nothing.
    void Drop(const std::string& key);

private:
    struct Entry
    {
        bool isAnswered = false;
        std::string answer;
        std::vector<Teller> waiting;
    };

    void Forget(Time now);

    std::mutex mutex;
    std::unordered_map<std::string, Entry> entries;
    std::deque<std::pair<Time, std::string>> answered; // the oldest in front
};

} // namespace vxbridge

// The way from other threads to the sign's.
#pragma once

#include "sim/platform/descriptor.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <future>
#include <memory>
#include <stdexcept>
#include <utility>

namespace vxsim {

struct SignGone : std::runtime_error
{
    SignGone() : std::runtime_error("the sign has gone") {}
};

// Questions to the sign, which its own thread answers between two requests of hosts. That thread takes no lock and
// never waits: the questions hang in a chain whose head is exchanged.
class AskQueue
{
public:
    // Throws std::system_error if the system gives no descriptor.
    AskQueue();
    ~AskQueue() { Drop(Take()); }
    AskQueue(const AskQueue&) = delete;
    AskQueue& operator=(const AskQueue&) = delete;

    // From any thread but the sign's: what `question` gives when the sign's thread runs it. Throws what it throws, and
    // SignGone if nobody answers any more.
    template <typename Question>
    auto Ask(Question question) -> decltype(question())
    {
        using Task = std::packaged_task<decltype(question())()>;
        const auto task = std::make_shared<Task>(std::move(question));
        auto answer = task->get_future();
        Push([task] { (*task)(); });
        while (answer.wait_for(kLook) != std::future_status::ready) {
            if (closed)
                throw SignGone();
        }
        return answer.get();
    }

    // Can be read while questions wait.
    int Waiting() const { return bell.Get(); }

    // From the sign's thread: answers those that wait, the oldest first.
    void Answer();

    // From the sign's thread: from now on nobody answers.
    void Close() { closed = true; }

private:
    static constexpr std::chrono::milliseconds kLook{50};

    struct Node
    {
        std::function<void()> task;
        Node* next;
    };

    void Push(std::function<void()> task);
    Node* Take() { return head.exchange(nullptr, std::memory_order_acquire); } // the latest first
    static void Drop(Node* chain);

    Descriptor bell;
    std::atomic<Node*> head = nullptr;
    std::atomic<bool> closed = false;
};

} // namespace vxsim

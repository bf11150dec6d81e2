#include "sim/web/askQueue.h"

#include "sim/web/bell.h"

namespace vxsim {

AskQueue::AskQueue() : bell(MakeBell())
{
}

void AskQueue::Push(std::function<void()> task)
{
    auto* node = new Node{std::move(task), head.load(std::memory_order_relaxed)};
    while (!head.compare_exchange_weak(node->next, node, std::memory_order_release, std::memory_order_relaxed)) {
    }
    Ring(bell);
}

void AskQueue::Answer()
{
    Silence(bell);
    Node* oldest = nullptr;
    for (Node* node = Take(); node != nullptr;)
        oldest = std::exchange(node, std::exchange(node->next, oldest));
    while (oldest != nullptr) {
        const std::unique_ptr<Node> node(std::exchange(oldest, oldest->next));
        node->task();
    }
}

void AskQueue::Drop(Node* chain)
{
    while (chain != nullptr)
        delete std::exchange(chain, chain->next);
}

} // namespace vxsim

#include "vxbridge/mqtt/unanswered.h"

#include <utility>

namespace vxbridge {

Receipt Unanswered::Take(int id, bool isRedelivered)
{
    const std::lock_guard lock(mutex);
    if (isRedelivered && taken.contains(id))
        return nullptr;
    const auto isDone = std::make_shared<bool>(false);
    taken[id] = isDone;
    ++open;
    return {isDone.get(), [self = shared_from_this(), isDone](const void*) { self->Finish(isDone); }};
}

void Unanswered::Finish(const std::shared_ptr<bool>& isDone)
{
    std::unique_lock lock(mutex);
    if (std::exchange(*isDone, true))
        return; // the session went before
    if (--open > 0 || !onDone)
        return;
    onDone();
}

bool Unanswered::IsEmpty() const
{
    const std::lock_guard lock(mutex);
    return open == 0;
}

void Unanswered::Forget()
{
    const std::lock_guard lock(mutex);
    for (const auto& [id, isDone] : taken)
        open -= std::exchange(*isDone, true) ? 0 : 1;
    taken.clear();
}

void Unanswered::Close()
{
    Forget();
    const std::lock_guard lock(mutex);
    onDone = nullptr;
}

} // namespace vxbridge

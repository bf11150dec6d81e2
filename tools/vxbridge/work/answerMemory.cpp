#include "vxbridge/work/answerMemory.h"

namespace vxbridge {

bool AnswerMemory::Take(const std::string& key, Teller tell, Time now)
{
    std::unique_lock lock(mutex);
    Forget(now);
    const auto [found, isNew] = entries.try_emplace(key);
    if (!found->second.isAnswered) {
        found->second.waiting.push_back(std::move(tell));
        return isNew;
    }
    const std::string answer = found->second.answer;
    lock.unlock();
    tell(answer);
    return false;
}

void AnswerMemory::Answer(const std::string& key, const std::string& answer, Time now)
{
    std::unique_lock lock(mutex);
    Entry& entry = entries[key];
    entry.isAnswered = true;
    entry.answer = answer;
    const std::vector<Teller> waiting = std::exchange(entry.waiting, {});
    answered.emplace_back(now, key);
    lock.unlock();
    for (const Teller& tell : waiting)
        tell(answer);
}

void AnswerMemory::Drop(const std::string& key)
{
    const std::lock_guard lock(mutex);
    entries.erase(key);
}

void AnswerMemory::Forget(Time now)
{
    while (!answered.empty() && (answered.size() > kMost || now - answered.front().first > kKept)) {
        entries.erase(answered.front().second);
        answered.pop_front();
    }
}

} // namespace vxbridge

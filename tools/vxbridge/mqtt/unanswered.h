// What came over a link and is not done yet.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

namespace vxbridge {

// Held by whoever has to do with a message; the last one to let it go says that the message is done.
using Receipt = std::shared_ptr<const void>;

// The broker gets the acknowledgements of a link only when all that came over it is done: as long as it has none, it
// gives the message to whoever takes the session over, be it this bridge or another.
class Unanswered : public std::enable_shared_from_this<Unanswered>
{
public:
    // `whenDone` runs, on any thread, when the last one is done.
    explicit Unanswered(std::function<void()> whenDone) : onDone(std::move(whenDone)) {}

    // Nothing for one that came before over the same session, and is done or in work already.
    Receipt Take(int id, bool isRedelivered);

    bool IsEmpty() const;

    // The acknowledgements are out and the broker will use the numbers anew, or the session is gone: what is still in
    // work then is finished for nobody.
    void Forget();

    // The link is no more.
    void Close();

private:
    void Finish(const std::shared_ptr<bool>& isDone);

    mutable std::mutex mutex;
    std::function<void()> onDone;
    std::size_t open = 0;
    std::unordered_map<int, std::shared_ptr<bool>> taken; // by the number of the message; whether it is done
};

} // namespace vxbridge

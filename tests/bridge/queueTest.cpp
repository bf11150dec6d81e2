// The queues of the signs: commands first, one thing with a sign at a time, polls that give way.
#include "vxbridge/work/signQueues.h"

#include <gtest/gtest.h>

#include <atomic>
#include <future>
#include <mutex>
#include <semaphore>
#include <string>
#include <thread>

namespace vxbridge::test {
namespace {

using namespace std::chrono_literals;

// A job that is under way until it is let go or stopped.
class Gate
{
public:
    void Open() { open.release(); }
    void Pass()
    {
        entered.release();
        open.acquire();
    }
    bool AwaitEntry() { return entered.try_acquire_for(10s); }

private:
    std::counting_semaphore<> entered{0};
    std::counting_semaphore<> open{0};
};

class Queues : public testing::Test
{
protected:
    SignQueues::Stopper MakeStopper()
    {
        return [this] {
            ++stops;
            gate.Open();
        };
    }

    void Note(char what)
    {
        const std::lock_guard lock(mutex);
        order += what;
    }

    Gate gate;
    std::atomic<int> stops{0};
    std::mutex mutex;
    std::string order;
    SignQueues queues{{2, 1, 3}, [this] { return MakeStopper(); }};
};

TEST_F(Queues, LetCommandsPassPolls)
{
    std::atomic<int> turns{0};
    EXPECT_TRUE(queues.PutPoll("s", [&] {
        Note('p');
        if (++turns > 1)
            return true;
        gate.Pass();
        return false; // stopped
    }));
    ASSERT_TRUE(gate.AwaitEntry());
    EXPECT_FALSE(queues.PutPoll("s", [] { return true; }));
    for (const char name : {'1', '2', '3'})
        EXPECT_TRUE(queues.PutCommand("s", [this, name] { Note(name); }));
    while (queues.Count().polls > 0)
        std::this_thread::yield();
    EXPECT_EQ("p123p", order);
    EXPECT_GE(stops, 1);
}

TEST_F(Queues, KeepThreadsForCommands)
{
    std::promise<void> done;
    queues.PutPoll("dead", [this] {
        gate.Pass();
        return true;
    });
    ASSERT_TRUE(gate.AwaitEntry());
    queues.PutPoll("other", [this] {
        Note('p');
        return true;
    });
    queues.PutCommand("other", [&] {
        Note('c');
        done.set_value();
    });
    EXPECT_EQ(std::future_status::ready, done.get_future().wait_for(10s));
    EXPECT_EQ("c", order); // the poll waits for the place of the dead sign's
    gate.Open();
    while (queues.Count().polls > 0)
        std::this_thread::yield();
    EXPECT_EQ("cp", order);
}

TEST_F(Queues, TakeNoMoreThanTheirRoomAndNothingAtTheEnd)
{
    queues.PutCommand("s", [this] { gate.Pass(); });
    ASSERT_TRUE(gate.AwaitEntry());
    for (int i = 0; i < 3; ++i)
        EXPECT_TRUE(queues.PutCommand("s", [this] { Note('x'); }));
    EXPECT_FALSE(queues.PutCommand("s", [] {}));
    EXPECT_TRUE(queues.PutCommand("t", [] {}));
    queues.Close();
    EXPECT_FALSE(queues.PutCommand("u", [] {}));
    EXPECT_FALSE(queues.PutPoll("u", [] { return true; }));
    EXPECT_FALSE(queues.AwaitIdle(1ms));
    gate.Open();
    EXPECT_TRUE(queues.AwaitIdle(10s));
    EXPECT_EQ("", order); // what had not begun does not
}

} // namespace
} // namespace vxbridge::test

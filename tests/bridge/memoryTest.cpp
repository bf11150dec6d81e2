// What is remembered of commands: answers, and what is not acknowledged yet.
#include "vxbridge/mqtt/unanswered.h"
#include "vxbridge/work/answerMemory.h"

#include <gtest/gtest.h>

#include <string>

namespace vxbridge::test {
namespace {

using namespace std::chrono_literals;

class Memory : public testing::Test
{
protected:
    bool Take(const std::string& key)
    {
        return memory.Take(
            key, [this](const std::string& answer) { told += answer; }, now);
    }

    AnswerMemory memory;
    AnswerMemory::Time now{};
    std::string told;
};

TEST_F(Memory, ExecutesOnceAndAnswersAll)
{
    EXPECT_TRUE(Take("k"));
    EXPECT_FALSE(Take("k")); // while it is under way
    EXPECT_TRUE(Take("other"));
    memory.Answer("k", "A", now);
    EXPECT_EQ("AA", told);
    now += 10min;
    EXPECT_FALSE(Take("k"));
    EXPECT_EQ("AAA", told);
    now += 1ms;
    EXPECT_TRUE(Take("k"));
    EXPECT_EQ("AAA", told);
}

TEST_F(Memory, DropsAndIsBounded)
{
    EXPECT_TRUE(Take("k"));
    memory.Drop("k");
    EXPECT_TRUE(Take("k"));
    memory.Answer("k", "", now);
    for (std::size_t i = 0; i < AnswerMemory::kMost; ++i)
        memory.Answer(std::to_string(i), "", now);
    EXPECT_FALSE(Take("1"));
    EXPECT_TRUE(Take("k")); // the oldest of too many
}

TEST(Unanswered, IsEmptyWhenTheLastReceiptIsGone)
{
    int rung = 0;
    const auto open = std::make_shared<Unanswered>([&rung] { ++rung; });
    Receipt first = open->Take(1, false);
    Receipt second = open->Take(2, false);
    const Receipt copy = first;
    first = nullptr;
    second = nullptr;
    EXPECT_FALSE(open->IsEmpty());           // the copy holds it
    EXPECT_EQ(nullptr, open->Take(1, true)); // the broker repeats what is in work
    EXPECT_EQ(nullptr, open->Take(2, true)); // and what is done
    EXPECT_NE(nullptr, open->Take(3, true)); // but this came to another bridge before
    EXPECT_EQ(0, rung);
}

TEST(Unanswered, StartsAnewWithTheSession)
{
    int rung = 0;
    const auto open = std::make_shared<Unanswered>([&rung] { ++rung; });
    Receipt former = open->Take(1, false);
    open->Forget();
    EXPECT_TRUE(open->IsEmpty());
    Receipt now = open->Take(1, true);
    ASSERT_NE(nullptr, now);
    former = nullptr; // of a session that is no more
    EXPECT_FALSE(open->IsEmpty());
    now = nullptr;
    EXPECT_TRUE(open->IsEmpty());
    EXPECT_EQ(1, rung);
}

} // namespace
} // namespace vxbridge::test

// Asks at the keyboard.
#include "vxctl/cli/answer.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/platform/console.h"

namespace vxctl {

namespace {

constexpr std::size_t kLongestAnswer = 4096;

// Keeps what is typed unseen for as long as it lives.
class Unseen
{
public:
    Unseen() : wasSeen(platform::ShowTyped(false)) {}
    ~Unseen()
    {
        if (!wasSeen)
            return;
        platform::ShowTyped(*wasSeen);
        PrintLine(Stream::kError, {}); // the end that was typed was not seen either
    }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

private:
    const std::optional<bool> wasSeen;
};

// One byte at a time, so that what follows the line stays there for the next question.
std::string ReadLine()
{
    std::string line;
    while (line.size() < kLongestAnswer) {
        char character = 0;
        const platform::Typed typed = platform::ReadByte(character);
        if (typed == platform::Typed::kInterrupted)
            throw SignFailure(VX_ABORTED);
        if (typed == platform::Typed::kEnd) {
            if (line.empty())
                throw UsageError("standard input has no answer");
            break;
        }
        if (character == '\n')
            break;
        line += character;
    }
    return line;
}

} // namespace

std::string Ask(const std::string& question, Echo echo)
{
    if (!IsAsked())
        return ReadLine();
    PrintQuestion(question);
    if (echo == Echo::kOn)
        return ReadLine();
    const Unseen unseen;
    return ReadLine();
}

bool IsAsked()
{
    return platform::IsTerminal(platform::Standard::kIn);
}

} // namespace vxctl

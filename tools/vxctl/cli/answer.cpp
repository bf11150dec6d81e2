// Asks at the keyboard.
#include "vxctl/cli/answer.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/terminal.h"

#include <cerrno>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace vxctl {

namespace {

constexpr std::size_t kLongestAnswer = 4096;

// Keeps what is typed unseen for as long as it lives.
class Unseen
{
public:
    Unseen() : changed(::tcgetattr(STDIN_FILENO, &former) == 0)
    {
        termios unseen = former;
        unseen.c_lflag &= ~static_cast<tcflag_t>(ECHO);
        if (changed)
            ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &unseen);
    }
    ~Unseen()
    {
        if (!changed)
            return;
        ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &former);
        PrintLine(Stream::kError, {}); // the end that was typed was not seen either
    }
    Unseen(const Unseen&) = delete;
    Unseen& operator=(const Unseen&) = delete;

private:
    termios former{};
    bool changed;
};

// One byte at a time, so that what follows the line stays there for the next question.
std::string ReadLine()
{
    std::string line;
    while (line.size() < kLongestAnswer) {
        // Signals do not end a read, but they do end a wait.
        pollfd input{STDIN_FILENO, POLLIN, 0};
        if (::poll(&input, 1, -1) < 0 && errno == EINTR)
            throw SignFailure(VX_ABORTED);
        char character = 0;
        if (::read(STDIN_FILENO, &character, 1) != 1) {
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
    return ::isatty(STDIN_FILENO) != 0;
}

} // namespace vxctl

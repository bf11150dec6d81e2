// The terminal of POSIX systems.
#include "vxctl/platform/console.h"

#include <cerrno>
#include <csignal>
#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

namespace vxctl::platform {

void PrepareTerminals()
{
}

bool IsTerminal(Standard stream)
{
    return ::isatty(static_cast<int>(stream)) != 0;
}

std::optional<std::pair<std::uint16_t, std::uint16_t>> ScreenSize()
{
    winsize size{};
    if (::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) != 0 || size.ws_col == 0 || size.ws_row == 0)
        return std::nullopt;
    return std::pair{size.ws_col, size.ws_row};
}

void CatchSignals(void (*onSignal)(int signal))
{
    struct sigaction action = {};
    action.sa_handler = onSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND); // and what waits for standard input ends too
    ::sigemptyset(&action.sa_mask);
    for (const int signal : {SIGINT, SIGTERM}) {
        // A signal that whoever started the program had ignored, as for a job in the background, stays so.
        struct sigaction former = {};
        if (::sigaction(signal, nullptr, &former) == 0 && former.sa_handler != SIG_IGN)
            ::sigaction(signal, &action, nullptr);
    }
}

struct SignalsBlocked::Former
{
    sigset_t signals{};
};

SignalsBlocked::SignalsBlocked() : former(std::make_unique<Former>())
{
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGINT);
    ::sigaddset(&signals, SIGTERM);
    ::pthread_sigmask(SIG_BLOCK, &signals, &former->signals);
}

SignalsBlocked::~SignalsBlocked()
{
    ::pthread_sigmask(SIG_SETMASK, &former->signals, nullptr);
}

Typed ReadByte(char& byte)
{
    // Signals do not end a read, but they do end a wait.
    pollfd input{STDIN_FILENO, POLLIN, 0};
    if (::poll(&input, 1, -1) < 0 && errno == EINTR)
        return Typed::kInterrupted;
    return ::read(STDIN_FILENO, &byte, 1) == 1 ? Typed::kCharacter : Typed::kEnd;
}

std::optional<bool> ShowTyped(bool shown)
{
    termios settings{};
    if (::tcgetattr(STDIN_FILENO, &settings) != 0)
        return std::nullopt;
    const bool former = (settings.c_lflag & ECHO) != 0;
    if (former != shown)
        settings.c_lflag ^= ECHO;
    ::tcsetattr(STDIN_FILENO, TCSAFLUSH, &settings);
    return former;
}

Redirection::Redirection() : target(std::tmpfile(), std::fclose)
{
    std::fflush(stdout);
    former = target ? ::dup(STDOUT_FILENO) : -1;
    if (IsMade() && ::dup2(::fileno(target.get()), STDOUT_FILENO) < 0)
        ::close(std::exchange(former, -1));
}

void Redirection::Restore()
{
    if (!IsMade())
        return;
    std::fflush(stdout);
    ::dup2(former, STDOUT_FILENO);
    ::close(std::exchange(former, -1));
}

} // namespace vxctl::platform

// The console of Windows.
#include "vxctl/platform/console.h"

#include <atomic>
#include <csignal>
#include <fcntl.h>
#include <io.h>
#include <string>
#include <windows.h>

namespace vxctl::platform {
namespace {

constexpr int kStandardOutput = 1;

std::atomic<void (*)(int)> caller{nullptr};

HANDLE HandleOf(Standard stream)
{
    constexpr DWORD kHandles[] = {STD_INPUT_HANDLE, STD_OUTPUT_HANDLE, STD_ERROR_HANDLE};
    return ::GetStdHandle(kHandles[static_cast<int>(stream)]);
}

// Runs on a thread of its own.
BOOL WINAPI OnControl(DWORD /*event*/)
{
    void (*const function)(int) = caller.exchange(nullptr);
    if (function == nullptr)
        return FALSE; // the second one: the program ends
    function(SIGINT);
    return TRUE;
}

} // namespace

void PrepareTerminals()
{
    ::SetConsoleOutputCP(CP_UTF8);
    ::SetConsoleCP(CP_UTF8);
    for (const Standard stream : {Standard::kOut, Standard::kError}) {
        DWORD mode = 0;
        if (::GetConsoleMode(HandleOf(stream), &mode))
            ::SetConsoleMode(HandleOf(stream), mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
    }
    // What a program writes has the same bytes everywhere.
    ::_setmode(0, _O_BINARY);
    ::_setmode(kStandardOutput, _O_BINARY);
}

bool IsTerminal(Standard stream)
{
    DWORD mode = 0;
    return ::GetConsoleMode(HandleOf(stream), &mode) != 0;
}

std::optional<std::pair<std::uint16_t, std::uint16_t>> ScreenSize()
{
    CONSOLE_SCREEN_BUFFER_INFO info{};
    if (!::GetConsoleScreenBufferInfo(HandleOf(Standard::kOut), &info))
        return std::nullopt;
    return std::pair{static_cast<std::uint16_t>(info.srWindow.Right - info.srWindow.Left + 1),
                     static_cast<std::uint16_t>(info.srWindow.Bottom - info.srWindow.Top + 1)};
}

void CatchSignals(void (*onSignal)(int signal))
{
    caller = onSignal;
    ::SetConsoleCtrlHandler(OnControl, TRUE);
}

// What a console has to tell comes on a thread of its own anyhow.
struct SignalsBlocked::Former
{
};

SignalsBlocked::SignalsBlocked() = default;
SignalsBlocked::~SignalsBlocked() = default;

Typed ReadByte(char& byte)
{
    const bool caught = caller == nullptr;
    do {
        DWORD count = 0;
        const BOOL isRead = ::ReadFile(HandleOf(Standard::kIn), &byte, 1, &count, nullptr);
        if (!caught && caller == nullptr)
            return Typed::kInterrupted;
        if (!isRead || count != 1)
            return Typed::kEnd;
    } while (byte == '\r'); // a line ends with two
    return Typed::kCharacter;
}

std::optional<bool> ShowTyped(bool shown)
{
    DWORD mode = 0;
    if (!::GetConsoleMode(HandleOf(Standard::kIn), &mode))
        return std::nullopt;
    const bool former = (mode & ENABLE_ECHO_INPUT) != 0;
    ::SetConsoleMode(HandleOf(Standard::kIn), former == shown ? mode : mode ^ ENABLE_ECHO_INPUT);
    return former;
}

// The C library's own temporary files lie where not everyone may write.
Redirection::Redirection() : target(nullptr, std::fclose)
{
    std::wstring folder(MAX_PATH + 1, L'\0');
    std::wstring name(MAX_PATH, L'\0');
    if (::GetTempPathW(MAX_PATH + 1, folder.data()) != 0 &&
        ::GetTempFileNameW(folder.c_str(), L"vxs", 0, name.data()) != 0)
        target.reset(::_wfopen(name.c_str(), L"w+bDN")); // deleted when it is closed, and not inherited
    std::fflush(stdout);
    former = target ? ::_dup(kStandardOutput) : -1;
    if (IsMade() && ::_dup2(::_fileno(target.get()), kStandardOutput) < 0)
        ::_close(std::exchange(former, -1));
}

void Redirection::Restore()
{
    if (!IsMade())
        return;
    std::fflush(stdout);
    ::_dup2(former, kStandardOutput);
    ::_close(std::exchange(former, -1));
}

} // namespace vxctl::platform

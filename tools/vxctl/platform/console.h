// The terminal, the signals from it, and standard output, as the system has them.
#pragma once

#include <cstdint>
#include <cstdio>
#include <memory>
#include <optional>
#include <utility>

namespace vxctl::platform {

enum class Standard : std::uint8_t
{
    kIn,
    kOut,
    kError
};

// Makes terminals take UTF-8 and the escape sequences that the tool writes, where they do not of themselves.
void PrepareTerminals();

bool IsTerminal(Standard stream);

// Columns and rows of the terminal that standard output is; nothing where they cannot be told.
std::optional<std::pair<std::uint16_t, std::uint16_t>> ScreenSize();

// Calls this with the number of the signal on the first Ctrl-C, or whatever else asks the program to end; the second
// one ends it.
void CatchSignals(void (*onSignal)(int signal));

// Threads that begin meanwhile take over that they get no signals.
class SignalsBlocked
{
public:
    SignalsBlocked();
    ~SignalsBlocked();
    SignalsBlocked(const SignalsBlocked&) = delete;
    SignalsBlocked& operator=(const SignalsBlocked&) = delete;

private:
    struct Former;
    const std::unique_ptr<Former> former;
};

enum class Typed : std::uint8_t
{
    kCharacter,
    kEnd,
    kInterrupted // by Ctrl-C
};

// One byte of standard input, and not one more.
Typed ReadByte(char& byte);

// Shows what is typed, or does not. Tells how it was before; nothing where standard input is no terminal.
std::optional<bool> ShowTyped(bool shown);

// Lets standard output go elsewhere for as long as it lives.
class Redirection
{
public:
    // Nothing is changed when there is no room for what comes.
    Redirection();
    ~Redirection() { Restore(); }
    Redirection(const Redirection&) = delete;
    Redirection& operator=(const Redirection&) = delete;

    bool IsMade() const { return former >= 0; }
    // Where it goes.
    FILE* Target() const { return target.get(); }
    void Restore();

private:
    std::unique_ptr<FILE, int (*)(FILE*)> target;
    int former = -1;
};

} // namespace vxctl::platform

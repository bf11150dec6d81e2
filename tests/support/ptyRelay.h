// A serial line to a program.
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <sys/types.h>
#include <thread>
#include <vector>

namespace vxsign::test {

/// A serial line to a program at its far end, with a thread between the two. The program has a socket, not a terminal:
/// a receiver may empty its input behind each answer and its output at its end. On a wire both are over before the next
/// byte could come; on a pseudo-terminal they would take bytes away that are still needed.
class PtyRelay
{
public:
    /// May change what is on its way.
    using Filter = std::function<void(std::vector<std::uint8_t>& bytes)>;

    /// One filter for what goes to the program, one for what comes from it.
    explicit PtyRelay(Filter forth = {}, Filter back = {});
    ~PtyRelay();
    PtyRelay(const PtyRelay&) = delete;
    PtyRelay& operator=(const PtyRelay&) = delete;

    /// The device that stands for the line.
    const std::string& Path() const { return path; }
    /// The thread's library speaks over it, in one try.
    void Configure(std::uint32_t timeoutMs) const;
    /// Standard input and output for the program at the far end.
    int FarEnd() const { return farEnd; }

private:
    void Relay();
    void Pass(int from, int to, const Filter& filter);

    Filter forth;
    Filter back;
    int master = -1;
    int device = -1; // held open, so that the line stays up
    int nearEnd = -1;
    int farEnd = -1;
    int stop = -1;
    std::string path;
    std::vector<std::uint8_t> bytes;
    std::thread thread;
};

/// A program with a line as its standard input and output, and nothing on standard error.
class LineProgram
{
public:
    LineProgram(int line, std::vector<std::string> arguments);
    /// Ends a program that still runs.
    ~LineProgram();
    LineProgram(const LineProgram&) = delete;
    LineProgram& operator=(const LineProgram&) = delete;

    /// The exit status, -1 if the program could not be started or was ended by a signal.
    int Wait();

private:
    ::pid_t process = -1;
};

} // namespace vxsign::test

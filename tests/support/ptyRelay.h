// A serial line to a program.
#pragma once

#include <vxsign/vxsign.h>

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <poll.h>
#include <pty.h>
#include <stdexcept>
#include <string>
#include <sys/eventfd.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>
#include <utility>
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
    explicit PtyRelay(Filter toProgram = {}, Filter fromProgram = {})
        : forth(std::move(toProgram)), back(std::move(fromProgram)), stop(::eventfd(0, EFD_CLOEXEC))
    {
        termios raw{};
        ::cfmakeraw(&raw);
        ::cfsetspeed(&raw, B115200);
        raw.c_cflag |= CS8 | CREAD | CLOCAL;
        char name[128] = {};
        int sockets[2] = {};
        if (::openpty(&master, &device, name, &raw, nullptr) != 0 ||
            ::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets) != 0)
            throw std::runtime_error("no line");
        ::fcntl(master, F_SETFD, FD_CLOEXEC);
        ::fcntl(device, F_SETFD, FD_CLOEXEC);
        path = name;
        nearEnd = sockets[0];
        farEnd = sockets[1];
        thread = std::thread([this] { Relay(); });
    }
    ~PtyRelay()
    {
        const vxApiConfig nothing{};
        vxInitAPI(&nothing);
        ::eventfd_write(stop, 1);
        thread.join();
        for (const int descriptor : {stop, device, master, nearEnd, farEnd})
            ::close(descriptor);
    }
    PtyRelay(const PtyRelay&) = delete;
    PtyRelay& operator=(const PtyRelay&) = delete;

    /// The device that stands for the line.
    const std::string& Path() const { return path; }
    /// Standard input and output for the program at the far end.
    int FarEnd() const { return farEnd; }

    /// The thread's library speaks over it, in one try.
    void Configure(std::uint32_t timeoutMs) const
    {
        vxApiConfig config{};
        config.kind = VX_CHANNEL_SERIAL;
        config.retries = 1;
        config.timeoutMs = timeoutMs;
        config.baudRate = 115200;
        path.copy(config.serialName, sizeof config.serialName - 1);
        vxInitAPI(&config);
    }

private:
    void Relay()
    {
        pollfd watched[] = {{master, POLLIN, 0}, {nearEnd, POLLIN, 0}, {stop, POLLIN, 0}};
        while (::poll(watched, 3, -1) >= 0 && watched[2].revents == 0) {
            if (watched[0].revents != 0)
                Pass(master, nearEnd, forth);
            if (watched[1].revents != 0)
                Pass(nearEnd, master, back);
        }
    }

    static void Pass(int from, int to, const Filter& filter)
    {
        std::vector<std::uint8_t> bytes(4096);
        const ssize_t got = ::read(from, bytes.data(), bytes.size());
        bytes.resize(got > 0 ? static_cast<std::size_t>(got) : 0);
        if (filter)
            filter(bytes);
        // The far end stays open here too, so that a program that has gone is no error.
        if (!bytes.empty() && ::write(to, bytes.data(), bytes.size()) < 0)
            throw std::runtime_error("the line does not take bytes");
    }

    Filter forth;
    Filter back;
    int master = -1;
    int device = -1; // held open, so that the line stays up
    int nearEnd = -1;
    int farEnd = -1;
    int stop = -1;
    std::string path;
    std::thread thread;
};

/// A program with a line as its standard input and output, and nothing on standard error.
class LineProgram
{
public:
    LineProgram(int line, std::vector<std::string> arguments)
    {
        std::vector<char*> argv;
        for (std::string& argument : arguments)
            argv.push_back(argument.data());
        argv.push_back(nullptr);
        process = ::fork();
        if (process != 0)
            return;
        ::dup2(line, STDIN_FILENO);
        ::dup2(line, STDOUT_FILENO);
        ::dup2(::open("/dev/null", O_WRONLY), STDERR_FILENO);
        ::execvp(argv[0], argv.data());
        ::_exit(127);
    }
    /// Ends a program that still runs.
    ~LineProgram()
    {
        if (process > 0)
            ::kill(process, SIGKILL);
        Wait();
    }
    LineProgram(const LineProgram&) = delete;
    LineProgram& operator=(const LineProgram&) = delete;

    /// The exit status, -1 if the program could not be started or was ended by a signal.
    int Wait()
    {
        int status = 0;
        const ::pid_t waited = std::exchange(process, -1);
        return waited > 0 && ::waitpid(waited, &status, 0) == waited && WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    ::pid_t process = -1;
};

} // namespace vxsign::test

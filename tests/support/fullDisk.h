// A disk that is full.
#pragma once

#if !defined(_WIN32) // where nothing bounds the files of a process
#include <csignal>
#include <sys/resource.h>

namespace vxsign::test {

/// As long as it lives, no file of this process takes more than so many bytes: the rest of a write fails.
class FullDisk
{
public:
    explicit FullDisk(rlim_t room = 16)
    {
        ::getrlimit(RLIMIT_FSIZE, &former);
        rlimit full = former;
        full.rlim_cur = room;
        ::setrlimit(RLIMIT_FSIZE, &full);
    }
    ~FullDisk()
    {
        ::setrlimit(RLIMIT_FSIZE, &former);
        std::signal(SIGXFSZ, handler);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit former = {};
    void (*const handler)(int) = std::signal(SIGXFSZ, SIG_IGN);
};

} // namespace vxsign::test

#endif

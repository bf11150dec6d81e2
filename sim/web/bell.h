// A descriptor that wakes who waits for it.
#pragma once

#include "sim/platform/descriptor.h"

#include <cerrno>
#include <sys/eventfd.h>
#include <system_error>

namespace vxsim {

// Throws std::system_error if the system gives none.
inline Descriptor MakeBell()
{
    Descriptor bell(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!bell)
        throw std::system_error(errno, std::generic_category(), "cannot make an event");
    return bell;
}

// Can be read from now on.
inline void Ring(const Descriptor& bell)
{
    ::eventfd_write(bell.Get(), 1);
}

// Until it rings again.
inline void Silence(const Descriptor& bell)
{
    eventfd_t rings = 0;
    ::eventfd_read(bell.Get(), &rings);
}

} // namespace vxsim

// File descriptors that close themselves.
#pragma once

#include <unistd.h>
#include <utility>

namespace vxsim {

// Owner of an open file descriptor.
class Descriptor
{
public:
    Descriptor() = default;
    explicit Descriptor(int descriptor) : value(descriptor) {}
    Descriptor(Descriptor&& other) noexcept : value(std::exchange(other.value, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept
    {
        if (this != &other) {
            Close();
            value = std::exchange(other.value, -1);
        }
        return *this;
    }
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() { Close(); }

    int Get() const { return value; }
    explicit operator bool() const { return value >= 0; }

    void Close()
    {
        if (value >= 0)
            ::close(std::exchange(value, -1));
    }

private:
    int value = -1;
};

} // namespace vxsim

#pragma once

#include <cstdint>
#include <functional>

namespace vxsign {

/// How long the opening of a channel may take; meanwhile isOver is asked whether to give up.
struct Patience
{
    std::uint32_t timeoutMs;
    std::function<bool()> isOver;
};

/// A byte channel to one sign. It knows nothing of packets.
class VXCommBase
{
public:
    VXCommBase() = default;
    VXCommBase(const VXCommBase&) = delete;
    VXCommBase& operator=(const VXCommBase&) = delete;
    virtual ~VXCommBase() = default;

    /// The bytes written, 0 on failure.
    virtual std::uint32_t Write(const char* buffer, std::uint32_t length, std::uint32_t timeoutMs) = 0;
    /// The bytes read, 0 for nothing or on failure.
    virtual std::uint32_t Read(char* buffer, std::uint32_t capacity, std::uint32_t timeoutMs) = 0;
    virtual void Close() = 0;
};

} // namespace vxsign

#pragma once

#include <cstdint>

namespace vxsign {

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

// IPv4 sockets and waiting on them, which ends when the thread is to stop. No operation throws; none raises SIGPIPE.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace vxsign::platform {

/// Starts and stops socket support where the system asks for it; 0 is success. The first socket starts it too.
int StartSockets();
void StopSockets();

struct Endpoint
{
    std::uint32_t address = 0; // first octet in the top byte
    std::uint16_t port = 0;
};

/// An address as inet_addr reads it: one to four numbers with dots between, decimal, octal behind a 0 or hexadecimal
/// behind 0x, of which the last fills all bytes that are left. From a blank on nothing counts. Unlike there, the
/// address 255.255.255.255 is one; what is no address gives nothing.
std::optional<std::uint32_t> ParseIpv4(std::string_view text);

/// One socket, closed with its object.
class Socket
{
public:
    enum class Kind
    {
        kDatagram,
        kStream
    };

#if defined(_WIN32)
    using Handle = std::uintptr_t;
#else
    using Handle = int;
#endif
    static constexpr Handle kNone = static_cast<Handle>(-1);

    Socket() = default;
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket()
    {
        Close();
    }

    bool Open(Kind kind);
    bool IsOpen() const
    {
        return descriptor != kNone;
    }
    bool Bind(std::uint16_t localPort);

    enum class Connection
    {
        kMade,
        kPending,
        kFailed
    };
    /// Asks for a connection without waiting for it.
    Connection Connect(const Endpoint& remote);
    /// Waits for a pending connection, at most timeoutMs.
    Connection AwaitConnection(std::uint32_t timeoutMs);

    /// One send, after waiting for room for at most timeoutMs. The bytes sent; 0 on any failure.
    std::uint32_t Send(const void* data, std::uint32_t length, std::uint32_t timeoutMs);
    std::uint32_t SendTo(const Endpoint& remote, const void* data, std::uint32_t length, std::uint32_t timeoutMs);

    /// One receive, after waiting for data for at most timeoutMs. The bytes read; 0 for nothing, for the peer's end and
    /// on any failure. A datagram longer than the buffer is cut to it. `sender` may be null.
    std::uint32_t Receive(void* buffer, std::uint32_t capacity, std::uint32_t timeoutMs, Endpoint* sender = nullptr);

    void ShutdownSend();
    void Close();

private:
    Handle descriptor = kNone;
};

} // namespace vxsign::platform

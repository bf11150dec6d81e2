#include "sim/server/streamLine.h"

#include <array>
#include <cerrno>
#include <sys/socket.h>
#include <unistd.h>
#include <utility>

namespace vxsim {
namespace {

bool IsPassing(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK || error == EINTR;
}

} // namespace

StreamLine::StreamLine(std::uint64_t ownNumber, Descriptor descriptor, std::optional<std::uint32_t> peerAddress)
    : number(ownNumber), line(std::move(descriptor)), peer(peerAddress)
{
}

bool StreamLine::Receive(Clock::time_point now)
{
    // What is no packets is answered whole, so that less of it is taken at a time.
    constexpr std::size_t kForeignPiece = 1024;
    std::array<std::uint8_t, 16384> piece; // filled by read
    const std::size_t room = speech == Speech::kPackets ? piece.size() : kForeignPiece;
    const ssize_t count = ::read(line.Get(), piece.data(), room);
    if (count < 0)
        return IsPassing(errno);
    const auto got = std::span(piece).first(static_cast<std::size_t>(count));
    if (speech == Speech::kPackets)
        finder.Append(got);
    else
        rawBytes.insert(rawBytes.end(), got.begin(), got.end());
    lastInput = now;
    return count > 0;
}

void StreamLine::Forget()
{
    rawBytes.clear();
    finder.Clear();
}

bool StreamLine::Send(std::span<const std::uint8_t> bytes)
{
    unsent.insert(unsent.end(), bytes.begin(), bytes.end());
    std::size_t sent = 0;
    bool whole = true;
    while (sent < unsent.size()) {
        const auto rest = std::span(unsent).subspan(sent);
        const ssize_t count = peer ? ::send(line.Get(), rest.data(), rest.size(), MSG_NOSIGNAL | MSG_DONTWAIT)
                                   : ::write(line.Get(), rest.data(), rest.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            whole = IsPassing(errno);
        if (count <= 0)
            break;
        sent += static_cast<std::size_t>(count);
    }
    unsent.erase(unsent.begin(), unsent.begin() + static_cast<std::ptrdiff_t>(sent));
    return whole;
}

} // namespace vxsim

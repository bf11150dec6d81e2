// What all relays have in common.
#include "vxctl/record/relay.h"

#include "vxctl/cli/failure.h"
#include "vxctl/platform/console.h"

#include <array>
#include <cerrno>
#include <system_error>

#include <fcntl.h>
#include <sys/socket.h>
#include <vxsign/api.h>

namespace vxctl {

namespace {

constexpr int kQuietMs = 60;    // behind which a line counts as silent
constexpr int kFarewells = 200; // reads at the end

} // namespace

Relay::Relay()
{
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0)
        throw SignFailure(VX_CALL, "no relay for the recording: " + std::generic_category().message(errno));
    ending = Descriptor(ends[0]);
    bell = Descriptor(ends[1]);
}

void Relay::Begin()
{
    const platform::SignalsBlocked blocked; // signals are for others
    try {
        thread = std::jthread([this] { Run(); });
    } catch (const std::system_error& error) {
        throw SignFailure(VX_CALL, std::string("no relay for the recording: ") + error.what());
    }
}

void Relay::End()
{
    bell.Close();
    if (thread.joinable())
        thread.join();
}

bool Relay::IsEnding() const
{
    pollfd wait{ending.Get(), POLLIN, 0};
    return ::poll(&wait, 1, 0) != 0;
}

void Relay::Run()
{
    while (true) {
        std::vector<pollfd> awaited = Awaited();
        awaited.push_back({ending.Get(), POLLIN, 0});
        const int ready = ::poll(awaited.data(), awaited.size(), kQuietMs);
        if (awaited.back().revents != 0)
            break;
        awaited.pop_back();
        if (ready == 0)
            Idle();
        else
            Take(awaited);
    }
    for (int i = 0; i < kFarewells; ++i) {
        std::vector<pollfd> awaited = Awaited();
        if (::poll(awaited.data(), awaited.size(), 0) <= 0)
            break;
        Take(awaited);
    }
    Finish();
}

bool Relay::SendAll(int to, std::span<const std::uint8_t> bytes) const
{
    while (!bytes.empty()) {
        const ssize_t count = ::write(to, bytes.data(), bytes.size()); // signals that a pipe is broken are blocked
        if (count > 0) {
            bytes = bytes.subspan(static_cast<std::size_t>(count));
            continue;
        }
        if (count == 0 || (errno != EAGAIN && errno != EINTR))
            return false;
        pollfd wait[] = {{to, POLLOUT, 0}, {ending.Get(), POLLIN, 0}};
        if (::poll(wait, std::size(wait), -1) > 0 && wait[0].revents == 0)
            return false;
    }
    return true;
}

std::vector<std::uint8_t> TakeBytes(int from)
{
    std::vector<std::uint8_t> bytes(16384);
    errno = 0;
    const ssize_t count = ::read(from, bytes.data(), bytes.size());
    bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    return bytes;
}

std::unique_ptr<Relay> MakeRelay(const SignUrl& sign, const Options& options)
{
    Recording* const recording = Recording::Current();
    if (recording == nullptr)
        return nullptr;
    if (sign.kind == VX_CHANNEL_SERIAL)
        return MakeSerialRelay(sign, *recording);
    const std::uint32_t line = recording->AddLine(options.url, "");
    if (sign.kind == VX_CHANNEL_UDP)
        return MakeDatagramRelay(sign, *recording, line);
    return MakeConnectionRelay(sign, static_cast<int>(options.retries * options.timeoutMs), *recording, line);
}

} // namespace vxctl

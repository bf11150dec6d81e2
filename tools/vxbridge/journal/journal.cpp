#include "vxbridge/journal/journal.h"

#include "vxctl/cli/terminal.h"

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstddef>
#include <cstdlib>
#include <mutex>
#include <string_view>

namespace vxbridge {

void Tell(const std::string& text)
{
    static std::mutex mutex;
    const std::lock_guard lock(mutex);
    vxctl::PrintLine(vxctl::Stream::kError, "vxbridge: " + text);
}

// The name of the socket is a path, or in the abstract name space with '@' in front.
void Notify(const std::string& state)
{
    const char* const name = std::getenv("NOTIFY_SOCKET");
    const std::string_view path = name == nullptr ? "" : name;
    sockaddr_un address{};
    if (path.empty() || path.size() >= sizeof address.sun_path)
        return;
    address.sun_family = AF_UNIX;
    path.copy(address.sun_path, path.size());
    if (path.starts_with('@'))
        address.sun_path[0] = '\0';
    const int socket = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    if (socket < 0)
        return;
    ::sendto(socket, state.data(), state.size(), MSG_NOSIGNAL, reinterpret_cast<const sockaddr*>(&address),
             static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + path.size()));
    ::close(socket);
}

} // namespace vxbridge

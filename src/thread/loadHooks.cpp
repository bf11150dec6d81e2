// What happens when the library is loaded and unloaded, and its version.
#include "platform/files.h"
#include "platform/paths.h"
#include "platform/sockets.h"
#include "thread/socketSupport.h"
#include "thread/threadRecords.h"
#include "util/pathText.h"

#include <exception>
#include <string>

namespace {

using namespace vxsign;

SocketSupport& Sockets()
{
    static SocketSupport sockets(platform::StartSockets, platform::StopSockets);
    return sockets;
}

// Former releases kept a list of short names beside the executable. It is no longer read, and goes when the library
// is loaded.
void DeleteShortNameList()
{
    constexpr std::size_t kLongestPath = 256;
    const std::string executable = platform::ExecutablePath().substr(0, kLongestPath);
    const std::string folder = executable.substr(0, LastOf(executable, platform::kSeparators) + 1);
    platform::RemoveFile((folder + "ShortFileNameList.ini").c_str());
}

struct LoadHooks
{
    LoadHooks() noexcept
    {
        try {
            DeleteShortNameList();
            ThreadConfig();
            ThreadState();
            ThreadPlaylist();
        } catch (const std::exception&) { // out of memory: the records are made on first use
        }
    }
};

const LoadHooks loadHooks;

} // namespace

const char* vxAPIVersion()
{
    return "2.3.10 2020-05-13";
}

std::uint32_t vxSocketup()
{
    Sockets().Start();
    return 0;
}

std::uint32_t vxCleanSocket()
{
    Sockets().Stop();
    return 0;
}

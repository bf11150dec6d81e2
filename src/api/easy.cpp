// One file in one call, the connection being an argument.
#include "thread/connection.h"
#include "util/localCall.h"

#include <vxsign/read.h>
#include <vxsign/result.h>
#include <vxsign/write.h>

namespace {

using namespace vxsign;

using Transfer = std::uint32_t (*)(const char* path, const char* local);

std::uint32_t Easy(Transfer transfer, const char* local, const char* path, const Connection& connection)
{
    if (local == nullptr || path == nullptr || !connection.Complete())
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] {
        const std::uint32_t result = connection.Install();
        return result != VX_OK ? result : transfer(path, local);
    });
}

} // namespace

std::uint32_t vxEasyReadFile(const char* local, const char* path, const char* host, std::uint32_t port)
{
    return Easy(vxReadSpecPathFileEx, local, path, {host, port});
}

std::uint32_t vxEasyWriteFile(const char* local, const char* path, const char* host, std::uint32_t port)
{
    return Easy(vxWriteSpecFileEx, local, path, {host, port});
}

std::uint32_t vxEasyReadFileEx(const char* local, const char* path, const char* host, std::uint32_t port,
                               std::uint32_t kind, const char* serialName, std::uint32_t baud,
                               std::uint16_t destination)
{
    return Easy(vxReadSpecPathFileEx, local, path, {host, port, kind, serialName, baud, destination});
}

std::uint32_t vxEasyWriteFileEx(const char* local, const char* path, const char* host, std::uint32_t port,
                                std::uint32_t kind, const char* serialName, std::uint32_t baud,
                                std::uint16_t destination)
{
    return Easy(vxWriteSpecFileEx, local, path, {host, port, kind, serialName, baud, destination});
}

// The virtual sign over real lines.
#pragma once

#include "sim/server/endpoints.h"
#include "sim/server/loop.h"
#include "sim/server/server.h"
#include "sim/virtualSign.h"
#include "support/tempFolder.h"

#include <sys/eventfd.h>
#include <thread>
#include <unistd.h>

namespace vxsign::test {

/// The virtual sign, served over UDP, TCP and a pseudo-terminal by a thread of its own.
class ServedSign
{
public:
    explicit ServedSign(const vxsim::ServerSettings& settings = {})
        : endpoints({"127.0.0.1", 0, true}), sign({.folder = folder.path, .port = endpoints.port}),
          server(
              loop, endpoints, [this](std::uint64_t) { return &sign; }, settings),
          stop(::eventfd(0, EFD_CLOEXEC)), thread([this] { loop.Run(stop); })
    {
    }
    ~ServedSign()
    {
        ::eventfd_write(stop, 1);
        thread.join();
        ::close(stop);
    }
    ServedSign(const ServedSign&) = delete;
    ServedSign& operator=(const ServedSign&) = delete;

    std::uint16_t Port() const { return endpoints.port; }
    const std::string& SerialPath() const { return endpoints.serialPath; }
    /// What lies on a drive, as "D/T/NAME".
    std::string Read(const std::string& name) const { return folder.Read(name); }

private:
    TempFolder folder;
    vxsim::Endpoints endpoints;
    vxsim::VirtualSign sign;
    vxsim::Loop loop;
    vxsim::Server server;
    int stop;
    std::thread thread;
};

} // namespace vxsign::test

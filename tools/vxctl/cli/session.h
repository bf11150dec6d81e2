// The options that hold for every command, and the connection made from them.
#pragma once

#include "vxctl/cli/report.h"
#include "vxctl/cli/signUrl.h"

#include <vxsign/api.h>

#include <cstdint>
#include <string>

namespace vxctl {

// What the command line says ahead of its command. Numbers that were not given stay those of the library.
struct Options
{
    std::string url = kDefaultUrl;
    std::uint32_t timeoutMs = 3000;
    std::uint32_t retries = 3;
    std::uint32_t chunk = 768;
    std::uint32_t destination = 0;
    std::string playList = "playlist.xml"; // of the commands for play lists

    std::uint16_t Destination() const { return static_cast<std::uint16_t>(destination); }
};

// What every command works with.
struct Session
{
    Options options;
    Report report;

    // The sign, ready for functions that take the connection as arguments. Throws UsageError.
    SignUrl Sign() const { return Resolve(ParseSignUrl(options.url)); }

    // Makes the sign that of this thread, for functions that use the thread's configuration. Throws UsageError.
    void Connect(vxOnProgress onProgress = nullptr, vxOnLog onLog = nullptr) const;
};

} // namespace vxctl

#include "sim/main/fleet.h"

#include "sim/main/fleetSign.h"
#include "sim/main/openFiles.h"
#include "sim/main/signBook.h"
#include "sim/main/signFolder.h"

#include <deque>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

namespace vxsim {
namespace {

constexpr std::size_t kOtherFiles = 128; // connections of hosts, files that are sent and received, the logs

void MakeRoomFor(const Options& options)
{
    const std::size_t ports =
        1 + (options.companions.HasModbus() ? 1 : 0) + (options.companions.HasModbusTcp() ? 1 : 0);
    const std::size_t wanted = 2 * ports * options.count + kOtherFiles;
    const std::size_t limit = RaiseOpenFiles();
    if (limit >= wanted)
        return;
    const std::size_t most = (std::max(limit, kOtherFiles) - kOtherFiles) / (2 * ports);
    throw std::runtime_error(std::to_string(options.count) + " signs want " + std::to_string(wanted) +
                             " open files, and the system allows " + std::to_string(limit) + ", which is enough for " +
                             std::to_string(most) + "; see ulimit -Hn");
}

} // namespace

void ServeMany(const Options& options, int end)
{
    MakeRoomFor(options);
    const SignFolder folder(options.folder);
    FleetParts parts{options, {}, OpenDatabases(!options.folder.empty()), {}};
    std::filesystem::create_directories(folder.Path());
    std::deque<FleetSign> signs;
    NamedPorts ports;
    std::string places = "dir " + folder.Path().string() + '\n';
    for (std::size_t i = 0; i < options.count; ++i) {
        const FleetSign& sign = signs.emplace_back(parts, i, folder.Path());
        ports.emplace_back(sign.Name(), sign.Port());
        places += sign.Places();
    }
    if (!options.book.empty())
        WriteBook(options, ports);
    std::cout << places << std::flush;
    parts.loop.Run(end);
}

} // namespace vxsim

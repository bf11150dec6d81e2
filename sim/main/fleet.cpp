#include "sim/main/fleet.h"

#include "sim/main/fleetSign.h"
#include "sim/main/openFiles.h"
#include "sim/main/signBook.h"
#include "sim/main/signFolder.h"

#include <deque>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

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

// All of them, for their loop and for their page.
class Fleet : public WebFleet
{
public:
    Fleet(FleetParts& shared, const std::filesystem::path& folder) : parts(shared)
    {
        for (std::size_t i = 0; i < parts.options.count; ++i) {
            const FleetSign& sign = signs.emplace_back(parts, i, folder);
            places.push_back({sign.Name(), sign.Place()});
        }
    }

    const std::vector<Place>& Signs() const override { return places; }
    WebSign Open(std::size_t index) override { return signs[index].Open(); }
    void TellTo(std::size_t index, Watcher& watcher) override { signs[index].TellTo(watcher); }
    const Canvas* Face(std::size_t index, std::uint64_t nowMs) override { return signs[index].Face(nowMs); }
    WebIdentity IdentityOf(std::size_t index) const override { return signs[index].Identity(); }
    Loop& Turns() override { return parts.loop; }

    NamedPorts Ports() const
    {
        NamedPorts ports;
        for (const FleetSign& sign : signs)
            ports.emplace_back(sign.Name(), sign.Port());
        return ports;
    }

    // A line for each place where hosts reach them.
    std::string Lines() const
    {
        std::string lines;
        for (const FleetSign& sign : signs)
            lines += sign.Lines();
        return lines;
    }

private:
    FleetParts& parts;
    std::deque<FleetSign> signs;
    std::vector<Place> places;
};

} // namespace

void ServeMany(const Options& options, const PageMakers* pages, int end)
{
    MakeRoomFor(options);
    const SignFolder folder(options.folder);
    std::filesystem::create_directories(folder.Path());
    FleetParts parts{options, {}, OpenDatabases(!options.folder.empty()), {}};
    Fleet fleet(parts, folder.Path());
    std::string lines = "dir " + folder.Path().string() + '\n' + fleet.Lines();
    std::unique_ptr<FleetPage> page;
    if (options.web.IsWanted()) {
        page = pages->many(options.web.Settings(), fleet);
        lines += "web " + page->Address() + '\n';
    }
    if (!options.book.empty())
        WriteBook(options, fleet.Ports());
    std::cout << lines << std::flush;
    parts.loop.Run(end);
}

} // namespace vxsim

// One sign among many.
#pragma once

#include "sim/logs/openDatabases.h"
#include "sim/main/companions.h"
#include "sim/main/options.h"
#include "sim/server/endpoints.h"
#include "sim/server/loop.h"
#include "sim/server/server.h"
#include "sim/stage/stage.h"
#include "sim/virtualSign.h"
#include "sim/web/onlooker.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace vxsim {

// What the signs share. Outlives them.
struct FleetParts
{
    const Options& options;
    Loop loop;
    OpenDatabases databases;
    std::shared_ptr<Font> font; // from the first sign on that is made
};

// A sign that has its ports from the start on, and is made when it is first asked. Then it looks after itself when
// something of its list comes next, once a minute, and whenever it is asked.
class FleetSign
{
public:
    // Throws what Endpoints throws.
    FleetSign(FleetParts& parts, std::size_t index, const std::filesystem::path& fleetFolder);
    FleetSign(const FleetSign&) = delete;
    FleetSign& operator=(const FleetSign&) = delete;

    const std::string& Name() const { return name; }
    std::uint16_t Port() const { return endpoints.port; }
    std::string Place() const { return endpoints.Place(); }

    // A line for each place where hosts reach it: "sign NAME HOST:PORT".
    std::string Lines() const;

    // As WebFleet has them.
    WebSign Open();
    void TellTo(Watcher& other) { watcher = &other; }
    const Canvas* Face(std::uint64_t nowMs);
    WebIdentity Identity() const;

private:
    struct Awake
    {
        Awake(const SignSettings& settings, const std::shared_ptr<Font>& font) : sign(settings), stage(sign, font) {}

        VirtualSign sign;
        Stage stage;
        std::uint64_t keptUpMs = 0;
    };

    VirtualSign* At(std::uint64_t nowMs);
    void Wake();
    void KeepUp(std::uint64_t nowMs);
    void KeepUpOrTell();
    void Tell(const std::string& what);

    FleetParts& parts;
    std::string name;
    std::filesystem::path folder;
    Endpoints endpoints;
    Companions companions;
    std::unique_ptr<Awake> awake;
    std::string told; // what failed last
    Watcher* watcher = nullptr;
    Server server;
};

} // namespace vxsim

#include "sim/main/fleetSign.h"

#include "sim/main/signBook.h"
#include "sim/main/signParts.h"

#include <algorithm>
#include <exception>
#include <utility>

namespace vxsim {
namespace {

using std::chrono::milliseconds;

constexpr std::chrono::hours kNever{24 * 365};
constexpr std::uint64_t kStepMs = 500; // between two looks at what a request has changed
constexpr std::uint64_t kLeastMs = 40;
constexpr std::uint64_t kRestMs = 60000;

ListenSettings ListenOf(const Options& options, std::size_t index)
{
    return {options.listen.host, Following(options.listen.port, index), false};
}

// What comes at random comes to each sign at times of its own.
ServerSettings LinesOf(const Options& options, std::size_t index)
{
    ServerSettings lines = options.Lines();
    lines.faults.seed += static_cast<std::uint32_t>(index);
    return lines;
}

} // namespace

FleetSign::FleetSign(FleetParts& shared, std::size_t index, const std::filesystem::path& fleetFolder)
    : parts(shared), name(NameOf(index)), folder(fleetFolder / name), endpoints(ListenOf(shared.options, index)),
      companions(shared.options.companions, folder / "sign", endpoints.host, index,
                 TellerOf(name, shared.options.verbose)),
      server(
          shared.loop, endpoints, [this](std::uint64_t nowMs) { return At(nowMs); }, LinesOf(shared.options, index),
          companions.Lines())
{
    if (!parts.options.folder.empty()) // for files and faults that are put there by hand
        std::filesystem::create_directories(folder / "sign");
}

std::string FleetSign::Lines() const
{
    std::string lines = "sign " + name + ' ' + endpoints.Place() + '\n';
    for (const std::string& place : companions.Places())
        lines += std::string(place).insert(place.find(' '), ' ' + name) + '\n';
    return lines;
}

WebSign FleetSign::Open()
{
    if (!awake)
        Wake();
    return {awake->sign, awake->stage, server, companions.Devices()};
}

const Canvas* FleetSign::Face(std::uint64_t nowMs)
{
    if (!awake)
        return nullptr;
    if (nowMs >= awake->keptUpMs + kStepMs)
        KeepUp(nowMs);
    return &awake->stage.Draw(nowMs);
}

WebIdentity FleetSign::Identity() const
{
    return {VXSIM_VERSION, folder.string(), PlacesOf(endpoints, companions), name};
}

// Null, which is silence, for a sign that cannot be made: the others go on.
VirtualSign* FleetSign::At(std::uint64_t nowMs)
{
    try {
        if (!awake)
            Wake();
        if (nowMs >= awake->keptUpMs + kStepMs)
            KeepUp(nowMs);
        server.TickBy(Clock::time_point(milliseconds(nowMs + kStepMs)));
        return &awake->sign;
    } catch (const std::exception& error) {
        Tell(error.what());
        return nullptr;
    }
}

void FleetSign::Wake()
{
    if (!parts.font)
        parts.font = FontOf(parts.options);
    SignSettings settings = SettingsOf(parts.options, folder, endpoints);
    settings.databases = &parts.databases;
    auto made = std::make_unique<Awake>(settings, parts.font);
    parts.options.condition.Apply(folder);
    Report(made->sign, name, parts.options.verbose);
    companions.ShowOn(made->stage);
    awake = std::move(made);
    server.OnTick(kNever, [this] { KeepUpOrTell(); });
}

void FleetSign::KeepUp(std::uint64_t nowMs)
{
    awake->keptUpMs = nowMs;
    awake->sign.KeepUp(nowMs);
    if (watcher != nullptr && watcher->IsWatched())
        awake->stage.Draw(nowMs);
    else
        awake->stage.KeepUp(nowMs);
    const std::uint64_t next = std::min(awake->stage.NextMs(nowMs).value_or(UINT64_MAX), nowMs + kRestMs);
    server.TickBy(Clock::time_point(milliseconds(std::max(next, nowMs + kLeastMs))));
    if (watcher != nullptr)
        watcher->Publish(nowMs);
}

void FleetSign::KeepUpOrTell()
{
    try {
        KeepUp(NowMs());
    } catch (const std::exception& error) {
        Tell(error.what());
    }
}

// The same trouble once.
void FleetSign::Tell(const std::string& what)
{
    if (what != told)
        Complain(name, what);
    told = what;
}

} // namespace vxsim

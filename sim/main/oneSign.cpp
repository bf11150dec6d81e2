#include "sim/main/oneSign.h"

#include "sim/main/signBook.h"
#include "sim/main/signFolder.h"
#include "sim/main/signParts.h"
#include "sim/platform/terminal.h"
#include "sim/server/loop.h"
#include "sim/stage/facePainter.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vxsim {
namespace {

constexpr std::chrono::milliseconds kFrame{40};
constexpr std::chrono::milliseconds kUnseenStep{500}; // of a list that plays without a face

void Announce(const std::filesystem::path& folder, const std::vector<std::string>& places)
{
    std::cout << "dir " << folder.string() << '\n';
    for (const std::string& place : places)
        std::cout << place << '\n';
    std::cout.flush();
}

} // namespace

void ServeOne(const Options& options, const PageMakers* pages, int end)
{
    Endpoints endpoints(options.listen);
    const SignFolder folder(options.folder);
    VirtualSign sign(SettingsOf(options, folder.Path(), endpoints));
    options.condition.Apply(folder.Path());
    Report(sign, "", options.verbose);
    Stage stage(sign, FontOf(options));
    Companions companions(options.companions, folder.Path() / "sign", endpoints.host, 0, TellerOf("", options.verbose));
    companions.ShowOn(stage);
    Loop loop;
    Server server(
        loop, endpoints, [&sign](std::uint64_t) { return &sign; }, options.Lines(), companions.Lines());
    std::vector<std::string> places = PlacesOf(endpoints, companions);
    const auto step = options.IsPainted() ? kFrame : kUnseenStep;
    std::unique_ptr<Onlooker> page;
    if (options.web.IsWanted()) {
        page = pages->one(options.web.Settings(), {sign, stage, server, companions.Devices()},
                          {VXSIM_VERSION, folder.Path().string(), places}, step);
        places.push_back("web " + page->Address());
    }
    if (!options.book.empty())
        WriteBook(options, {{NameOf(0), endpoints.port}});
    Announce(folder.Path(), places);
    std::optional<FacePainter> painter;
    if (options.IsPainted())
        painter.emplace(stage, options.face == "ansi" ? &std::cout : nullptr, TerminalColumns, options.png);
    server.OnTick(step, [&sign, &stage, &painter, &page] {
        const std::uint64_t nowMs = NowMs();
        sign.KeepUp(nowMs);
        if (painter)
            painter->Paint(nowMs);
        else if (page && page->IsWatched())
            stage.Draw(nowMs);
        else
            stage.KeepUp(nowMs);
        if (page)
            page->Publish(nowMs);
    });
    loop.Run(end);
}

} // namespace vxsim

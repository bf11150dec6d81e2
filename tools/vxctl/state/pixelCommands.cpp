#include "vxctl/state/pixelMap.h"

#include "vxctl/cli/collected.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/shown.h"
#include "vxctl/state/signTable.h"

#include <vxsign/pixel.h>

#include <algorithm>
#include <cstdio>
#include <memory>

namespace vxctl {

namespace {

struct Wanted
{
    std::string picture;
    FaceSize size;
    bool last = false;
};

std::vector<BadPixel> RunCheck(Session& session)
{
    const TemporaryFolder folder;
    const ProgressBar bar("pixel check", session.report.IsJson());
    session.Connect(ProgressBar::OnProgress);
    Check(vxReadPixelInfo(folder.Path().c_str(), 0, VX_PIXELS_FROM_CSV, CollectForUser<vxPixelRow>));
    std::vector<BadPixel> found;
    for (const vxPixelRow& row : TakeCollected<vxPixelRow>())
        found.push_back({row.X, row.Y, row.Kind == VX_SIGNAL_BAD, FieldText(row.Status), FieldText(row.Time)});
    return found;
}

std::vector<BadPixel> ReadLast(const Session& session)
{
    session.Connect();
    std::vector<BadPixel> found;
    for (const bool signal : {false, true}) {
        const SignTable table{signal ? "PixelSignalErr" : "PixelStatus", "X,Y,Status,DateTime", 4};
        for (const TextRow& row : ReadRows(table, UINT32_MAX))
            found.push_back({ParseNumber(row[0]).value_or(0), ParseNumber(row[1]).value_or(0), signal, row[2], row[3]});
    }
    return found;
}

void Pixels(Session& session, const Wanted& wanted)
{
    Report& report = session.report;
    const std::vector<BadPixel> found = wanted.last ? ReadLast(session) : RunCheck(session);
    TextTable table({{"x", true}, {"y", true}, {"kind"}, {"status"}, {"time"}});
    for (const BadPixel& pixel : found)
        table.Add({std::to_string(pixel.x), std::to_string(pixel.y), pixel.isSignal ? "signal" : "pixel", pixel.status,
                   pixel.time});
    if (found.empty())
        report.Line(Toned("no bad pixels", Tone::kFine));
    if (!found.empty() || report.IsJson())
        table.Show(report, "pixels");
#ifdef VXCTL_HAS_PREVIEW
    if (!wanted.picture.empty()) {
        const std::size_t outside = WritePixelMap(found, wanted.size, wanted.picture);
        report.Put("picture", wanted.picture);
        report.Put("outside", outside);
        if (outside != 0)
            report.Line(std::to_string(outside) + " of them are outside the picture: see --size");
    }
#endif
}

} // namespace

void AddPixelCommands(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {"State", "pixels", "Let the sign check its pixels, and tell the bad ones",
         R"(Takes as long as the sign takes; --last tells at once what the last check has found. --png draws the face with its bad
pixels lit in the colours of their bad lamps, white when the sign names none. Without --size the picture has 128x32
pixels, and more where the bad ones need it.

Examples:
  vxctl pixels --png bad.png
  vxctl pixels --last --json | jq '.pixels | length')"});
    const auto wanted = std::make_shared<Wanted>();
    command->add_flag("--last", wanted->last, "what the last check has found");
#ifdef VXCTL_HAS_PREVIEW
    CLI::Option* const picture = command->add_option("--png", wanted->picture, "a picture of the bad pixels");
    picture->type_name("FILE");
    AddFaceSize(*command, wanted->size)->needs(picture);
#endif
    command->callback([&session, wanted] { Pixels(session, *wanted); });
}

} // namespace vxctl

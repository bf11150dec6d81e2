// pixels: the sign's check of its pixels.
#include "vxctl/state/pixelMap.h"

#include "vxctl/cli/collected.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/shown.h"
#include "vxctl/cli/tables.h"
#include "vxctl/state/signTable.h"

#include <vxsign/pixel.h>

#include <algorithm>
#include <cstdio>

namespace vxctl {

namespace {

std::vector<BadPixel> RunCheck(Session& session)
{
    const TemporaryFolder folder;
    const ProgressBar bar("pixel check", session.report.IsForPrograms());
    session.leftOver = "the sign goes on with its check: pixels --last shows what it has found";
    Check(vxReadPixelInfo(folder.Path().c_str(), 0, VX_PIXELS_FROM_CSV, CollectingForUser<vxPixelRow>()));
    std::vector<BadPixel> found;
    for (const vxPixelRow& row : TakeCollected<vxPixelRow>())
        found.push_back({row.X, row.Y, row.Kind == VX_SIGNAL_BAD, FieldText(row.Status), FieldText(row.Time)});
    return found;
}

std::vector<BadPixel> ReadLast()
{
    std::vector<BadPixel> found;
    for (const bool signal : {false, true}) {
        const SignTable table{signal ? "PixelSignalErr" : "PixelStatus", "X,Y,Status,DateTime", 4};
        for (const TextRow& row : ReadRows(table, UINT32_MAX))
            found.push_back({ParseNumber(row[0]).value_or(0), ParseNumber(row[1]).value_or(0), signal, row[2], row[3]});
    }
    return found;
}

#ifdef VXCTL_HAS_PREVIEW
void DrawPixels(Report& report, const std::vector<BadPixel>& found, const Args& args)
{
    const FaceSize size = args.Has("--size") ? ParseFaceSize(args.Text("--size")) : FaceSize{};
    const std::size_t outside = WritePixelMap(found, size, args.Text("--png"));
    report.Put("picture", args.Text("--png"));
    report.Put("outside", outside);
    if (outside != 0)
        report.Line(std::to_string(outside) + " of them are outside the picture: see --size");
}
#endif

std::uint32_t ShowPixels(Session& session, const Args& args)
{
    Report& report = session.report;
    const std::vector<BadPixel> found = args.Has("--last") ? ReadLast() : RunCheck(session);
    TextTable table({{"x", kNumbers}, {"y", kNumbers}, {"kind"}, {"status"}, {"time", kTimes}});
    for (const BadPixel& pixel : found)
        table.Add({std::to_string(pixel.x), std::to_string(pixel.y), pixel.isSignal ? "signal" : "pixel", pixel.status,
                   pixel.time});
    table.ShowOr(report, "pixels", Toned("no bad pixels", Tone::kFine));
#ifdef VXCTL_HAS_PREVIEW
    if (args.Has("--png"))
        DrawPixels(report, found, args);
#endif
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "pixels",
        .help = "Let the sign check its pixels, and show the bad ones",
        .details =
            R"(Takes as long as the sign takes; --last shows at once what the last check has found. --png draws the face with its bad
pixels lit in the colours of their bad lamps, white when the sign names none. Without --size the picture has 128x32
pixels, and more where the bad ones need it.)",
        .examples = R"(vxctl pixels --png bad.png
vxctl pixels --last --json | jq '.pixels | length')",
        .arguments =
            {
                Flag("--last", "what the last check has found"),
#ifdef VXCTL_HAS_PREVIEW
                WriteFile("--png", "a picture of the bad pixels"),
                Of(kFaceSize, "--size", "pixels of the face").Needs("--png"),
#endif
            },
        .signs = Signs::kMany,
        .run = ShowPixels,
    },
};

} // namespace

const CommandTable kPixelCommands{"State", kCommands};

} // namespace vxctl

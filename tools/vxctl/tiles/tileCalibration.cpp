// tile calibrate, tile convert: how much light each lamp gives.

#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/tiles/tileAccess.h"

#include <vxsign/ondra.h>

#include <algorithm>
#include <array>
#include <sstream>

namespace vxctl {

namespace {

// How much of each colour the tile gives of its own: the diagonal.
void ShowLevels(Report& report, const TilePixels& pixels, std::uint32_t full)
{
    static constexpr std::array kNames = {"red", "green", "blue"};
    report.Put("width", pixels.width);
    report.Put("height", pixels.height);
    report.Put("full", full);
    for (std::size_t colour = 0; colour < kNames.size(); ++colour) {
        std::uint32_t least = kFullCoefficient;
        std::uint32_t most = 0;
        std::uint64_t sum = 0;
        for (std::size_t at = colour * 4; at < pixels.coefficients.size(); at += kTileCoefficients) {
            const std::uint32_t coefficient = pixels.coefficients[at];
            least = std::min(least, coefficient);
            most = std::max(most, coefficient);
            sum += coefficient;
        }
        const std::uint64_t mean = sum / pixels.Count();
        std::ostringstream text;
        text << least << " to " << most << ", mean " << mean << " (" << 100 * mean / full << " %)";
        report.Value(kNames.at(colour), kNames.at(colour), {{"least", least}, {"most", most}, {"mean", mean}},
                     text.str());
    }
}

void Show(Report& report, const TilePixels& pixels, const Args& args)
{
    const std::uint32_t full = args.Number("--full", FullCoefficientOf(pixels));
    ShowLevels(report, pixels, full);
#ifdef VXCTL_HAS_PREVIEW
    if (args.Has("--png")) {
        WriteTilePicture(pixels, full, args.Text("--png"));
        report.Put("picture", args.Text("--png"));
    }
#endif
}

FaceSize SizeOf(const Args& args, const char* option)
{
    return args.Has(option) ? ParseFaceSize(args.Text(option)) : FaceSize{};
}

TileForm FormOfWay(TileWay way)
{
    return way == TileWay::kFirst ? TileForm::kFirst : TileForm::kFlat;
}

TilePixels ReadCalibration(Session& session, const TileChoice& choice, const TileShape& shape)
{
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "former";
    ReadTileFile(session, choice, {}, local);
    return LoadTilePixels(local, FormOfWay(choice.Way()), shape);
}

// What is to be changed: the file that is given, the plain calibration, or what the tile holds.
TilePixels Basis(Session& session, const Args& args, const TileShape& shape)
{
    const TileChoice choice(args);
    if (args.Has("--pixels"))
        return LoadTilePixels(args.Text("--pixels"), TileFormOf(args.Text("--pixels"), args.Text("--from")), shape);
    const bool compact = choice.Way() == TileWay::kFirst && shape.model == 0;
    if (args.Has("--plain"))
        return PlainTile(shape.width, shape.height, compact ? kFullCompact : kFullCoefficient);
    return ReadCalibration(session, choice, shape);
}

// The shape that the tile's status tells, and what the command line knows better.
TileShape ShapeFor(const TileStatus& status, const Args& args)
{
    TileShape shape = status.shape;
    shape.kind = args.Number("--kind");
    const FaceSize module = SizeOf(args, "--module");
    if (module.width != 0) {
        shape.moduleWidth = static_cast<std::uint32_t>(module.width);
        shape.moduleHeight = static_cast<std::uint32_t>(module.height);
    }
    return shape;
}

// Refused before anything is sent.
void CheckCalibration(const Args& args)
{
    const std::string& levels = args.Text("--level");
    if (levels.empty() && !args.Has("--pixels") && !args.Has("--plain"))
        throw UsageError("takes --level, --pixels or --plain");
    if (levels.empty())
        return;
    TilePixels one = PlainTile(1, 1, kFullCoefficient);
    ScaleTile(one, levels);
}

// The pixels as the tile is to have them.
TilePixels NewPixels(Session& session, const Args& args, const TileShape& shape)
{
    TilePixels pixels = Basis(session, args, shape);
    if (pixels.width != shape.width || pixels.height != shape.height)
        throw UsageError("the tile has another size than the file");
    if (!args.Text("--level").empty())
        ScaleTile(pixels, args.Text("--level"));
    return pixels;
}

// Whether the tile holds them now. The first family does not tell whether the file has arrived, so it is read back.
bool WritePixels(Session& session, const Args& args, const TileShape& shape, const TilePixels& pixels)
{
    const TileChoice choice(args);
    const TemporaryFolder folder;
    const std::string local = folder.Path() + "pixels";
    SaveTilePixels(pixels, local, FormOfWay(choice.Way()), shape);
    session.leftOver = kPartOfFile;
    WriteTileCalibration(session, choice, local, args.Number<std::uint8_t>("--mode"), args.Bytes("--params"));
    session.leftOver.clear();
    return choice.Way() != TileWay::kFirst ||
           ReadCalibration(session, choice, shape).coefficients == pixels.coefficients;
}

std::uint32_t Calibrate(Session& session, const Args& args)
{
    CheckCalibration(args);
    TilePixels pixels;
    bool verified = true;
    {
        const ProgressBar bar("calibrate", session.report.IsForPrograms());
        const TileStatus status = ReadTileStatus(session, TileChoice(args));
        if (status.locked.value_or(false)) {
            session.report.Value("calibration", "locked", true, "locked: the tile takes none");
            return VX_TASK_FAILED;
        }
        const TileShape shape = ShapeFor(status, args);
        pixels = NewPixels(session, args, shape);
        verified = WritePixels(session, args, shape, pixels);
    }
    Show(session.report, pixels, args);
    session.report.Put("verified", verified);
    if (verified)
        return VX_OK;
    session.report.Line("the tile does not hold what was sent");
    return VX_TASK_FAILED;
}

TileShape ShapeOf(const FaceSize& size, const FaceSize& module, std::uint32_t kind, std::uint32_t model)
{
    const auto side = [](int pixels) { return static_cast<std::uint32_t>(pixels); };
    return {side(size.width), side(size.height), side(module.width), side(module.height), kind, model};
}

// What is read with a module, kind and model is written with them too, unless others are given.
void SaveConverted(const TilePixels& pixels, const Args& args, TileForm form)
{
    TileShape shape =
        ShapeOf({}, SizeOf(args, args.Has("--to-module") ? "--to-module" : "--module"),
                args.Number("--to-kind", args.Number("--kind")), args.Number("--to-model", args.Number("--model")));
    shape.width = pixels.width; // CSV and JSON tell their own
    shape.height = pixels.height;
    const LocalTarget target(args.Text("OUT"), "tile.dat");
    SaveTilePixels(pixels, target.Temporary().string(), form, shape);
    target.Keep();
}

std::uint32_t Convert(Session& session, const Args& args)
{
    const std::string& in = args.Text("IN");
    const TileForm toForm = TileFormOf(args.Text("OUT"), args.Text("--to"));
    TilePixels pixels = LoadTilePixels(
        in, TileFormOf(in, args.Text("--from")),
        ShapeOf(SizeOf(args, "--size"), SizeOf(args, "--module"), args.Number("--kind"), args.Number("--model")));
    if (!args.Text("--level").empty())
        ScaleTile(pixels, args.Text("--level"));
    if (!args.Text("OUT").empty())
        SaveConverted(pixels, args, toForm);
    Show(session.report, pixels, args);
    return VX_OK;
}

constexpr Argument kModule = Of(kFaceSize, "--module", "pixels of a module");
constexpr Argument kLevel = Text("--level", "percent of what there is").In("LEVEL[,LEVEL,LEVEL]");
constexpr Argument kFull = Number("--full", 1, 65535, "coefficient that stands for all of the light").In("N");
#ifdef VXCTL_HAS_PREVIEW
constexpr Argument kPicture = WriteFile("--png", "a picture of the tile in white light");
#endif

const Command kCommands[] = {
    {
        .name = "tile calibrate",
        .help = "Change the calibration of a tile",
        .details =
            R"(--level multiplies what the tile holds, or what --pixels or --plain give in its place: one number for all, or three for
red, green and blue. Of the first family it is read back afterwards, since the sign does not tell whether it has arrived.

Files for --pixels are those of convert. --module and --kind are for tiles of the first family whose status does not tell
them; --mode and --params go to tiles of the second.)",
        .examples = R"(vxctl tile calibrate 11 --level 50%
vxctl tile calibrate 3 --port 2 --level 100%,95%,80%
vxctl tile calibrate 3 --port 2 --pixels measured.csv --png tile.png
vxctl tile calibrate 3 --port 2 --direct --plain)",
        .arguments =
            {
                kTile,
                kPort,
                kDirect,
                kLevel,
                ReadFile("--pixels", "take the pixels of this file"),
                Text("--from", "its form: tile, bri, blocks, csv or json").In("FORM").Needs("--pixels"),
                Flag("--plain", "begin with pixels that take the light as it is").Excludes("--pixels"),
                kModule,
                Number("--kind", 0, 65535, "kind of the tile, for the order of its file").In("N"),
                Number("--mode", 0, 255, "mode of the calibration").In("N").Default("0"),
                Hex("--params", VX_CAL_PARAMS, VX_CAL_PARAMS, "88 bytes for the tile"),
                kFull,
#ifdef VXCTL_HAS_PREVIEW
                kPicture,
#endif
            },
        .run = Calibrate,
    },
    {
        .name = "tile convert",
        .help = "Turn a calibration into another form, without a sign",
        .details = R"(The forms, which the extensions tell too:
  tile    a pixel file of the first family; its order depends on --kind, --model, --size and --module
  bri     .bri of the second family: pixel rows across the tile
  blocks  .bri as tiles hold it, one module after the other (reading takes either)
  csv     a line for each pixel: x,y and its 9 coefficients
  json    width, height and a list of 9 coefficients for each pixel
A file with another extension is a tile's. What is read with --kind, --model and --module is written with them too, unless
--to-kind, --to-model and --to-module say otherwise. Without OUT the file is only looked at.

--png shows the tile in white light. All of the light is 65535, or 255 where no coefficient is larger, unless --full tells.)",
        .examples = R"(vxctl tile convert BRBLOCK.DAT tile.csv --size 16x16 --module 8x8 --model 0x10
vxctl tile convert tile.csv tile.bri --to blocks --module 8x8
vxctl tile convert old.dat new.dat --size 32x16 --module 8x8 --model 0 --to-model 0xC0
vxctl tile convert tile.json --png tile.png)",
        .arguments =
            {
                ReadFile("IN", "what is read"),
                WriteFile("OUT", "what is written").Optional(),
                Text("--from", "form of IN").In("FORM"),
                Text("--to", "form of OUT").In("FORM"),
                Of(kFaceSize, "--size", "pixels of the tile"),
                kModule,
                Number("--kind", 0, 65535, "kind of the tile").In("N"),
                Number("--model", 0, 255, "model of the tile, as its status tells it").In("N"),
                Of(kFaceSize, "--to-module", "pixels of a module of OUT"),
                Number("--to-kind", 0, 65535, "kind of OUT").In("N"),
                Number("--to-model", 0, 255, "model of OUT").In("N"),
                kLevel,
                kFull,
#ifdef VXCTL_HAS_PREVIEW
                kPicture,
#endif
            },
        .line = Line::kNone,
        .run = Convert,
    },
};

} // namespace

const CommandTable kCalibrationCommands{"Tiles", kCommands};

} // namespace vxctl

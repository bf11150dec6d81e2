#include "vxctl/tiles/tileCalibration.h"

#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/tiles/tileAccess.h"

#include <vxsign/ondra.h>

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Tiles";
constexpr std::uint32_t kLastByte = 255;
constexpr std::uint32_t kLastNumber = 65535;

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

struct Picture
{
    std::string file;
    std::uint32_t full = 0; // 0 where it was not given
};

void AddPicture(CLI::App& command, Picture& picture)
{
    AddNumber(command, "--full", picture.full, 1, kLastNumber, "coefficient that stands for all of the light");
#ifdef VXCTL_HAS_PREVIEW
    command.add_option("--png", picture.file, "a picture of the tile in white light")->type_name("FILE");
#endif
}

void Show(Report& report, const TilePixels& pixels, const Picture& picture)
{
    const std::uint32_t full = picture.full != 0 ? picture.full : FullCoefficientOf(pixels);
    ShowLevels(report, pixels, full);
#ifdef VXCTL_HAS_PREVIEW
    if (!picture.file.empty()) {
        WriteTilePicture(pixels, full, picture.file);
        report.Put("picture", picture.file);
    }
#endif
}

struct Calibration
{
    TileChoice choice;
    std::string levels;
    std::string pixels;
    std::string form;
    bool plain = false;
    FaceSize module;
    std::uint32_t kind = 0;
    std::uint32_t mode = 0;
    std::string params;
    Picture picture;
};

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
TilePixels Basis(Session& session, const Calibration& wanted, const TileShape& shape)
{
    if (!wanted.pixels.empty())
        return LoadTilePixels(wanted.pixels, TileFormOf(wanted.pixels, wanted.form), shape);
    const bool compact = wanted.choice.Way() == TileWay::kFirst && shape.model == 0;
    if (wanted.plain)
        return PlainTile(shape.width, shape.height, compact ? kFullCompact : kFullCoefficient);
    return ReadCalibration(session, wanted.choice, shape);
}

void Calibrate(Session& session, const Calibration& wanted)
{
    if (wanted.levels.empty() && wanted.pixels.empty() && !wanted.plain)
        throw UsageError("calibrate takes --level, --pixels or --plain");
    const auto params =
        HexArgument(wanted.params, "--params", wanted.params.empty() ? 0 : VX_CAL_PARAMS, VX_CAL_PARAMS);
    if (!wanted.levels.empty()) { // refused before anything is sent
        TilePixels one = PlainTile(1, 1, kFullCoefficient);
        ScaleTile(one, wanted.levels);
    }
    const TileChoice& choice = wanted.choice;
    const TileWay way = choice.Way();
    TilePixels pixels;
    bool verified = true;
    {
        const ProgressBar bar("calibrate", session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        const TileStatus status = ReadTileStatus(session, choice);
        if (status.locked.value_or(false)) {
            session.report.Value("calibration", "locked", true, "locked: the tile takes none");
            throw SignFailure(VX_TASK_FAILED);
        }
        TileShape shape = status.shape;
        shape.kind = wanted.kind;
        if (wanted.module.width != 0) {
            shape.moduleWidth = static_cast<std::uint32_t>(wanted.module.width);
            shape.moduleHeight = static_cast<std::uint32_t>(wanted.module.height);
        }
        pixels = Basis(session, wanted, shape);
        if (pixels.width != shape.width || pixels.height != shape.height)
            throw UsageError("the tile has another size than the file");
        if (!wanted.levels.empty())
            ScaleTile(pixels, wanted.levels);
        const TemporaryFolder folder;
        const std::string local = folder.Path() + "pixels";
        SaveTilePixels(pixels, local, FormOfWay(way), shape);
        WriteTileCalibration(session, choice, local, static_cast<std::uint8_t>(wanted.mode), params);
        // The first family does not tell whether the file has arrived.
        if (way == TileWay::kFirst)
            verified = ReadCalibration(session, choice, shape).coefficients == pixels.coefficients;
    }
    Show(session.report, pixels, wanted.picture);
    session.report.Put("verified", verified);
    if (!verified) {
        session.report.Line("the tile does not hold what was sent");
        throw SignFailure(VX_TASK_FAILED);
    }
}

void AddCalibrate(CLI::App& tile, Session& session)
{
    CLI::App* const command = AddCommand(
        tile,
        {kGroup, "calibrate", "Change the calibration of a tile",
         R"(--level multiplies what the tile holds, or what --pixels or --plain give in its place: one number for all, or three for
red, green and blue. Of the first family it is read back afterwards, since the sign does not tell whether it has arrived.

Files for --pixels are those of convert. --module and --kind are for tiles of the first family whose status does not tell
them; --mode and --params go to tiles of the second.

Examples:
  vxctl tile calibrate 11 --level 50%
  vxctl tile calibrate 3 --port 2 --level 100%,95%,80%
  vxctl tile calibrate 3 --port 2 --pixels measured.csv --png tile.png
  vxctl tile calibrate 3 --port 2 --direct --plain)"});
    const auto wanted = std::make_shared<Calibration>();
    AddTileChoice(*command, wanted->choice);
    command->add_option("--level", wanted->levels, "percent of what there is")->type_name("LEVEL[,LEVEL,LEVEL]");
    CLI::Option* const pixels = command->add_option("--pixels", wanted->pixels, "take the pixels of this file");
    pixels->check(ReadableFile());
    command->add_option("--from", wanted->form, "its form: tile, bri, blocks, csv or json")
        ->type_name("FORM")
        ->needs(pixels);
    command->add_flag("--plain", wanted->plain, "begin with pixels that take the light as it is")->excludes(pixels);
    AddFaceSize(*command, wanted->module, "--module", "pixels of a module");
    AddNumber(*command, "--kind", wanted->kind, 0, kLastNumber, "kind of the tile, for the order of its file");
    AddNumber(*command, "--mode", wanted->mode, 0, kLastByte, "mode of the calibration")->default_str("0");
    command->add_option("--params", wanted->params, "88 bytes for the tile")->type_name("HEX");
    AddPicture(*command, wanted->picture);
    command->callback([&session, wanted] { Calibrate(session, *wanted); });
}

struct Conversion
{
    std::string from;
    std::string to;
    std::string fromForm;
    std::string toForm;
    FaceSize size;
    FaceSize module;
    FaceSize toModule;
    std::uint32_t kind = 0;
    std::uint32_t model = 0;
    std::uint32_t toKind = 0;
    std::uint32_t toModel = 0;
    std::string levels;
    Picture picture;
};

TileShape ShapeOf(const FaceSize& size, const FaceSize& module, std::uint32_t kind, std::uint32_t model)
{
    const auto side = [](int pixels) { return static_cast<std::uint32_t>(pixels); };
    return {side(size.width), side(size.height), side(module.width), side(module.height), kind, model};
}

void Convert(Session& session, const Conversion& wanted)
{
    const TileForm fromForm = TileFormOf(wanted.from, wanted.fromForm);
    const TileForm toForm = TileFormOf(wanted.to, wanted.toForm);
    TilePixels pixels =
        LoadTilePixels(wanted.from, fromForm, ShapeOf(wanted.size, wanted.module, wanted.kind, wanted.model));
    if (!wanted.levels.empty())
        ScaleTile(pixels, wanted.levels);
    if (!wanted.to.empty()) {
        TileShape shape = ShapeOf(wanted.size, wanted.toModule, wanted.toKind, wanted.toModel);
        shape.width = pixels.width; // CSV and JSON tell their own
        shape.height = pixels.height;
        const LocalTarget target(wanted.to, "tile.dat");
        SaveTilePixels(pixels, target.Temporary().string(), toForm, shape);
        target.Keep();
    }
    Show(session.report, pixels, wanted.picture);
}

void AddConvert(CLI::App& tile, Session& session)
{
    CLI::App* const command =
        AddCommand(tile, {kGroup, "convert", "Turn a calibration into another form, without a sign",
                          R"(The forms, which the extensions tell too:
  tile    a pixel file of the first family; its order depends on --kind, --model, --size and --module
  bri     .bri of the second family: pixel rows across the tile
  blocks  .bri as tiles hold it, one module after the other (reading takes either)
  csv     a line for each pixel: x,y and its 9 coefficients
  json    width, height and a list of 9 coefficients for each pixel
A file with another extension is a tile's. What is read with --kind, --model and --module is written with them too, unless
--to-kind, --to-model and --to-module say otherwise. Without OUT the file is only looked at.

--png shows the tile in white light. All of the light is 65535, or 255 where no coefficient is larger, unless --full tells.

Examples:
  vxctl tile convert BRBLOCK.DAT tile.csv --size 16x16 --module 8x8 --model 0x10
  vxctl tile convert tile.csv tile.bri --to blocks --module 8x8
  vxctl tile convert old.dat new.dat --size 32x16 --module 8x8 --model 0 --to-model 0xC0
  vxctl tile convert tile.json --png tile.png)"});
    const auto wanted = std::make_shared<Conversion>();
    command->add_option("IN", wanted->from, "what is read")->check(ReadableFile())->required();
    command->add_option("OUT", wanted->to, "what is written");
    command->add_option("--from", wanted->fromForm, "form of IN")->type_name("FORM");
    command->add_option("--to", wanted->toForm, "form of OUT")->type_name("FORM");
    AddFaceSize(*command, wanted->size, "--size", "pixels of the tile");
    AddFaceSize(*command, wanted->module, "--module", "pixels of a module");
    AddNumber(*command, "--kind", wanted->kind, 0, kLastNumber, "kind of the tile");
    AddNumber(*command, "--model", wanted->model, 0, kLastByte, "model of the tile, as its status tells it");
    CLI::Option* const toModule = AddFaceSize(*command, wanted->toModule, "--to-module", "pixels of a module of OUT");
    CLI::Option* const toKind = AddNumber(*command, "--to-kind", wanted->toKind, 0, kLastNumber, "kind of OUT");
    CLI::Option* const toModel = AddNumber(*command, "--to-model", wanted->toModel, 0, kLastByte, "model of OUT");
    command->add_option("--level", wanted->levels, "multiply the rows, as in calibrate")
        ->type_name("LEVEL[,LEVEL,LEVEL]");
    AddPicture(*command, wanted->picture);
    command->callback([&session, wanted, toModule, toKind, toModel] {
        if (toModule->count() == 0)
            wanted->toModule = wanted->module;
        if (toKind->count() == 0)
            wanted->toKind = wanted->kind;
        if (toModel->count() == 0)
            wanted->toModel = wanted->model;
        Convert(session, *wanted);
    });
}

} // namespace

void AddTileCalibration(CLI::App& tile, Session& session)
{
    AddCalibrate(tile, session);
    AddConvert(tile, session);
}

} // namespace vxctl

// tile: status, tests, commands and files of tiles.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/tiles/tileAccess.h"

#include <filesystem>
#include <sstream>

namespace vxctl {

namespace {

std::string SizeText(std::uint32_t width, std::uint32_t height)
{
    std::ostringstream text;
    text << width << 'x' << height;
    return text.str();
}

TileStatus ReadStatus(Session& session, const TileChoice& choice)
{
    const ProgressBar bar("status", session.report.IsForPrograms());
    return ReadTileStatus(session, choice);
}

std::uint32_t ShowStatus(Session& session, const Args& args)
{
    const TileChoice choice(args);
    const TileStatus status = ReadStatus(session, choice);
    Report& report = session.report;
    const TileShape& shape = status.shape;
    report.Put("tile", choice.tile);
    report.Put("width", shape.width);
    report.Put("height", shape.height);
    report.Line("size                " + SizeText(shape.width, shape.height) + " pixels");
    if (shape.moduleWidth != 0 && shape.moduleHeight != 0) {
        report.Put("moduleWidth", shape.moduleWidth);
        report.Put("moduleHeight", shape.moduleHeight);
        report.Line("modules             " + SizeText(shape.moduleWidth, shape.moduleHeight) + " pixels");
    }
    if (status.firmware) {
        report.Value("firmware", "firmware", *status.firmware);
        report.Value("model", "model", shape.model, FormatWord(shape.model, 2));
    }
    if (status.locked)
        report.Value("calibration", "locked", *status.locked, *status.locked ? "locked" : "may be written");
    report.Put("record", FormatHex(status.record.data(), status.record.size(), ""));
    return VX_OK;
}

std::uint32_t Test(Session& session, const Args& args)
{
    const ProgressBar bar("test", session.report.IsForPrograms());
    TestTile(TileChoice(args), args.Number<std::uint8_t>("CODE"));
    return VX_OK;
}

std::uint32_t SendCommand(Session& session, const Args& args)
{
    const ProgressBar bar("command", session.report.IsForPrograms());
    CommandTile(TileChoice(args), args.Number<std::uint8_t>("COMMAND"), args.Bytes("--data"),
                args.Number("--limit") * 1000);
    return VX_OK;
}

TileFile FileOf(const Args& args)
{
    TileFile file;
    if (args.Has("--type"))
        file.type = args.Number("--type");
    file.extra = args.Number("--extra");
    return file;
}

void ShowBytes(Report& report, std::uintmax_t bytes)
{
    report.Value("size", "bytes", bytes, FormatSize(static_cast<double>(bytes)));
}

std::uint32_t Read(Session& session, const Args& args)
{
    const TileChoice choice(args);
    TileFile file = FileOf(args);
    file.staged = args.Has("--staged");
    if (file.staged && choice.Way() != TileWay::kPort)
        throw UsageError("--staged is for the second family: --port");
    const LocalTarget target(args.Text("FILE"), "tile.dat");
    {
        const ProgressBar bar("read", session.report.IsForPrograms());
        ReadTileFile(session, choice, file, target.Temporary().string());
    }
    ShowBytes(session.report, std::filesystem::file_size(target.Temporary()));
    target.Keep();
    session.report.Put("local", target.Final().string());
    return VX_OK;
}

std::uint32_t Write(Session& session, const Args& args)
{
    const std::size_t bytes = ReadWhole(args.Text("FILE")).size();
    {
        const ProgressBar bar("write", session.report.IsForPrograms());
        session.leftOver = kPartOfFile;
        WriteTileFile(session, TileChoice(args), FileOf(args), args.Text("FILE"));
    }
    ShowBytes(session.report, bytes);
    return VX_OK;
}

constexpr Argument kType = Number("--type", 0, 255, "type of the file; without it the calibration").In("N");
constexpr Argument kExtra = Number("--extra", 0, 255, "second family: for the tile").In("N").Default("0");

const Command kCommands[] = {
    {
        .name = "tile",
        .help = "Look after the tiles that a face is built of",
        .details = R"(A tile is named in one of three ways:
  TILE                    first family: its number, 1 to 254 on the first bus, 255 to 494 on the second
  TILE --port P           second family: its address on a port
  TILE --port P --direct  the same tile, without tasks of the control board)",
        .examples = R"(vxctl tile status 11
vxctl tile calibrate 3 --port 2 --level 50%
vxctl tile convert tile.bri tile.csv --size 16x16 --module 8x8 --png tile.png)",
    },
    {
        .name = "tile status",
        .help = "Show what a tile says of itself",
        .details =
            "In the first family the size of the modules is read in the usual layout. The JSON has the whole record.",
        .examples = R"(vxctl tile status 11
vxctl tile status 3 --port 2
vxctl tile status 3 --port 2 --direct --json)",
        .arguments = {kTile, kPort, kDirect},
        .run = ShowStatus,
    },
    {
        .name = "tile test",
        .help = "Show a test on a tile, or on all",
        .details = "What a code shows is the tile's own.",
        .examples = R"(vxctl tile test 11 0
vxctl tile test all 12
vxctl tile test 3 8 --port 2)",
        .arguments = {kTile, Number("CODE", 0, 255, "the test"), kPort, kDirect},
        .signs = Signs::kMany,
        .run = Test,
    },
    {
        .name = "tile cmd",
        .help = "Send a command to a tile",
        .details =
            R"(What a command does is the tile's own. --data needs --port, --limit holds there too, but not with --direct.)",
        .examples = R"(vxctl tile cmd 11 2
vxctl tile cmd 3 17 --port 2 --data "01 02" --limit 10)",
        .arguments = {kTile, Number("COMMAND", 0, 255, "the command"), kPort, kDirect,
                      Hex("--data", 0, 1024, "its bytes"),
                      Number("--limit", 1, 86400, "seconds to wait").In("SECONDS").Default("300")},
        .run = SendCommand,
    },
    {
        .name = "tile read",
        .help = "Read a file of a tile",
        .details =
            R"(The first family gives the calibration alone (type 4). In the second type 0 is .cpu, 1 .pga, 2 .gam, 3 .cfg, 4 .drv,
5 .bri (the calibration), 6 .mod, 7 .sta, 8 .pix, 9 .ifo, 10 .all; types above 10 and --extra use the newer command.
With --direct a calibration comes in pixel rows, else in the form in which the tile holds it.)",
        .examples = R"(vxctl tile read 11 tile11.dat
vxctl tile read 3 tile.bri --port 2
vxctl tile read 3 status.sta --port 2 --type 7 --direct)",
        .arguments = {kTile, WriteFile("FILE", "where it goes on this PC"), kPort, kDirect, kType, kExtra,
                      Flag("--staged", "second family: take what lies on the sign's disk")},
        .run = Read,
    },
    {
        .name = "tile write",
        .help = "Write a file to a tile",
        .details =
            R"(The first family has type 0 R.DAT, 1 DRV.DAT, 2 FPGA.DAT, 3 CPU.BIN, 4 BRBLOCK.DAT (the calibration), and says no more
than how the installation ended and which step was refused. Types of the second: see read; TILE all is all tiles of the port. With --direct a
calibration goes as pixel rows.)",
        .examples = R"(vxctl tile write 11 tile11.dat
vxctl tile write all firmware.cpu --port 2 --type 0)",
        .arguments = {kTile, ReadFile("FILE", "what is to go"), kPort, kDirect, kType, kExtra},
        .run = Write,
    },
};

} // namespace

const CommandTable kTileCommands{"Tiles", kCommands};

} // namespace vxctl

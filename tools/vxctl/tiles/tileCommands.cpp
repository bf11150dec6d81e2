#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/tiles/tileAccess.h"
#include "vxctl/tiles/tileCalibration.h"

#include <array>
#include <filesystem>
#include <limits>
#include <memory>
#include <sstream>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Tiles";
constexpr std::uint32_t kLastByte = 255;
constexpr std::uint32_t kUsualLimit = 300; // seconds
constexpr std::size_t kMostData = 1024;

std::string SizeText(std::uint32_t width, std::uint32_t height)
{
    std::ostringstream text;
    text << width << 'x' << height;
    return text.str();
}

void ShowStatus(Session& session, const TileChoice& choice)
{
    TileStatus status;
    {
        const ProgressBar bar("status", session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        status = ReadTileStatus(session, choice);
    }
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
}

void AddStatus(CLI::App& tile, Session& session)
{
    CLI::App* const command = AddCommand(
        tile, {kGroup, "status", "Tell what a tile says of itself",
               R"(In the first family the size of the modules is read as vxsim has it. The JSON has the whole record.

Examples:
  vxctl tile status 11
  vxctl tile status 3 --port 2
  vxctl tile status 3 --port 2 --direct --json)"});
    const auto choice = std::make_shared<TileChoice>();
    AddTileChoice(*command, *choice);
    command->callback([&session, choice] { ShowStatus(session, *choice); });
}

void AddTest(CLI::App& tile, Session& session)
{
    CLI::App* const command =
        AddCommand(tile, {kGroup, "test", "Show a test on a tile, or on all",
                          R"(What a code shows is the tile's own; docs/vxsim-devices.md has those of vxsim.

Examples:
  vxctl tile test 11 0
  vxctl tile test all 12
  vxctl tile test 3 8 --port 2)"});
    const auto choice = std::make_shared<TileChoice>();
    const auto code = std::make_shared<std::uint32_t>(0);
    AddTileChoice(*command, *choice);
    AddNumber(*command, "CODE", *code, 0, kLastByte, "the test")->required();
    command->callback([&session, choice, code] {
        const ProgressBar bar("test", session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        TestTile(*choice, static_cast<std::uint8_t>(*code));
    });
}

void AddCmd(CLI::App& tile, Session& session)
{
    CLI::App* const command = AddCommand(
        tile,
        {kGroup, "cmd", "Send a command to a tile",
         R"(What a command does is the tile's own; docs/vxsim-devices.md has those of vxsim. --data needs --port, --limit holds there too, but
not with --direct.

Examples:
  vxctl tile cmd 11 2
  vxctl tile cmd 3 17 --port 2 --data "01 02" --limit 10)"});
    const auto choice = std::make_shared<TileChoice>();
    const auto number = std::make_shared<std::uint32_t>(0);
    const auto limit = std::make_shared<std::uint32_t>(kUsualLimit);
    const auto data = std::make_shared<std::string>();
    AddTileChoice(*command, *choice);
    AddNumber(*command, "COMMAND", *number, 0, kLastByte, "the command")->required();
    command->add_option("--data", *data, "its bytes")->type_name("HEX");
    AddNumber(*command, "--limit", *limit, 1, 86400, "seconds to wait")->default_str("300");
    command->callback([&session, choice, number, limit, data] {
        const auto bytes = HexArgument(*data, "--data", 0, kMostData);
        const ProgressBar bar("command", session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        CommandTile(*choice, static_cast<std::uint8_t>(*number), bytes, *limit * 1000);
    });
}

struct Transfer
{
    TileChoice choice;
    TileFile file;
    std::string local;
};

CLI::App* AddTransfer(CLI::App& tile, const CommandText& text, Transfer& transfer)
{
    CLI::App* const command = AddCommand(tile, text);
    AddTileChoice(*command, transfer.choice);
    const auto storeType = [&transfer](const std::string& type) {
        const auto number = ParseNumber(type);
        if (!number || *number > kLastByte)
            throw CLI::ValidationError("'" + type + "' is no number from 0 to 255");
        transfer.file.type = *number;
    };
    command->add_option_function<std::string>("--type", storeType, "type of the file; without it the calibration")
        ->type_name("NUMBER (0 to 255)");
    AddNumber(*command, "--extra", transfer.file.extra, 0, kLastByte, "second family: for the tile")->default_str("0");
    return command;
}

void ShowBytes(Report& report, std::uintmax_t bytes)
{
    report.Value("size", "bytes", bytes, FormatSize(static_cast<double>(bytes)));
}

void AddRead(CLI::App& tile, Session& session)
{
    const auto transfer = std::make_shared<Transfer>();
    CLI::App* const command = AddTransfer(
        tile,
        {kGroup, "read", "Read a file of a tile",
         R"(The first family gives the calibration alone (type 4). In the second type 0 is .cpu, 1 .pga, 2 .gam, 3 .cfg, 4 .drv,
5 .bri (the calibration), 6 .mod, 7 .sta, 8 .pix, 9 .ifo, 10 .all; types above 10 and --extra use the newer command.
With --direct a calibration comes in pixel rows, else in the form in which the tile holds it.

Examples:
  vxctl tile read 11 tile11.dat
  vxctl tile read 3 tile.bri --port 2
  vxctl tile read 3 status.sta --port 2 --type 7 --direct)"},
        *transfer);
    command->add_option("FILE", transfer->local, "where it goes on this PC")->required();
    command->add_flag("--staged", transfer->file.staged, "second family: take what lies on the sign's disk");
    command->callback([&session, transfer] {
        if (transfer->file.staged && transfer->choice.Way() != TileWay::kPort)
            throw UsageError("--staged is for the second family: --port");
        const LocalTarget target(transfer->local, "tile.dat");
        {
            const ProgressBar bar("read", session.report.IsJson());
            session.Connect(ProgressBar::OnProgress);
            ReadTileFile(session, transfer->choice, transfer->file, target.Temporary().string());
        }
        ShowBytes(session.report, std::filesystem::file_size(target.Temporary()));
        target.Keep();
    });
}

void AddWrite(CLI::App& tile, Session& session)
{
    const auto transfer = std::make_shared<Transfer>();
    CLI::App* const command = AddTransfer(
        tile,
        {kGroup, "write", "Write a file to a tile",
         R"(The first family has type 0 R.DAT, 1 DRV.DAT, 2 FPGA.DAT, 3 CPU.BIN, 4 BRBLOCK.DAT (the calibration), and tells no more
than how the installation ended. Types of the second: see read; TILE all is all tiles of the port. With --direct a
calibration goes as pixel rows.

Examples:
  vxctl tile write 11 tile11.dat
  vxctl tile write all firmware.cpu --port 2 --type 0)"},
        *transfer);
    command->add_option("FILE", transfer->local, "what is to go")->check(ReadableFile())->required();
    command->callback([&session, transfer] {
        const std::size_t bytes = ReadWhole(transfer->local).size();
        {
            const ProgressBar bar("write", session.report.IsJson());
            session.Connect(ProgressBar::OnProgress);
            WriteTileFile(session, transfer->choice, transfer->file, transfer->local);
        }
        ShowBytes(session.report, bytes);
    });
}

} // namespace

void AddTileCommands(CLI::App& app, Session& session)
{
    CLI::App* const tile = AddCommand(app, {kGroup, "tile", "Look after the tiles that a face is built of",
                                            R"(A tile is named in one of three ways:
  TILE                    first family: its number, 1 to 254 on the first bus, 255 to 494 on the second
  TILE --port P           second family: its address on a port
  TILE --port P --direct  the same tile, without tasks of the control board

Examples:
  vxctl tile status 11
  vxctl tile calibrate 3 --port 2 --level 50%
  vxctl tile convert tile.bri tile.csv --size 16x16 --module 8x8 --png tile.png)"});
    tile->require_subcommand(1);
    AddStatus(*tile, session);
    AddTest(*tile, session);
    AddCmd(*tile, session);
    AddRead(*tile, session);
    AddWrite(*tile, session);
    AddTileCalibration(*tile, session);
}

} // namespace vxctl

// A tile of the wall, whichever way it is reached.
#pragma once

#include "vxctl/cli/command.h"
#include "vxctl/tiles/tilePixels.h"

#include <vxsign/ondra.h>

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vxctl {

// A number, or "all". Throws UsageError for anything else.
std::uint32_t ParseTile(const std::string& text);

enum class TileWay
{
    kFirst, // by its number, through tasks of the control board
    kPort,  // by port and address, likewise
    kDirect // by port and address, without tasks
};

inline constexpr ArgumentType kTileNumber{
    "NUMBER", [](const Argument&, const std::string& text) { return std::to_string(ParseTile(text)); }};

// How every command names its tile.
inline constexpr Argument kTile = Of(kTileNumber, "TILE", "the tile's number, or its address on the port; or all");
inline constexpr Argument kPort =
    Number("--port", 0, VX_NO_PORT - 1, "second family: the port that the tile hangs on").In("P");
inline constexpr Argument kDirect =
    Flag("--direct", "with --port: talk to the tile itself, without tasks").Needs("--port");

// Which tile the command line names, and how it is reached.
struct TileChoice
{
    explicit TileChoice(const Args& args);

    TileWay Way() const { return direct ? TileWay::kDirect : hasPort ? TileWay::kPort : TileWay::kFirst; }

    std::uint16_t tile;
    std::uint8_t port;
    bool hasPort;
    bool direct;
};

struct TileStatus
{
    TileShape shape;
    std::optional<std::uint32_t> firmware; // of the first family
    std::optional<bool> locked;            // of the second
    std::vector<std::uint8_t> record;      // as it came
};

// A file of a tile. fileType is that of the family; without one it is the calibration.
struct TileFile
{
    std::optional<std::uint32_t> type;
    std::uint32_t extra = 0;
    bool staged = false; // of the second family: already on the sign's disk

    std::uint8_t TypeFor(TileWay way) const;
    std::uint8_t Extra() const { return static_cast<std::uint8_t>(extra); }
};

// What a writing leaves that is stopped.
inline constexpr const char* kPartOfFile = "the tile may have a part of the file: write it once more";

// The tile of a connected sign. All throw SignFailure, and UsageError for what its way does not know.
TileStatus ReadTileStatus(Session& session, const TileChoice& choice);
void TestTile(const TileChoice& choice, std::uint8_t testCode);
void CommandTile(const TileChoice& choice, std::uint8_t command, const std::vector<std::uint8_t>& data,
                 std::uint32_t timeoutMs);
void ReadTileFile(Session& session, const TileChoice& choice, const TileFile& file, const std::string& local);
void WriteTileFile(Session& session, const TileChoice& choice, const TileFile& file, const std::string& local);

// Writes a calibration, in the form that SaveTilePixels gives with TileForm::kFirst or kFlat. params: 88 bytes of the
// second family, or none.
void WriteTileCalibration(Session& session, const TileChoice& choice, const std::string& local, std::uint8_t mode,
                          const std::vector<std::uint8_t>& params);

} // namespace vxctl

// The virtual sign: puts its commands together and answers requests.
#pragma once

#include "sim/boards/boardUpdates.h"
#include "sim/boards/extraBoards.h"
#include "sim/boards/videoProcessors.h"
#include "sim/command/commandFamily.h"
#include "sim/command/signEvents.h"
#include "sim/controlCommands.h"
#include "sim/files/drives.h"
#include "sim/files/fileCommands.h"
#include "sim/files/transferCommands.h"
#include "sim/loginCommands.h"
#include "sim/logs/database.h"
#include "sim/logs/signLog.h"
#include "sim/monitor/monitor.h"
#include "sim/monitor/pixelCheck.h"
#include "sim/play/playCommands.h"
#include "sim/play/testCommands.h"
#include "sim/play/tickerCommands.h"
#include "sim/recordCommands.h"
#include "sim/reportCommands.h"
#include "sim/restartCommands.h"
#include "sim/state/faceLight.h"
#include "sim/state/timeCommands.h"
#include "sim/tiles/busTiles.h"
#include "sim/tiles/controlBoard.h"
#include "sim/tiles/directTiles.h"
#include "sim/tiles/portTiles.h"
#include "sim/tiles/tileWall.h"
#include "sim/traffic/trafficCommands.h"
#include "sim/zones/playerCore.h"
#include "sim/zones/zoneCommands.h"

#include <cstdint>
#include <filesystem>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {

struct SignSettings
{
    std::filesystem::path folder; // holds the drives, one folder each, and "sign" with what the sign keeps
    int width = 128;              // of the face, in pixels
    int height = 32;
    std::string drives = "CDEF";
    std::uint32_t address = 0x7F000001;  // for a new CONFIG.SYS: IPv4, first octet in the top byte
    std::uint16_t port = 9520;           // likewise
    Users users = {};                    // without any, nobody needs to log in
    std::uint64_t loginHoldMs = 600000;  // from the last command to the end of a login
    std::int64_t localSecondsAtZero = 0; // local time, in seconds since 1970, when Arrival::nowMs was 0
    bool controller = false;             // whether it is a traffic signal controller
    OpenDatabases* databases = nullptr;  // of a sign among many, which opens its own when it is needed
};

// A sign without its line: answers the bytes of one request with the bytes of the reply. Needs no clock and no socket,
// keeps its files below SignSettings::folder, and is meant for one thread. Times are the caller's.
class VirtualSign
{
public:
    // Makes the folders, CONFIG.SYS and the kept records that are missing. Throws what Drives throws, and
    // std::runtime_error if a file cannot be made.
    explicit VirtualSign(const SignSettings& settings);

    // The reply to exactly one request. Empty, which is silence, if the request is malformed or a password that comes
    // too soon after wrong ones.
    std::vector<std::uint8_t> Answer(std::span<const std::uint8_t> request, const Arrival& arrival = {});
    std::vector<std::uint8_t> Answer(const Frame& request, const Arrival& arrival = {});

    // What the sign does of itself: looks after its condition, measures, ends a pixel check. Called now and then.
    void KeepUp(std::uint64_t nowMs);

    // A file of the list, or one that was asked for, has played from `beginMs` until now.
    void NotePlay(const std::string& signPath, std::uint64_t beginMs, std::uint64_t nowMs);

    // Adds an observer, which is told as long as the sign lives.
    void Observe(SignEvents observer) { observers.Add(std::move(observer)); }

    const SignSettings& Settings() const { return settings; }
    const SignCounters& Counters() const { return reports.Counters(); }

    // Of all families, in the order of their numbers.
    std::vector<CommandRow> Commands() const;

    // Power, blanking and brightness of the face.
    const FaceLight& Light() const { return light; }

    const ControlCommands& Control() const { return control; }
    const TestCommands& Tests() const { return tests; }
    const TimeCommands& Time() const { return time; }
    const PlayCommands& Play() const { return play; }
    const TickerCommands& Ticker() const { return ticker; }
    const VideoProcessors& Video() const { return video; }
    const ZoneCommands& Zones() const { return zones; }
    const PlayerCore& Programs() const { return programs; }
    const Monitor& Faults() const { return monitor; }
    const RecordCommands& Records() const { return records; }

    // Null unless the sign is a traffic signal controller.
    const TrafficCommands* Traffic() const { return settings.controller ? &traffic : nullptr; }

    // What is to be seen on the face, each over the next: "off", "test", ... and "list" always.
    std::vector<std::string_view> Layers(std::uint64_t nowMs);

    // Who is logged in.
    std::optional<LoginHolder> Holder(std::uint64_t nowMs) const { return login.Holder(nowMs); }

    // The buttons of the box, for whoever stands at it.
    void Switch(bool isOn) { light.Switch(isOn); }
    void SetLevel(std::uint8_t eighths) { light.SetLevel(eighths); } // as FaceLight::SetLevel
    void Restart(std::uint64_t nowMs) { restarts.Begin(nowMs, false); }
    void SetClockAhead(std::int64_t seconds) { time.SetAhead(seconds); } // of the clock it began with

    // Somebody has put the file onto a drive or taken it away.
    void NoteFile(const std::filesystem::path& file) { transfers.Tell(file); }

    // Writes the rows of the logs that wait, for whoever reads the file.
    void WriteLogs() { database.Open(); }

    // The tiles as they are at that time.
    const TileWall& Tiles(std::uint64_t nowMs);

    // How wide the texts of the ticker are on this face.
    void MeasureTickerWith(TickerCommands::Measure measure) { ticker.MeasureWith(std::move(measure)); }

    // What plays on the face. Stays attached as long as the sign lives.
    void Attach(Playback& playback) { play.Attach(playback); }
    void Attach(ProgramDisplay& display) { programs.Attach(display); } // of the player core

    std::filesystem::path SequenceFile() const { return drives.SequenceFile(); }

    // The file behind a sign path; see Drives::Resolve.
    std::optional<std::filesystem::path> Resolve(std::string_view signPath) const { return drives.Resolve(signPath); }

private:
    Reply Execute(const Command& command, const Frame& request, const Arrival& arrival);
    void PrepareSystemFiles() const;

    // Size, colours and light of the face, and its layers.
    std::string FaceText(std::uint64_t nowMs);

    SignSettings settings;
    SignObservers observers;
    Drives drives;
    std::filesystem::path kept; // folder of what the sign keeps beside its drives
    SignDatabase database;
    SignLog log;
    TimeCommands time;
    FaceLight light;
    Monitor monitor;
    TileWall wall;
    ControlBoard board;

    ReportCommands reports;
    RecordCommands records;
    RestartCommands restarts;
    ControlCommands control;
    TransferCommands transfers;
    FileCommands files;
    BoardUpdates updates;
    TestCommands tests;
    PlayCommands play;
    TickerCommands ticker;
    TrafficCommands traffic;
    LoginCommands login;
    BusTiles buses;
    PortTiles ports;
    DirectTiles direct;
    PixelCheck pixelCheck;
    VideoProcessors video;
    ZoneCommands zones;
    ExtraBoards extraBoards;
    PlayerCore programs;
    std::vector<CommandFamily*> families; // all of them; traffic before login, which has one code in common with it
};

} // namespace vxsim

#pragma once

#include "sim/boards/extraBoards.h"
#include "sim/boards/videoProcessors.h"
#include "sim/command/arrival.h"
#include "sim/controlCommands.h"
#include "sim/files/drives.h"
#include "sim/files/fileCommands.h"
#include "sim/files/fileLayouts.h"
#include "sim/files/fileReceiver.h"
#include "sim/files/fileSender.h"
#include "sim/files/limits.h"
#include "sim/files/storedRecord.h"
#include "sim/loginCommands.h"
#include "sim/logs/database.h"
#include "sim/logs/refusalLog.h"
#include "sim/logs/signLog.h"
#include "sim/monitor/monitor.h"
#include "sim/monitor/pixelCheck.h"
#include "sim/play/playCommands.h"
#include "sim/play/testCommands.h"
#include "sim/play/tickerCommands.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"
#include "sim/state/timeCommands.h"
#include "sim/tiles/tileCommands.h"
#include "sim/traffic/trafficCommands.h"
#include "sim/zones/playerCore.h"
#include "sim/zones/zoneCommands.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
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
};

// Told after the fact, from inside Answer. Each may be empty; none may call Answer.
struct SignEvents
{
    std::function<void()> sequenceWritten = {};                                  // C:\SEQUENT.SYS was replaced or went
    std::function<void(const std::filesystem::path&)> fileWritten = {};          // any file, SEQUENT.SYS included
    std::function<void(std::span<const std::uint8_t, 52>)> displayStyleSet = {}; // a host set the default display style
    std::function<void(bool)> blackScreenChanged = {};                           // true: the face is dark
    std::function<void(std::uint64_t)> restarting = {};    // dark up to this time in ms, then it plays anew
    std::function<void(const Frame&, Code)> answered = {}; // every request, and kOk or what it was refused with
    std::function<void(const Frame&)> heldBack = {};       // a password that was not looked at
    std::function<void(const std::string&)> failed = {};   // what the sign could not do for itself, and why
};

struct SignCounters
{
    std::uint32_t answered = 0;  // requests, refused ones included
    std::uint32_t refused = 0;   // answered with a code that is no answer
    std::uint32_t malformed = 0; // left without an answer
    std::uint32_t filesWritten = 0;
};

struct FileChecksum
{
    std::uint32_t size = 0;
    std::uint16_t crc = 0;
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
    void Observe(SignEvents observer) { observers.push_back(std::move(observer)); }

    const SignSettings& Settings() const { return settings; }
    const SignCounters& Counters() const { return counters; }
    bool IsBlack() const { return black; }

    // Whether the face is dark at that time, whatever plays: blanked, without power or restarting.
    bool IsDark(std::uint64_t nowMs) const;

    // Eighths of full light, 1 to 8.
    std::uint8_t Light(std::uint64_t nowMs) const;

    const ControlCommands& Control() const { return control; }
    const TestCommands& Tests() const { return tests; }
    const TimeCommands& Time() const { return time; }
    const PlayCommands& Play() const { return play; }
    const TickerCommands& Ticker() const { return ticker; }
    const VideoProcessors& Video() const { return video; }
    const ZoneCommands& Zones() const { return zones; }
    const PlayerCore& Programs() const { return programs; }
    const Monitor& Faults() const { return monitor; }
    const std::optional<TrafficCommands>& Traffic() const { return traffic; } // of a controller

    // The tiles as they are at that time.
    const TileWall& Tiles(std::uint64_t nowMs);

    // How wide the texts of the ticker are on this face.
    void MeasureTickerWith(TickerCommands::Measure measure) { ticker.MeasureWith(std::move(measure)); }

    // What plays on the face. Stays attached as long as the sign lives.
    void Attach(Playback& playback) { play.Attach(playback); }
    void Attach(ProgramDisplay& display) { programs.Attach(display); } // of the player core
    std::span<const std::uint8_t, kDisplayStyleSize> DisplayStyle() const;
    std::filesystem::path SequenceFile() const;

    // The file behind a sign path; see Drives::Resolve.
    std::optional<std::filesystem::path> Resolve(std::string_view signPath) const { return drives.Resolve(signPath); }

    // What hosts left with the sign since it started: tube data (payload and extended part joined) by minor, the last
    // urgent message, checksums by file name.
    const std::map<std::uint8_t, std::vector<std::uint8_t>>& TubeData() const { return tubeData; }
    std::span<const std::uint8_t> UrgentMessage() const { return urgentMessage; }
    const std::map<std::string, FileChecksum>& Checksums() const { return checksums; }

private:
    Reply Execute(const Frame& request, const Arrival& arrival);
    Reply Control(const Frame& request, std::uint64_t nowMs);
    Reply PollUpdate();
    void Restart(std::uint64_t nowMs);
    Reply Read(const Frame& request, std::uint64_t nowMs);
    Reply ReadState(std::uint64_t nowMs) const;
    Reply QueryDatabase(const Frame& request);
    Reply ReadFile(const Frame& request, const FileLayout& layout);
    Reply ReadUpdateState(const Frame& request) const;
    Reply Statistics(const Frame& request) const;
    Reply Write(const Frame& request);
    Reply WriteFile(const Frame& request, const FileLayout& layout);
    Reply WriteBoard(const Frame& request);
    Reply WriteUrgentMessage(const Frame& request);
    Reply WriteChecksum(const Frame& request);
    Reply WriteUpdateState(const Frame& request);
    Reply SetDisplayStyle(const Frame& request);
    Reply SetBlack(bool on);
    Reply Files(const Frame& request);

    char DriveOf(const Frame& request, const FileLayout& layout) const;
    std::optional<std::filesystem::path> Locate(const Frame& request, const FileLayout& layout) const;
    std::filesystem::path FlashFile() const { return kept / "data-flash.bin"; }
    std::string SystemText() const;
    SignMoment MomentAt(std::uint64_t nowMs) const;
    void PrepareSystemFiles() const;
    void SequenceChanged();
    void FileFinished(const std::filesystem::path& file);

    SignSettings settings;
    Drives drives;
    std::filesystem::path kept; // folder of what the sign keeps beside its drives
    FileReceiver receiver;
    FileSender sender;
    StoredRecord displayStyle;
    StoredRecord brightness;
    StoredRecord identity;
    ControlCommands control;
    TestCommands tests;
    TimeCommands time;
    PlayCommands play;
    TickerCommands ticker;
    ZoneCommands zones;
    PlayerCore programs;
    LoginCommands login;
    std::optional<TrafficCommands> traffic;
    FileCommands files;
    SignDatabase database;
    SignLog log;
    Monitor monitor;
    PixelCheck pixelCheck;
    VideoProcessors video;
    ExtraBoards extraBoards;
    TileCommands tiles;
    bool black = false;
    std::uint64_t darkUntilMs = 0; // of a restart
    unsigned updatePolls = 0;      // that are still refused
    std::map<std::uint8_t, std::vector<std::uint8_t>> tubeData;
    std::vector<std::uint8_t> urgentMessage;
    std::map<std::string, FileChecksum> checksums;
    std::map<std::uint16_t, std::uint8_t> updateStates;
    RefusalLog refusals;
    SignCounters counters;
    std::vector<SignEvents> observers;
};

} // namespace vxsim

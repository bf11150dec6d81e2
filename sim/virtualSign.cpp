#include "sim/virtualSign.h"

#include "sim/files/configFile.h"
#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <exception>
#include <system_error>

namespace vxsim {
namespace fs = std::filesystem;
namespace {

enum : std::uint8_t
{
    kRead = 1,
    kWrite = 2,
    kTest = 3,
    kControl = 4,
    kTime = 5,
    kPlay = 6,
    kFiles = 7,
    kTicker = 8,
    kOfflineTicker = 9,
    kLogin = 10,
    kTube = 14,
    kPixels = 16,
    kFh = 17,
    kVpu = 52,
    kMpu = 53,
    kZones = 54,
    kExtraBoards = 96,
    kPlayerCore = 122
};
enum : std::uint8_t
{
    kReset = 0,
    kBlackScreen = 1,
    kEndBlackScreen = 2,
    kPollUpdate = 13,
    kColdReset = 20,
    kResetToDataFlash = 25
};

constexpr std::uint64_t kRestartMs = 2000;
// How often a host hears that the update is under way.
constexpr unsigned kUpdatePolls = 3;
constexpr std::uint8_t kFullLight = 8;

constexpr const char* kSequencePath = "C:\\SEQUENT.SYS";

// Content from drive C, plain appearance and disappearance, three seconds of stay.
std::vector<std::uint8_t> InitialDisplayStyle()
{
    std::vector<std::uint8_t> style(kDisplayStyleSize);
    style[2] = 'C';
    style[11] = '0';
    style[12] = '0';
    style[14] = 3;
    Store32(style, 16, 3);
    return style;
}

// The serial number with its length in front, the hardware address from byte 16 on.
std::vector<std::uint8_t> InitialIdentity()
{
    return {11, 'V', 'X', 'S', 'I', 'M', '0', '0', '0', '0', '0', '1', 0, 0, 0, 0, // the number ends at byte 11
            2,  0,   0,   0,   0,   1,   0,   0,   0,   0,   0,   0,   0, 0, 0, 0};
}

// Some answers travel as codes.
bool IsRefusal(Code code)
{
    return code != Code::kProcessOk && code != Code::kBuffer3Ready && code != Code::kBuffer1Ready &&
           code != Code::kBuffer2Ready;
}

fs::path MakeKeptFolder(const fs::path& folder)
{
    fs::path kept = folder / "sign";
    fs::create_directories(kept);
    // What a sign that was switched off in a transfer left behind.
    for (const auto& entry : fs::directory_iterator(kept)) {
        if (entry.path().extension() == ".tmp")
            fs::remove(entry.path());
    }
    return kept;
}

} // namespace

VirtualSign::VirtualSign(const SignSettings& wanted)
    : settings(wanted), drives(settings.folder, settings.drives), kept(MakeKeptFolder(settings.folder)), receiver(kept),
      displayStyle(kept / "display-style.bin", InitialDisplayStyle()),
      brightness(kept / "brightness.bin", std::vector<std::uint8_t>(kBrightnessSize, 8)),
      identity(kept / "identity.bin", InitialIdentity()), tests(settings.width, settings.height),
      time(settings.localSecondsAtZero, settings.controller), play(drives, kept / "radar.log"), ticker(settings.width),
      zones(drives, kept, settings.width, settings.height), programs(drives, kept, settings.width, settings.height),
      login(settings.users, settings.loginHoldMs, settings.address, settings.port),
      files(drives, [this] { PrepareSystemFiles(); }), database(kept / "logs.sqlite"), log(database),
      monitor(settings.folder, drives, database, settings.width, settings.height),
      pixelCheck(drives, database, settings.width, settings.height),
      video(kept / "video.bin", settings.width, settings.height), extraBoards(kept),
      tiles(drives, kept, settings.width, settings.height)
{
    if (settings.controller)
        traffic.emplace(drives, time.Clock());
    database.Observe([this](const std::string& what) {
        for (const SignEvents& observer : observers) {
            if (observer.failed)
                observer.failed(what);
        }
    });
    PrepareSystemFiles();
}

std::vector<std::uint8_t> VirtualSign::Answer(std::span<const std::uint8_t> request, const Arrival& arrival)
{
    if (const auto frame = ParseFrame(request))
        return Answer(*frame, arrival);
    ++counters.malformed;
    return {};
}

std::vector<std::uint8_t> VirtualSign::Answer(const Frame& request, const Arrival& arrival)
{
    if (login.IsHeldBack(request, arrival)) {
        for (const SignEvents& observer : observers) {
            if (observer.heldBack)
                observer.heldBack(request);
        }
        return {};
    }
    Reply reply;
    std::string author = login.UserAt(arrival);
    try {
        reply = Execute(request, arrival);
    } catch (const std::exception&) { // no memory, or a file system that fails where it should not
        reply = Reply::WithCode(Code::kOpenFailed);
    }
    ++counters.answered;
    auto code = Code::kOk;
    if (reply.status != 0 && IsRefusal(static_cast<Code>(Load16(reply.payload, 0)))) {
        code = static_cast<Code>(Load16(reply.payload, 0));
        ++counters.refused;
        refusals.Add(request.major, request.minor, code);
    }
    if (author.empty()) // a login has just made one
        author = login.UserAt(arrival);
    if (author.empty())
        author = arrival.host == 0 ? "serial line" : AddressText(arrival.host);
    log.Command(request, code, author, time.Clock().At(arrival.nowMs));
    for (const SignEvents& observer : observers) {
        if (observer.answered)
            observer.answered(request, code);
    }
    return BuildReply(request, reply);
}

Reply VirtualSign::Execute(const Frame& request, const Arrival& arrival)
{
    if (!login.IsOpen(request, arrival))
        return Reply::WithCode(Code::kLoginFirst);
    if (request.tile)
        return tiles.Execute(request, monitor.TilesAt(MomentAt(arrival.nowMs)));
    switch (request.major) {
    case kRead:
        return Read(request, arrival.nowMs);
    case kWrite:
        return Write(request);
    case kTest:
        return tests.Execute(request, arrival.nowMs);
    case kControl:
        return Control(request, arrival.nowMs);
    case kTime:
        return time.Execute(request, arrival.nowMs);
    case kPlay:
        return play.Execute(request, arrival.nowMs);
    case kFiles:
        return Files(request);
    case kTicker:
        return ticker.Execute(request, arrival.nowMs);
    case kOfflineTicker:
        return ticker.ExecuteOffline(request, arrival.nowMs);
    case kLogin: // and the orders of a traffic signal controller
        return traffic && TrafficCommands::Takes(request) ? traffic->Execute(request, arrival.nowMs)
                                                          : login.Execute(request, arrival);
    case TileCommands::kBuses:
        if (request.minor == kPollUpdate)
            return PollUpdate();
        [[fallthrough]];
    case TileCommands::kPorts:
    case TileCommands::kCalibrationOptions:
        return tiles.Execute(request, monitor.TilesAt(MomentAt(arrival.nowMs)));
    case kPixels:
        return pixelCheck.Execute(request, monitor.Now(), time.Clock(), arrival.nowMs);
    case kFh:
        return control.ExecuteFh(request);
    case kVpu:
        return video.ExecuteVpu(request);
    case kMpu:
        return video.ExecuteMpu(request, arrival.nowMs);
    case kExtraBoards:
        return extraBoards.Execute(request, monitor.State(MomentAt(arrival.nowMs)));
    case kZones:
        return zones.Execute(request, arrival.nowMs);
    case kPlayerCore:
        return programs.Execute(request, arrival.nowMs);
    case kTube: {
        auto& data = tubeData[request.minor];
        data.assign(request.payload.begin(), request.payload.end());
        data.insert(data.end(), request.extended.begin(), request.extended.end());
        return Reply::Done();
    }
    default:
        return Reply::WithCode(Code::kUnknownMajor);
    }
}

std::span<const std::uint8_t, kDisplayStyleSize> VirtualSign::DisplayStyle() const
{
    return displayStyle.Bytes().first<kDisplayStyleSize>();
}

fs::path VirtualSign::SequenceFile() const
{
    return drives.Resolve(kSequencePath).value_or(settings.folder / "C" / "SEQUENT.SYS");
}

bool VirtualSign::IsDark(std::uint64_t nowMs) const
{
    return black || !control.IsOn() || nowMs < darkUntilMs;
}

// The automatic light follows the brightness block, which has a level for each two hours of the sign's day.
std::uint8_t VirtualSign::Light(std::uint64_t nowMs) const
{
    const std::uint8_t level =
        control.Brightness() != 0 ? control.Brightness() : brightness.Bytes()[time.Clock().At(nowMs).hour / 2];
    return std::clamp(level, std::uint8_t{1}, kFullLight);
}

Reply VirtualSign::Control(const Frame& request, std::uint64_t nowMs)
{
    switch (request.minor) {
    case kReset:
        Restart(nowMs);
        return Reply::Done();
    case kColdReset:
        control.ForgetAll();
        login.LogOut();
        SetBlack(false);
        Restart(nowMs);
        return Reply::Done();
    case kResetToDataFlash:
        updatePolls = kUpdatePolls;
        Restart(nowMs);
        return Reply::Done();
    case kBlackScreen:
    case kEndBlackScreen:
        return SetBlack(request.minor == kBlackScreen);
    default:
        return control.Execute(request);
    }
}

// The sign goes on answering while its face is dark: hosts ask for the update while it runs.
void VirtualSign::Restart(std::uint64_t nowMs)
{
    darkUntilMs = nowMs + kRestartMs;
    tests.Stop();
    ticker.Stop();
    programs.StopAll();
    pixelCheck.Stop();
    tiles.Stop();
    play.ReturnToMainList();
    if (traffic)
        traffic->Restart(nowMs);
    for (const SignEvents& observer : observers) {
        if (observer.restarting)
            observer.restarting(darkUntilMs);
    }
}

// Whether the sign's program is there again. Without an update it has never been away.
Reply VirtualSign::PollUpdate()
{
    if (updatePolls == 0)
        return Reply::Done();
    --updatePolls;
    return Reply::WithCode(Code::kUpdating);
}

Reply VirtualSign::SetBlack(bool on)
{
    const bool changed = black != on;
    black = on;
    for (const SignEvents& observer : observers) {
        if (changed && observer.blackScreenChanged)
            observer.blackScreenChanged(on);
    }
    return Reply::Done();
}

void VirtualSign::PrepareSystemFiles() const
{
    if (const auto config = drives.FileIn('C', "", "CONFIG.SYS"))
        PrepareConfigFile(*config, {drives.Has('F'), settings.address, settings.port});
}

// Whatever the command does to the list that plays, the face follows.
Reply VirtualSign::Files(const Frame& request)
{
    std::error_code error;
    const bool hadSequence = fs::exists(SequenceFile(), error);
    Reply reply = files.Execute(request);
    sender.Forget();
    if (hadSequence != fs::exists(SequenceFile(), error))
        SequenceChanged();
    return reply;
}

void VirtualSign::SequenceChanged()
{
    play.ReturnToMainList();
    for (const SignEvents& observer : observers) {
        if (observer.sequenceWritten)
            observer.sequenceWritten();
    }
}

// Drive of the file that a record names: system and font files live on C.
char VirtualSign::DriveOf(const Frame& request, const FileLayout& layout) const
{
    if (layout.path != kNoField)
        return static_cast<char>(request.payload[layout.path]);
    return layout.drive == kNoField ? 'C' : static_cast<char>(request.payload[layout.drive]);
}

std::optional<fs::path> VirtualSign::Locate(const Frame& request, const FileLayout& layout) const
{
    if (layout.path != kNoField)
        return drives.Resolve(TextAt(request.payload, layout.path));
    if (layout.name != kNoField)
        return drives.FileIn(DriveOf(request, layout), layout.folder,
                             TextAt(request.payload.first(layout.name + kNameSize), layout.name));
    // A record without a name: the data flash has the wide packet number, the play log the short one.
    if (layout.numberSize == kLongNumber)
        return FlashFile();
    return drives.FileIn('C', "", "PLAY.LOG");
}

} // namespace vxsim

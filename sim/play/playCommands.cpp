#include "sim/play/playCommands.h"

#include "sim/files/signText.h"
#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <optional>
#include <system_error>
#include <utility>

namespace vxsim {
namespace {

constexpr std::size_t kPrioritySize = 16;
constexpr std::size_t kSoundFileName = 8;
constexpr std::size_t kMostNameBytes = 255;
constexpr std::size_t kRadarRecord = 16;
constexpr std::size_t kMostRadarRecords = 64;
constexpr std::string_view kPlayFolders = "TPSA";
constexpr const char* kScreenshotPath = "E:\\screenshot.jpeg";

bool IsLetter(std::uint8_t byte)
{
    return (byte >= 'A' && byte <= 'Z') || (byte >= 'a' && byte <= 'z');
}

} // namespace

PlayCommands::PlayCommands(const Drives& signDrives, std::filesystem::path log)
    : drives(signDrives), radarLog(std::move(log))
{
}

std::span<const CommandRow> PlayCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {6, 1, "replay list", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kReplayList>,
         "plays the list from its start"},
        {6, 2, "replay file", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kReplayFile>,
         "plays the file from its start"},
        {6, 3, "pause", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kPause>, "stops the time of what plays"},
        {6, 4, "continue", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kContinue>,
         "lets it run again, as 2, 5, 6 and 9 do too"},
        {6, 5, "next", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kNext>,
         "the next file of the list that can be shown"},
        {6, 6, "priority play", 4, 0, kLogged, Run<&PlayCommands::PlayPriority>,
         "plays a file at once and in full, then goes on with the list. Byte 0 is the drive, byte 1 the folder; where "
         "one is no letter, all drives, the folders T, P, S and A are searched"},
        {6, 7, "current file", 0, 0, kUnlogged, Run<&PlayCommands::TellFile, false>,
         "path of the file that plays, with a terminator"},
        {6, 8, "next file", 0, 0, kUnlogged, Run<&PlayCommands::TellFile, true>, "likewise of the next one"},
        {6, 9, "previous", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kPrevious>,
         "the previous file of the list that can be shown"},
        {6, 10, "forward", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kForward>, "five seconds ahead"},
        {6, 11, "back", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kBack>, "five seconds back"},
        {6, 12, "next page", 0, 0, kUnlogged, Run<&PlayCommands::Steer, PlayStep::kNextPage>, "to the next page"},
        {6, 15, "sound", 3, 0, kUnlogged, Run<&PlayCommands::SetSound>, "keeps the sound settings"},
        {6, 17, "begin timing", 0, 0, kUnlogged, Run<&PlayCommands::SetTiming, TimingRun::kRunning>,
         "keeps the state of the timing run"},
        {6, 18, "stop timing", 0, 0, kUnlogged, Run<&PlayCommands::SetTiming, TimingRun::kStopped>, "likewise"},
        {6, 19, "pause timing", 0, 0, kUnlogged, Run<&PlayCommands::HoldTiming, true>, "likewise, if it runs"},
        {6, 20, "continue timing", 0, 0, kUnlogged, Run<&PlayCommands::HoldTiming, false>, "likewise, if it runs"},
        {6, 22, "clear radar log", 0, 0, kLogged, Run<&PlayCommands::ClearRadarLog>, "deletes the radar log"},
        {6, 23, "read radar log", 4, 0, kUnlogged, Run<&PlayCommands::ReadRadarLog>,
         "16-byte records of the radar log, byte 0 how many (64 at most), byte 2 from which on (16 bits each)"},
        {6, 24, "play list by number", 1, 0, kLogged, Run<&PlayCommands::PlayListByIndex>,
         "plays `C:\\PLAYLIST\\SEQUENT<n>.SYS`, 255 being `C:\\SEQUENT.SYS`. A new `SEQUENT.SYS` plays at once and "
         "makes it 255; a new file of the list that plays begins at once too"},
        {6, 25, "screenshot", 0, 0, kUnlogged, Run<&PlayCommands::TakeScreenshot>,
         "writes `E:\\screenshot.jpeg`, a pixel for each lamp"},
        {6, 26, "play sound file", kSoundFileName + 1, 0, kUnlogged, Run<&PlayCommands::PlaySoundFile>,
         "keeps the name of the sound file, from byte 8 on"},
        {6, 27, "set volume", 1, 0, kUnlogged, Run<&PlayCommands::SetVolume>, "keeps the volume, 50 at first"},
        {6, 28, "get volume", 0, 0, kUnlogged, Run<&PlayCommands::TellVolume>, "the volume"},
        {6, 29, "get list number", 0, 0, kUnlogged, Run<&PlayCommands::TellList>, "the number of the list that plays"},
    };
    return kRows;
}

Reply PlayCommands::Steer(const Call& call, PlayStep step) const
{
    if (playback == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    playback->Steer(step, call.nowMs);
    return Reply::Done();
}

// Where a file may lie: on the drive and in the folder that are named, else in all that hold what plays.
std::vector<std::string> PlayCommands::CandidatePaths(std::uint8_t drive, std::uint8_t folder,
                                                      std::string_view name) const
{
    const std::string oneDrive(1, static_cast<char>(drive));
    const std::string oneFolder(1, static_cast<char>(folder));
    std::vector<std::string> paths;
    for (const char letter : IsLetter(drive) ? oneDrive : drives.Letters()) {
        for (const char place : IsLetter(folder) ? std::string_view(oneFolder) : kPlayFolders)
            paths.push_back(std::string{letter, ':', '\\', place, '\\'}.append(name));
    }
    return paths;
}

Reply PlayCommands::PlayPriority(const Call& call) const
{
    if (playback == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    const auto payload = call.payload.first(std::min(call.payload.size(), kPrioritySize));
    for (const std::string& path : CandidatePaths(payload[0], payload[1], TextAt(payload, 2))) {
        const auto file = drives.Resolve(path);
        std::error_code error;
        if (file && std::filesystem::is_regular_file(*file, error))
            return Reply::WithCode(playback->PlayOnce(path, call.nowMs) ? Code::kOk : Code::kOpenFailed);
    }
    return Reply::WithCode(Code::kFileMissing);
}

Reply PlayCommands::PlayListByIndex(const Call& call)
{
    if (playback == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    const std::uint8_t index = call.payload[0];
    const auto file = drives.Resolve(index == kMainList ? std::string(kSequencePath)
                                                        : "C:\\PLAYLIST\\SEQUENT" + std::to_string(index) + ".SYS");
    std::error_code error;
    if (!file || !std::filesystem::is_regular_file(*file, error))
        return Reply::WithCode(Code::kFileMissing);
    listIndex = index;
    playback->PlayList(*file, call.nowMs);
    return Reply::Done();
}

Reply PlayCommands::TellList(const Call&) const
{
    return Reply::WithPayload({&listIndex, 1});
}

Reply PlayCommands::TellFile(const Call& call, bool next) const
{
    std::string path;
    if (playback != nullptr)
        path = next ? playback->NextFile(call.nowMs) : playback->CurrentFile(call.nowMs);
    if (path.empty())
        return Reply::WithCode(Code::kNothingPlays);
    path.resize(std::min(path.size(), kMostNameBytes));
    Reply reply{0, {path.begin(), path.end()}, {}};
    reply.payload.push_back(0);
    return reply;
}

// The picture is there when the answer goes out, so hosts need not wait for it.
Reply PlayCommands::TakeScreenshot(const Call& call) const
{
    const auto file = drives.Resolve(kScreenshotPath);
    if (playback == nullptr || !file)
        return Reply::WithCode(Code::kNotSupported);
    const auto picture = playback->Screenshot(call.nowMs);
    return Reply::WithCode(!picture.empty() && ReplaceFile(*file, picture) ? Code::kOk : Code::kWriteFailed);
}

Reply PlayCommands::SetSound(const Call& call)
{
    std::copy_n(call.payload.begin(), sound.size(), sound.begin());
    return Reply::Done();
}

Reply PlayCommands::PlaySoundFile(const Call& call)
{
    soundFile = TextAt(call.payload, kSoundFileName);
    Reply reply = Reply::Done();
    reply.remark = soundFile;
    return reply;
}

Reply PlayCommands::SetVolume(const Call& call)
{
    volume = call.payload[0];
    return Reply::Done();
}

Reply PlayCommands::TellVolume(const Call&) const
{
    return Reply::WithPayload({&volume, 1});
}

Reply PlayCommands::SetTiming(const Call&, TimingRun wanted)
{
    timing = wanted;
    return Reply::Done();
}

Reply PlayCommands::HoldTiming(const Call&, bool paused)
{
    if (timing != TimingRun::kStopped)
        timing = paused ? TimingRun::kPaused : TimingRun::kRunning;
    return Reply::Done();
}

Reply PlayCommands::ClearRadarLog(const Call&) const
{
    std::error_code error;
    std::filesystem::remove(radarLog, error);
    return Reply::WithCode(error ? Code::kDeleteFailed : Code::kOk);
}

Reply PlayCommands::ReadRadarLog(const Call& call) const
{
    const std::size_t wanted = std::min<std::size_t>(Load16(call.payload, 0), kMostRadarRecords) * kRadarRecord;
    const std::size_t from = Load16(call.payload, 2) * kRadarRecord;
    std::vector<std::uint8_t> records(wanted);
    std::ifstream log(radarLog, std::ios::binary);
    log.seekg(static_cast<std::streamoff>(from));
    log.read(reinterpret_cast<char*>(records.data()), static_cast<std::streamsize>(wanted));
    records.resize(static_cast<std::size_t>(log.gcount()) / kRadarRecord * kRadarRecord);
    return Reply::WithExtended(records);
}

} // namespace vxsim

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

enum : std::uint8_t
{
    kPriority = 6,
    kCurrentFile = 7,
    kNextFile = 8,
    kSound = 15,
    kBeginTiming = 17,
    kStopTiming = 18,
    kPauseTiming = 19,
    kContinueTiming = 20,
    kClearRadarLog = 22,
    kReadRadarLog = 23,
    kPlayList = 24,
    kScreenshot = 25,
    kSoundFile = 26,
    kSetVolume = 27,
    kGetVolume = 28,
    kGetList = 29
};

constexpr std::pair<std::uint8_t, PlayStep> kSteps[] = {
    {1, PlayStep::kReplayList}, {2, PlayStep::kReplayFile}, {3, PlayStep::kPause},
    {4, PlayStep::kContinue},   {5, PlayStep::kNext},       {9, PlayStep::kPrevious},
    {10, PlayStep::kForward},   {11, PlayStep::kBack},      {12, PlayStep::kNextPage},
};

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

Reply PlayCommands::Execute(const Frame& request, std::uint64_t nowMs)
{
    if (const auto* step = std::ranges::find(kSteps, request.minor, &std::pair<std::uint8_t, PlayStep>::first);
        step != std::end(kSteps))
        return Steer(step->second, nowMs);
    const auto payload = request.payload;
    switch (request.minor) {
    case kPriority:
        return PlayPriority(request, nowMs);
    case kCurrentFile:
    case kNextFile:
        return TellFile(request.minor == kNextFile, nowMs);
    case kSound:
        if (payload.size() < sound.size())
            return Reply::WithCode(Code::kBadLength);
        std::copy_n(payload.begin(), sound.size(), sound.begin());
        return Reply::Done();
    case kBeginTiming:
        timing = TimingRun::kRunning;
        return Reply::Done();
    case kStopTiming:
        timing = TimingRun::kStopped;
        return Reply::Done();
    case kPauseTiming:
    case kContinueTiming:
        if (timing != TimingRun::kStopped)
            timing = request.minor == kPauseTiming ? TimingRun::kPaused : TimingRun::kRunning;
        return Reply::Done();
    case kClearRadarLog: {
        std::error_code error;
        std::filesystem::remove(radarLog, error);
        return Reply::WithCode(error ? Code::kDeleteFailed : Code::kOk);
    }
    case kReadRadarLog:
        return ReadRadarLog(request);
    case kPlayList:
        return PlayListByIndex(request, nowMs);
    case kScreenshot:
        return TakeScreenshot(nowMs);
    case kSoundFile:
        if (payload.size() <= kSoundFileName)
            return Reply::WithCode(Code::kBadLength);
        soundFile = TextAt(payload, kSoundFileName);
        return Reply::Done();
    case kSetVolume:
        if (payload.empty())
            return Reply::WithCode(Code::kBadLength);
        volume = payload[0];
        return Reply::Done();
    case kGetVolume:
        return Reply::WithPayload({&volume, 1});
    case kGetList:
        return Reply::WithPayload({&listIndex, 1});
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

Reply PlayCommands::Steer(PlayStep step, std::uint64_t nowMs) const
{
    if (playback == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    playback->Steer(step, nowMs);
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

Reply PlayCommands::PlayPriority(const Frame& request, std::uint64_t nowMs) const
{
    if (request.payload.size() < 4)
        return Reply::WithCode(Code::kBadLength);
    if (playback == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    const auto payload = request.payload.first(std::min(request.payload.size(), kPrioritySize));
    for (const std::string& path : CandidatePaths(payload[0], payload[1], TextAt(payload, 2))) {
        const auto file = drives.Resolve(path);
        std::error_code error;
        if (file && std::filesystem::is_regular_file(*file, error))
            return Reply::WithCode(playback->PlayOnce(path, nowMs) ? Code::kOk : Code::kOpenFailed);
    }
    return Reply::WithCode(Code::kFileMissing);
}

Reply PlayCommands::PlayListByIndex(const Frame& request, std::uint64_t nowMs)
{
    if (request.payload.empty())
        return Reply::WithCode(Code::kBadLength);
    if (playback == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    const std::uint8_t index = request.payload[0];
    const auto file = drives.Resolve(index == kMainList ? std::string("C:\\SEQUENT.SYS")
                                                        : "C:\\PLAYLIST\\SEQUENT" + std::to_string(index) + ".SYS");
    std::error_code error;
    if (!file || !std::filesystem::is_regular_file(*file, error))
        return Reply::WithCode(Code::kFileMissing);
    listIndex = index;
    playback->PlayList(*file, nowMs);
    return Reply::Done();
}

Reply PlayCommands::TellFile(bool next, std::uint64_t nowMs) const
{
    std::string path;
    if (playback != nullptr)
        path = next ? playback->NextFile(nowMs) : playback->CurrentFile(nowMs);
    if (path.empty())
        return Reply::WithCode(Code::kNothingPlays);
    path.resize(std::min(path.size(), kMostNameBytes));
    Reply reply{0, {path.begin(), path.end()}, {}};
    reply.payload.push_back(0);
    return reply;
}

// The picture is there when the answer goes out, so hosts need not wait for it.
Reply PlayCommands::TakeScreenshot(std::uint64_t nowMs) const
{
    const auto file = drives.Resolve(kScreenshotPath);
    if (playback == nullptr || !file)
        return Reply::WithCode(Code::kNotSupported);
    const auto picture = playback->Screenshot(nowMs);
    return Reply::WithCode(!picture.empty() && ReplaceFile(*file, picture) ? Code::kOk : Code::kWriteFailed);
}

Reply PlayCommands::ReadRadarLog(const Frame& request) const
{
    if (request.payload.size() < 4)
        return Reply::WithCode(Code::kBadLength);
    const std::size_t wanted = std::min<std::size_t>(Load16(request.payload, 0), kMostRadarRecords) * kRadarRecord;
    const std::size_t from = Load16(request.payload, 2) * kRadarRecord;
    std::vector<std::uint8_t> records(wanted);
    std::ifstream log(radarLog, std::ios::binary);
    log.seekg(static_cast<std::streamoff>(from));
    log.read(reinterpret_cast<char*>(records.data()), static_cast<std::streamsize>(wanted));
    records.resize(static_cast<std::size_t>(log.gcount()) / kRadarRecord * kRadarRecord);
    return Reply::WithExtended(records);
}

} // namespace vxsim

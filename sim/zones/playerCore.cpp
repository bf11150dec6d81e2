#include "sim/zones/playerCore.h"

#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/zones/projectRecord.h"

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kTellProperty = 1,
    kPlay = 2,
    kStop = 5,
    kSetWindows = 6,
    kKeepProject = 7,
    kTellProgress = 8,
    kTellPlaying = 9,
    kSwitchProgram = 10,
    kSwitchMode = 11,
    kPlayEmergency = 12,
    kStopEmergency = 13,
    kKeepProjectWithExtra = 16
};

constexpr std::uint8_t kLastFollow = 2;
constexpr std::uint8_t kLastWindowMode = 2;
constexpr std::size_t kLastField = 6; // of minor 2: a flag, or the length of the fourth text

constexpr std::string_view kWindowNames = "1234";
static_assert(kWindowNames.size() == kProgramWindows);

// The shortest payload of each minor; nothing for an unknown one.
std::optional<std::size_t> PayloadSize(std::uint8_t minor)
{
    switch (minor) {
    case kPlay:
    case kStop:
    case kSetWindows:
    case kKeepProject:
    case kSwitchProgram:
    case kPlayEmergency:
        return 8;
    case kSwitchMode:
        return 4;
    case kKeepProjectWithExtra:
        return 28;
    case kTellProperty:
    case kTellProgress:
    case kTellPlaying:
    case kStopEmergency:
        return 0;
    default:
        return std::nullopt;
    }
}

// The texts of these lengths, one behind the other. Nothing if they are not the whole block.
std::optional<std::vector<std::string>> TextsIn(std::span<const std::uint8_t> block,
                                                std::initializer_list<std::size_t> lengths)
{
    std::vector<std::string> texts;
    for (const std::size_t length : lengths) {
        if (length > block.size())
            return std::nullopt;
        texts.emplace_back(block.begin(), block.begin() + static_cast<std::ptrdiff_t>(length));
        block = block.subspan(length);
    }
    return block.empty() ? std::optional(std::move(texts)) : std::nullopt;
}

// The windows of a new sign: the halves beside each other, and those above each other.
std::vector<std::uint8_t> FirstWindows(int faceWidth, int faceHeight)
{
    const auto size = [](int pixels) { return static_cast<std::uint16_t>(std::max(pixels, 1)); };
    const FaceArea beside{0, 0, size(faceWidth / 2), size(faceHeight)};
    const FaceArea above{0, 0, size(faceWidth), size(faceHeight / 2)};
    std::vector<std::uint8_t> record(1 + kProgramWindows * kFaceAreaSize);
    StoreArea(record, 1, beside);
    StoreArea(record, 1 + kFaceAreaSize,
              {static_cast<std::uint16_t>(faceWidth - beside.width), 0, beside.width, beside.height});
    StoreArea(record, 1 + 2 * kFaceAreaSize, above);
    StoreArea(record, 1 + 3 * kFaceAreaSize,
              {0, static_cast<std::uint16_t>(faceHeight - above.height), above.width, above.height});
    return record;
}

} // namespace

PlayerCore::PlayerCore(const Drives& drives, const std::filesystem::path& folder, int width, int height)
    : store(drives), faceWidth(width), faceHeight(height), windows(folder / "windows.bin", FirstWindows(width, height)),
      projects(folder / "projects.bin", std::vector<std::uint8_t>(kMostProjects * kProjectRecordSize))
{
}

Reply PlayerCore::Execute(const Frame& request, std::uint64_t nowMs)
{
    const auto size = PayloadSize(request.minor);
    if (!size)
        return Reply::WithCode(Code::kUnknownMinor);
    if (request.payload.size() < *size)
        return Reply::WithCode(Code::kBadLength);
    if (display == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    Settle(nowMs);
    switch (request.minor) {
    case kTellProperty:
        return TellProperty(request);
    case kPlay:
        return Play(request, nowMs);
    case kStop:
        return Stop(request);
    case kSetWindows:
        return SetWindows(request, nowMs);
    case kKeepProject:
    case kKeepProjectWithExtra:
        return KeepProject(request);
    case kTellProgress:
        return TellProgress();
    case kTellPlaying:
        return TellPlaying(nowMs);
    case kSwitchProgram:
        return SwitchProgram(request, nowMs);
    case kSwitchMode:
        return SwitchMode(request, nowMs);
    case kPlayEmergency:
        return PlayEmergency(request, nowMs);
    default:
        End(ProgramPlace::kEmergency);
        return Reply::Done();
    }
}

void PlayerCore::StopAll()
{
    for (std::size_t i = 0; i < running.size(); ++i)
        End(static_cast<ProgramPlace>(i));
}

void PlayerCore::End(ProgramPlace place)
{
    if (std::exchange(At(place), std::nullopt))
        display->End(place);
}

// Programs that play once have ended on their own.
void PlayerCore::Settle(std::uint64_t nowMs)
{
    for (std::size_t i = 0; i < running.size(); ++i) {
        if (running[i] && !display->CurrentFile(static_cast<ProgramPlace>(i), nowMs))
            running[i].reset();
    }
}

// Two forms: project, program and first file with what follows; or these three with a window, where the last field is
// the length of its name. The length of all texts tells them apart. A window without a name is the face.
Reply PlayerCore::Play(const Frame& request, std::uint64_t nowMs)
{
    const auto length = [&request](std::size_t at) -> std::size_t { return Load16(request.payload, at); };
    const std::size_t last = length(kLastField);
    if (const auto names = TextsIn(request.extended, {length(0), length(2), length(4)})) {
        if (last > kLastFollow)
            return Reply::WithCode(Code::kNotSupported);
        return Begin(ProgramPlace::kFace, *names, static_cast<Follow>(last), nowMs);
    }
    const auto names = TextsIn(request.extended, {length(0), length(2), length(4), last});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    const std::string& window = names->back();
    const std::size_t index = window.size() == 1 ? kWindowNames.find(window) : std::string_view::npos;
    if (index == std::string_view::npos)
        return Reply::WithCode(Code::kNotSupported);
    return Begin(WindowPlace(index), *names, Follow::kItself, nowMs);
}

Reply PlayerCore::PlayEmergency(const Frame& request, std::uint64_t nowMs)
{
    const auto length = [&request](std::size_t at) -> std::size_t { return Load16(request.payload, at); };
    const auto names = TextsIn(request.extended, {length(0), length(2), length(4)});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    return Begin(ProgramPlace::kEmergency, *names, Follow::kItself, nowMs);
}

// An empty project is the current one, an empty program the one that its project starts with, or the first of it.
Reply PlayerCore::Begin(ProgramPlace place, std::span<const std::string> names, Follow follow, std::uint64_t nowMs)
{
    Running wanted{names[0], names[1], names[2], follow};
    if (wanted.project.empty())
        wanted.project = CurrentProject();
    if (wanted.program.empty())
        wanted.program = StartProgram(RecordOf(wanted.project));
    if (wanted.program.empty()) {
        const auto programs = store.Programs(wanted.project);
        wanted.program = programs.empty() ? std::string() : programs.front();
    }
    return Reply::WithCode(Start(place, std::move(wanted), nowMs) ? Code::kOk : Code::kFileMissing);
}

// False if there is no such program, or if it has no such file or none at all; what plays there then goes on.
bool PlayerCore::Start(ProgramPlace place, Running wanted, std::uint64_t nowMs)
{
    auto program = store.Find(wanted.project, wanted.program);
    if (!program || program->files.empty())
        return false;
    std::vector<ProgramFile> files = std::move(program->files);
    if (!wanted.firstFile.empty()) {
        const auto first = std::ranges::find_if(
            files, [&wanted](const ProgramFile& file) { return SameName(file.path, wanted.firstFile); });
        if (first == files.end())
            return false;
        std::rotate(files.begin(), first, files.end());
    }
    wanted.project = program->project;
    wanted.program = program->name;
    if (wanted.follow == Follow::kNextProgram) {
        auto names = store.Programs(wanted.project);
        std::rotate(names.begin(), std::ranges::find(names, wanted.program), names.end());
        for (const std::string& name : std::span(names).subspan(std::min<std::size_t>(1, names.size()))) {
            if (const auto next = store.Find(wanted.project, name))
                files.insert(files.end(), next->files.begin(), next->files.end());
        }
    }
    display->Begin(place, AreaOf(place), files, wanted.follow == Follow::kNothing, nowMs);
    At(place) = std::move(wanted);
    return true;
}

FaceArea PlayerCore::AreaOf(ProgramPlace place) const
{
    const auto index = static_cast<std::size_t>(place);
    constexpr auto kFirst = static_cast<std::size_t>(ProgramPlace::kFirstWindow);
    const FaceArea whole{0, 0, static_cast<std::uint16_t>(faceWidth), static_cast<std::uint16_t>(faceHeight)};
    if (index < kFirst)
        return whole;
    // A window may have been kept from a larger face.
    const FaceArea window = LoadArea(windows.Bytes(), 1 + (index - kFirst) * kFaceAreaSize);
    return window.FitsOn(faceWidth, faceHeight) ? window : whole;
}

// The program of that name wherever it plays, or without a name all of them; an emergency has a command of its own.
Reply PlayerCore::Stop(const Frame& request)
{
    const auto names = TextsIn(request.extended, {request.payload[0]});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    const std::string& name = names->front();
    bool any = name.empty();
    for (std::size_t i = 0; i < running.size(); ++i) {
        const auto place = static_cast<ProgramPlace>(i);
        if (place == ProgramPlace::kEmergency || !running[i] || (!name.empty() && !SameName(running[i]->program, name)))
            continue;
        End(place);
        any = true;
    }
    return Reply::WithCode(any ? Code::kOk : Code::kNothingPlays);
}

WindowMode PlayerCore::Windows() const
{
    return static_cast<WindowMode>(std::min(windows.Bytes()[0], kLastWindowMode));
}

// The mode, and new areas of the first windows, as many as there are.
Reply PlayerCore::SetWindows(const Frame& request, std::uint64_t nowMs)
{
    const std::uint8_t mode = request.payload[0];
    const auto areas = request.extended;
    if (mode > kLastWindowMode)
        return Reply::WithCode(Code::kNotSupported);
    if (areas.size() % kFaceAreaSize != 0 || areas.size() > kProgramWindows * kFaceAreaSize)
        return Reply::WithCode(Code::kBadLength);
    for (std::size_t at = 0; at < areas.size(); at += kFaceAreaSize) {
        if (!LoadArea(areas, at).FitsOn(faceWidth, faceHeight))
            return Reply::WithCode(Code::kBadPacketSize);
    }
    std::vector<std::uint8_t> record(windows.Bytes().begin(), windows.Bytes().end());
    record[0] = mode;
    std::ranges::copy(areas, record.begin() + 1);
    if (!windows.Set(record))
        return Reply::WithCode(Code::kWriteFailed);
    for (std::size_t i = 0; i < areas.size() / kFaceAreaSize; ++i) {
        const ProgramPlace place = WindowPlace(i);
        if (At(place) && !Start(place, Running(*At(place)), nowMs)) // its program is gone
            End(place);
    }
    return Reply::Done();
}

Reply PlayerCore::SwitchProgram(const Frame& request, std::uint64_t nowMs)
{
    const std::uint8_t mode = request.payload[0];
    const auto names = TextsIn(request.extended, {Load16(request.payload, 1)});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    if (mode > kLastFollow)
        return Reply::WithCode(Code::kNotSupported);
    if (CurrentProject().empty())
        return Reply::WithCode(Code::kNothingPlays);
    return Begin(ProgramPlace::kFace, std::array<std::string, 3>{"", names->front(), ""}, static_cast<Follow>(mode),
                 nowMs);
}

// Begins the program on the face anew.
Reply PlayerCore::SwitchMode(const Frame& request, std::uint64_t nowMs)
{
    if (request.payload[0] > kLastFollow)
        return Reply::WithCode(Code::kNotSupported);
    if (!At(ProgramPlace::kFace))
        return Reply::WithCode(Code::kNothingPlays);
    Running wanted = *At(ProgramPlace::kFace);
    wanted.follow = static_cast<Follow>(request.payload[0]);
    return Reply::WithCode(Start(ProgramPlace::kFace, std::move(wanted), nowMs) ? Code::kOk : Code::kFileMissing);
}

} // namespace vxsim

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

constexpr std::uint8_t kLastFollow = 2;
constexpr std::uint8_t kLastWindowMode = 2;
constexpr std::size_t kLastField = 6; // of minor 2: a flag, or the length of the fourth text

constexpr std::string_view kWindowNames = "1234";
static_assert(kWindowNames.size() == kProgramWindows);

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

std::span<const CommandRow> PlayerCore::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {122, 1, "read program property", 0, 0, kUnlogged, Run<&PlayerCore::TellProperty>,
         "properties of the player (empty name), of `PROJECT` or `PROJECT\\PROGRAM`"},
        {122, 2, "play program", 8, 0, kLogged, Run<&PlayerCore::Play>,
         "with three texts: plays over the whole face. Byte 6 is what follows: 0 the same again, 1 the next program of "
         "the project by name, 2 the list. With four texts: plays, again and again, in the window that the fourth text "
         "names, `1` to `4`; without it as with three texts and 0"},
        {122, 5, "stop program", 8, 0, kLogged, Run<&PlayerCore::Stop>,
         "stops the program of that name, in windows too; without a name all but an emergency"},
        {122, 6, "set windows", 8, 0, kUnlogged, Run<&PlayerCore::SetWindows>,
         "byte 0: windows are shown over the rest (0), alone on an unlit face (1), not at all (2). Data: left, top, "
         "width, height (16 bits each) of window 1, 2 and so on"},
        {122, 7, "project information", 8, 0, kUnlogged, Run<&PlayerCore::KeepProject>,
         "tells of a project: number of its programs, a version"},
        {122, 8, "project progress", 0, 0, kUnlogged, Run<&PlayerCore::TellProgress>,
         "of the project told of last: percent of its programs that are there with all files; 0 none was told, 1 some "
         "are missing, 2 complete"},
        {122, 9, "read playing programs", 0, 0, kUnlogged, Run<&PlayerCore::TellPlaying>,
         "a word: 1 a program on the face, 2 an emergency; what follows; windows that play; their mode. Then a line "
         "for each that plays: `face`, `emergency` or window, project, program, file, with tabs between"},
        {122, 10, "switch program", 8, 0, kUnlogged, Run<&PlayerCore::SwitchProgram>,
         "plays another program of the project on the face; byte 0 is what follows"},
        {122, 11, "switch program mode", 4, 0, kUnlogged, Run<&PlayerCore::SwitchMode>,
         "what follows, for the program on the face, which begins anew"},
        {122, 12, "play emergency program", 8, 0, kLogged, Run<&PlayerCore::PlayEmergency>,
         "plays over everything else, tests and tickers too, but not over a dark face"},
        {122, 13, "stop emergency program", 0, 0, kLogged, Run<&PlayerCore::StopEmergency>, "ends that"},
        {122, 16, "project information", 28, 0, kUnlogged, Run<&PlayerCore::KeepProject>,
         "as 122, 7, and its start program (20 bytes, zero padded), which 7 leaves"},
    };
    return kRows;
}

Reply PlayerCore::Execute(const Call& call)
{
    if (display == nullptr)
        return Reply::WithCode(Code::kNotSupported);
    Settle(call.nowMs);
    return CommandFamily::Execute(call);
}

void PlayerCore::Restart(std::uint64_t, bool)
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

bool PlayerCore::Plays(ProgramPlace place, std::uint64_t nowMs)
{
    Settle(nowMs);
    return At(place).has_value();
}

// Two forms: project, program and first file with what follows; or these three with a window, where the last field is
// the length of its name. The length of all texts tells them apart. A window without a name is the face.
Reply PlayerCore::Play(const Call& call)
{
    const auto length = [&call](std::size_t at) -> std::size_t { return Load16(call.payload, at); };
    const std::size_t last = length(kLastField);
    if (const auto names = TextsIn(call.extended, {length(0), length(2), length(4)})) {
        if (last > kLastFollow)
            return Reply::WithCode(Code::kNotSupported);
        return Begin(ProgramPlace::kFace, *names, static_cast<Follow>(last), call.nowMs);
    }
    const auto names = TextsIn(call.extended, {length(0), length(2), length(4), last});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    const std::string& window = names->back();
    const std::size_t index = window.size() == 1 ? kWindowNames.find(window) : std::string_view::npos;
    if (index == std::string_view::npos)
        return Reply::WithCode(Code::kNotSupported);
    return Begin(WindowPlace(index), *names, Follow::kItself, call.nowMs);
}

Reply PlayerCore::PlayEmergency(const Call& call)
{
    const auto length = [&call](std::size_t at) -> std::size_t { return Load16(call.payload, at); };
    const auto names = TextsIn(call.extended, {length(0), length(2), length(4)});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    return Begin(ProgramPlace::kEmergency, *names, Follow::kItself, call.nowMs);
}

Reply PlayerCore::StopEmergency(const Call&)
{
    End(ProgramPlace::kEmergency);
    return Reply::Done();
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
Reply PlayerCore::Stop(const Call& call)
{
    const auto names = TextsIn(call.extended, {call.payload[0]});
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
Reply PlayerCore::SetWindows(const Call& call)
{
    const std::uint8_t mode = call.payload[0];
    const auto areas = call.extended;
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
        if (At(place) && !Start(place, Running(*At(place)), call.nowMs)) // its program is gone
            End(place);
    }
    return Reply::Done();
}

Reply PlayerCore::SwitchProgram(const Call& call)
{
    const std::uint8_t mode = call.payload[0];
    const auto names = TextsIn(call.extended, {Load16(call.payload, 1)});
    if (!names)
        return Reply::WithCode(Code::kBadLength);
    if (mode > kLastFollow)
        return Reply::WithCode(Code::kNotSupported);
    if (CurrentProject().empty())
        return Reply::WithCode(Code::kNothingPlays);
    return Begin(ProgramPlace::kFace, std::array<std::string, 3>{"", names->front(), ""}, static_cast<Follow>(mode),
                 call.nowMs);
}

// Begins the program on the face anew.
Reply PlayerCore::SwitchMode(const Call& call)
{
    if (call.payload[0] > kLastFollow)
        return Reply::WithCode(Code::kNotSupported);
    if (!At(ProgramPlace::kFace))
        return Reply::WithCode(Code::kNothingPlays);
    Running wanted = *At(ProgramPlace::kFace);
    wanted.follow = static_cast<Follow>(call.payload[0]);
    return Reply::WithCode(Start(ProgramPlace::kFace, std::move(wanted), call.nowMs) ? Code::kOk : Code::kFileMissing);
}

} // namespace vxsim

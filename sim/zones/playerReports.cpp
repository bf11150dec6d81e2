// What the player core keeps and tells of projects and programs.
#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/zones/playerCore.h"
#include "sim/zones/projectRecord.h"

#include <algorithm>
#include <array>
#include <limits>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

constexpr std::size_t kMostText = 1400; // of an answer, so that it is one that hosts take
constexpr std::uint8_t kAllThere = 100; // percent

enum class Kind : std::uint8_t
{
    kPlayer = 0,
    kProject = 1,
    kProgram = 2
};
enum : std::uint8_t
{
    kPlaysBit = 1,
    kCompleteBit = 2
};
enum : std::uint8_t
{
    kNoneAnnounced = 0,
    kUnderWay = 1,
    kComplete = 2
};

// The head of a property, 16 bytes.
struct Property
{
    Kind kind = Kind::kPlayer;
    bool plays = false;
    bool isComplete = true; // all files are on the drives
    std::size_t count = 0;  // of what the lines behind it name
    std::uint64_t bytes = 0;
    std::uint16_t date = 0;
    std::uint16_t time = 0;

    std::vector<std::uint8_t> Pack(std::span<const std::uint8_t> project) const
    {
        std::vector<std::uint8_t> head(16);
        head[0] = static_cast<std::uint8_t>(kind);
        head[1] = static_cast<std::uint8_t>((plays ? kPlaysBit : 0) | (isComplete ? kCompleteBit : 0));
        Store16(head, 2, static_cast<std::uint16_t>(count));
        Store32(head, 4,
                static_cast<std::uint32_t>(std::min<std::uint64_t>(bytes, std::numeric_limits<std::uint32_t>::max())));
        Store16(head, 8, date);
        Store16(head, 10, time);
        Store16(head, 12, Load16(project, kProjectProgramsAt));
        Store16(head, 14, Load16(project, kProjectVersionAt));
        return head;
    }
};

// Whole lines, as long as they fit.
void AddLine(std::vector<std::uint8_t>& text, std::string_view line)
{
    if (text.size() + line.size() >= kMostText)
        return;
    text.insert(text.end(), line.begin(), line.end());
    text.push_back('\n');
}

} // namespace

std::span<const std::uint8_t> PlayerCore::RecordOf(std::string_view project) const
{
    for (auto rest = projects.Bytes(); !rest.empty(); rest = rest.subspan(kProjectRecordSize)) {
        const auto record = rest.first(kProjectRecordSize);
        if (!project.empty() && SameName(ProjectName(record), project))
            return record;
    }
    return {};
}

// The project that plays on the face, or the one that a host told of last; empty if there is neither.
std::string PlayerCore::CurrentProject() const
{
    const auto& onFace = running[static_cast<std::size_t>(ProgramPlace::kFace)];
    return onFace ? onFace->project : ProjectName(projects.Bytes());
}

// The latest record goes to the front; the oldest one falls off the end.
Reply PlayerCore::KeepProject(const Call& call)
{
    const std::size_t length = Load16(call.payload, 0);
    if (length != call.extended.size() || length > kLongestProject)
        return Reply::WithCode(Code::kBadLength);
    std::string name(call.extended.begin(), call.extended.end());
    if (name.empty())
        name = CurrentProject();
    if (name.empty())
        return Reply::WithCode(Code::kFileMissing);
    if (!store.IsProjectName(name))
        return Reply::WithCode(Code::kOpenFailed);
    const auto former = RecordOf(name);
    std::vector<std::uint8_t> record(former.begin(), former.end());
    record.resize(kProjectRecordSize);
    std::fill_n(record.begin(), kLongestProject, std::uint8_t{0});
    std::ranges::copy(name, record.begin());
    std::copy_n(call.payload.begin() + 2, 4, record.begin() + kProjectProgramsAt);
    if (const auto extra = call.payload.subspan(8); extra.size() >= kLongestProgram)
        std::copy_n(extra.begin(), kLongestProgram, record.begin() + kProjectStartAt);
    for (auto rest = projects.Bytes(); !rest.empty(); rest = rest.subspan(kProjectRecordSize)) {
        const auto other = rest.first(kProjectRecordSize);
        if (!SameName(ProjectName(other), name))
            record.insert(record.end(), other.begin(), other.end());
    }
    record.resize(projects.Bytes().size());
    return Reply::WithCode(projects.Set(record) ? Code::kOk : Code::kWriteFailed);
}

// How many of the programs that a host told of are there, all their files included.
Reply PlayerCore::TellProgress(const Call&)
{
    const std::string name = ProjectName(projects.Bytes());
    if (name.empty())
        return Reply::WithPayload(std::array{std::uint8_t{0}, std::uint8_t{kNoneAnnounced}});
    const std::size_t wanted = Load16(projects.Bytes(), kProjectProgramsAt);
    std::size_t there = 0;
    for (const std::string& programName : store.Programs(name)) {
        const auto program = store.Find(name, programName);
        there += program && store.ContentOf(*program).files == program->files.size() ? 1 : 0;
    }
    const auto percent = static_cast<std::uint8_t>(there >= wanted ? kAllThere : there * kAllThere / wanted);
    return Reply::WithPayload(
        std::array{percent, static_cast<std::uint8_t>(percent == kAllThere ? kComplete : kUnderWay)});
}

bool PlayerCore::Plays(std::string_view project, std::string_view program) const
{
    return std::ranges::any_of(running, [&](const auto& run) {
        return run && SameName(run->project, project) && (program.empty() || SameName(run->program, program));
    });
}

// "" is the player, "PROJECT" a project, "PROJECT\PROGRAM" a program.
Reply PlayerCore::TellProperty(const Call& call)
{
    const std::string name(call.extended.begin(), call.extended.end());
    const std::size_t between = std::min(name.find_first_of("\\/"), name.size());
    const std::string project = name.substr(0, between);
    if (name.empty())
        return TellPlayer();
    if (between == name.size())
        return TellProject(project);
    const auto program = store.Find(project, name.substr(between + 1));
    if (!program)
        return Reply::WithCode(Code::kFileMissing);
    const auto content = store.ContentOf(*program);
    const Property property{Kind::kProgram,
                            Plays(program->project, program->name),
                            content.files == program->files.size(),
                            program->files.size(),
                            content.bytes,
                            program->date,
                            program->time};
    std::vector<std::uint8_t> answer = property.Pack(RecordOf(program->project));
    for (const ProgramFile& file : program->files)
        AddLine(answer, file.path + "|" + std::to_string(file.staySeconds));
    return Reply::WithExtended(answer);
}

Reply PlayerCore::TellPlayer() const
{
    const auto names = store.Projects();
    Property property;
    property.count = names.size();
    property.plays = std::ranges::any_of(running, [](const auto& run) { return run.has_value(); });
    std::vector<std::uint8_t> answer = property.Pack({});
    for (const std::string& name : names)
        AddLine(answer, name);
    return Reply::WithExtended(answer);
}

Reply PlayerCore::TellProject(const std::string& name) const
{
    const auto names = store.Programs(name);
    if (names.empty())
        return Reply::WithCode(Code::kFileMissing);
    Property property{Kind::kProject, Plays(name, ""), true, names.size()};
    std::vector<std::uint8_t> lines;
    for (const std::string& programName : names) {
        const auto program = store.Find(name, programName);
        if (!program)
            continue;
        const auto content = store.ContentOf(*program);
        property.bytes += content.bytes;
        property.isComplete = property.isComplete && content.files == program->files.size();
        if (std::pair(program->date, program->time) > std::pair(property.date, property.time)) {
            property.date = program->date;
            property.time = program->time;
        }
        AddLine(lines, programName);
    }
    std::vector<std::uint8_t> answer = property.Pack(RecordOf(name));
    answer.insert(answer.end(), lines.begin(), lines.end());
    return Reply::WithExtended(answer);
}

// A word and a line for each program that plays: the place, its names, and the file that is to be seen.
Reply PlayerCore::TellPlaying(const Call& call)
{
    enum : std::uint8_t
    {
        kNothing = 0,
        kProgram = 1,
        kEmergency = 2
    };
    const auto& onFace = running[static_cast<std::size_t>(ProgramPlace::kFace)];
    const auto& emergency = running[static_cast<std::size_t>(ProgramPlace::kEmergency)];
    Reply reply;
    reply.payload = {emergency ? kEmergency
                     : onFace  ? kProgram
                               : kNothing,
                     onFace ? static_cast<std::uint8_t>(onFace->follow) : std::uint8_t{0}, 0,
                     static_cast<std::uint8_t>(Windows())};
    for (std::size_t i = 0; i < running.size(); ++i) {
        const auto place = static_cast<ProgramPlace>(i);
        if (!running[i])
            continue;
        std::string line = "face";
        if (place == ProgramPlace::kEmergency)
            line = "emergency";
        if (place >= ProgramPlace::kFirstWindow) {
            ++reply.payload[2];
            line = std::to_string(i - static_cast<std::size_t>(ProgramPlace::kFirstWindow) + 1);
        }
        line.append("\t").append(running[i]->project).append("\t").append(running[i]->program);
        line.append("\t").append(display->CurrentFile(place, call.nowMs).value_or(""));
        AddLine(reply.extended, line);
    }
    return reply;
}

} // namespace vxsim

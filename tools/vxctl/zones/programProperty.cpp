// Reads the answers of the player core.
#include "vxctl/zones/programProperty.h"

#include "vxctl/cli/argument.h"
#include "vxctl/cli/bytes.h"
#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/player.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <span>
#include <string_view>

namespace vxctl {

namespace {

constexpr std::size_t kAnswerSize = 1536;
constexpr std::size_t kHeadSize = 16;
constexpr std::size_t kPlayingHeadSize = 4;
constexpr std::size_t kLongestProject = 32;
constexpr std::size_t kLongestProgram = 20;
constexpr std::uint8_t kProgramKind = 2;
constexpr std::uint8_t kPlaysBit = 1;
constexpr std::uint8_t kCompleteBit = 2;

// An answer ends where the zeros begin, as nothing tells its length.
std::vector<std::string> Parts(std::string_view text, char end)
{
    const auto parts = Split(text, end);
    return {parts.begin(), parts.end()};
}

std::string_view TextBehind(std::span<const std::uint8_t> answer, std::size_t at)
{
    const char* const text = reinterpret_cast<const char*>(answer.data() + at);
    return {text, ::strnlen(text, answer.size() - at)};
}

const std::uint8_t* Bytes(const std::string& text)
{
    return reinterpret_cast<const std::uint8_t*>(text.c_str());
}

void CheckName(const std::string& name, std::size_t longest)
{
    if (name.empty() || name.size() > longest || name.find_first_of("\\/:|") != std::string::npos)
        throw UsageError("'" + name + "' is no name of 1 to " + std::to_string(longest) +
                         " bytes without \\, /, : and |");
}

} // namespace

ProgramProperty ReadProperty(const std::string& project, const std::string& program)
{
    std::string name = project;
    if (!program.empty())
        name.append("\\").append(program);
    std::array<std::uint8_t, kAnswerSize> answer{};
    Check(vxCoreGetFileProperty(Bytes(name), answer.data(), static_cast<std::uint32_t>(answer.size())));
    const std::span<const std::uint8_t> record(answer);
    ProgramProperty property;
    property.isProgram = record[0] == kProgramKind;
    property.plays = (record[1] & kPlaysBit) != 0;
    property.isComplete = (record[1] & kCompleteBit) != 0;
    property.count = Load16(record, 2);
    property.bytes = Load32(record, 4);
    if (const auto changed = FolderTime(Load16(record, 8), Load16(record, 10)))
        property.changed = FormatTime(*changed, ' ');
    property.programs = Load16(record, 12);
    property.version = Load16(record, 14);
    property.names = Parts(TextBehind(record, kHeadSize), '\n');
    return property;
}

std::pair<std::string, unsigned> SplitFile(const std::string& line)
{
    const std::size_t bar = std::min(line.rfind('|'), line.size());
    return {line.substr(0, bar), ParseNumber(line.substr(std::min(bar + 1, line.size()))).value_or(0)};
}

std::string ProjectFolder(const std::string& project)
{
    CheckName(project, kLongestProject);
    return "C:\\PLAYER\\" + project;
}

std::string ProgramPath(const std::string& project, const std::string& program)
{
    CheckName(program, kLongestProgram);
    return ProjectFolder(project).append("\\").append(program).append(".PRG");
}

PlayingPrograms ReadPlaying()
{
    std::array<std::uint8_t, kAnswerSize> answer{};
    Check(vxCoreGetPlayInfo(answer.data(), static_cast<std::uint32_t>(answer.size())));
    PlayingPrograms playing;
    playing.state = answer[0];
    playing.follow = answer[1];
    playing.windowMode = answer[3];
    for (const std::string& line : Parts(TextBehind(answer, kPlayingHeadSize), '\n')) {
        auto fields = Parts(line, '\t');
        fields.resize(4);
        playing.programs.push_back({fields[0], fields[1], fields[2], fields[3]});
    }
    return playing;
}

} // namespace vxctl

#include "sim/reportCommands.h"

#include "sim/protocol/bytes.h"

#include <array>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {
namespace {

constexpr std::uint16_t kLogDatabase = 1;
constexpr std::uint8_t kFaultSelector = 9;

// Hosts take these texts from behind the header, so there is no payload before them.
Reply WithText(const std::string& text)
{
    return Reply{0, {}, {text.begin(), text.end()}};
}

} // namespace

ReportCommands::ReportCommands(const Drives& signDrives, const Monitor& watch, SignDatabase& tables,
                               SignObservers& observers, int faceWidth, int faceHeight, FaceText faceText)
    : drives(signDrives), monitor(watch), database(tables), width(faceWidth), height(faceHeight),
      face(std::move(faceText))
{
    SignEvents told;
    told.fileWritten = [this](const std::filesystem::path&) { ++counters.filesWritten; };
    told.answered = [this](const Exchange& exchange) {
        ++counters.answered;
        if (exchange.code == Code::kOk)
            return;
        ++counters.refused;
        refusals.Add(exchange.request.major, exchange.request.minor, exchange.code);
    };
    observers.Add(std::move(told));
}

std::span<const CommandRow> ReportCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {1, 10, "read system settings", 0, 0, kUnlogged, Run<&ReportCommands::TellSettings>,
         "width and height (16 bits each) and the number of drives; the rest of the 16 bytes is 0"},
        {1, 11, "read state", 0, 0, kUnlogged, Run<&ReportCommands::TellState>,
         "state word and 96-byte record, see [State](#state)"},
        {1, 18, "read system information", 0, 0, kUnlogged, Run<&ReportCommands::TellSystem>,
         "lines of text: program, face and drives, see [what the sign shows](#what-the-sign-shows)"},
        {1, 19, "read error log", 0, 0, kUnlogged, Run<&ReportCommands::TellRefusals>,
         "the last 24 refused commands with their codes, one line each"},
        {1, 21, "query database", 4, 1, kUnlogged, Run<&ReportCommands::QueryDatabase>,
         "runs SQL in database 1, see [Logs](#logs)"},
        {1, 26, "read statistics", 1, 0, kUnlogged, Run<&ReportCommands::TellStatistics>,
         "selector 0: requests answered, refused, malformed and files written, 32 bits each; selector 9: one byte, 1 "
         "while a tile is hot; others: 16 bytes 0"},
    };
    return kRows;
}

Reply ReportCommands::TellSettings(const Call&)
{
    std::array<std::uint8_t, 16> record{};
    Store16(record, 0, static_cast<std::uint16_t>(width));
    Store16(record, 2, static_cast<std::uint16_t>(height));
    record[4] = static_cast<std::uint8_t>(drives.Letters().size());
    return Reply::WithPayload(record);
}

Reply ReportCommands::TellState(const Call& call)
{
    const SignState state = monitor.StateAt(call.nowMs);
    return Reply{0, {state.word.begin(), state.word.end()}, {state.record.begin(), state.record.end()}};
}

Reply ReportCommands::TellSystem(const Call& call)
{
    return WithText("vxsim\r\n" + face(call.nowMs) + "drives " + drives.Letters() + "\r\n");
}

Reply ReportCommands::TellRefusals(const Call&)
{
    return WithText(refusals.Text());
}

// The number of rows, 16 bits, and the rows.
Reply ReportCommands::QueryDatabase(const Call& call)
{
    if (Load16(call.payload, 0) != kLogDatabase)
        return Reply::WithCode(Code::kNotSupported);
    const auto page = database.Query({reinterpret_cast<const char*>(call.extended.data()), call.extended.size()});
    if (page.code != Code::kOk)
        return Reply::WithCode(page.code);
    Reply reply{0, std::vector<std::uint8_t>(4), {page.text.begin(), page.text.end()}};
    Store16(reply.payload, 0, page.rows);
    return reply;
}

Reply ReportCommands::TellStatistics(const Call& call)
{
    if (call.payload[0] == kFaultSelector)
        return Reply::WithExtended(std::array<std::uint8_t, 1>{monitor.IsAlarmed()});
    std::array<std::uint8_t, 16> record{};
    if (call.payload[0] == 0) {
        Store32(record, 0, counters.answered);
        Store32(record, 4, counters.refused);
        Store32(record, 8, counters.malformed);
        Store32(record, 12, counters.filesWritten);
    }
    return Reply::WithExtended(record);
}

} // namespace vxsim

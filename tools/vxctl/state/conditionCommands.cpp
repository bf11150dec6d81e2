// status, warnings: how the sign is.
#include "vxctl/cli/collected.h"
#include "vxctl/cli/fieldText.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/shown.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/state/condition.h"
#include "vxctl/state/faceState.h"

#include <vxsign/control.h>
#include <vxsign/status.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <optional>

namespace vxctl {

namespace {

// What vxReadStatusInfo hands over.
struct Status
{
    vxStatusRecord record{};
    std::array<std::uint8_t, 8> beacon{};
    std::string message;
};

thread_local Status* status = nullptr;

std::uint32_t TakeStatus(std::uint32_t /*user*/, const vxStatusRecord* record, const std::uint8_t* beacon,
                         const char* message)
{
    status->record = *record;
    std::memcpy(status->beacon.data(), beacon, status->beacon.size());
    status->message = message;
    return 0;
}

// The state as signs in the field count it.
std::vector<std::string> StateNames(std::uint8_t mode)
{
    static constexpr std::array kNames = {"bad-pixels", "hot-tiles", "door-open", "no-power", "dark-face"};
    if (mode == VX_MODE_BY_STATISTICS)
        return {"overheated"};
    std::vector<std::string> names;
    for (std::size_t i = 0; i < kNames.size(); ++i) {
        if ((mode >> i & 1) != 0)
            names.emplace_back(kNames[i]);
    }
    return names;
}

std::string StateWords(std::uint8_t mode)
{
    if (mode == 0)
        return "all well";
    std::string words;
    for (const std::string& name : StateNames(mode))
        words += (words.empty() ? "" : ", ") + Words(name);
    return words + " (" + std::to_string(mode) + ")";
}

void ShowRecord(Report& report, const Status& found)
{
    const vxStatusRecord& record = found.record;
    const auto degrees = [](std::uint8_t value) { return static_cast<int>(static_cast<std::int8_t>(value)); };
    report.Value("state", "state", StateNames(record.Mode),
                 Toned(StateWords(record.Mode), record.Mode == 0 ? Tone::kFine : Tone::kWrong));
    report.Put("stateCode", record.Mode);
    const int inside = degrees(record.Value0);
    const int outside = degrees(record.Value1);
    const int tile = degrees(record.Value2);
    report.Value(
        "measured", "measured",
        {{"insideC", inside}, {"outsideC", outside}, {"hottestTileC", tile}, {"humidityPercent", record.Value3}},
        std::to_string(inside) + " C inside, " + std::to_string(outside) + " C outside, hottest tile " +
            std::to_string(tile) + " C, " + std::to_string(record.Value3) + " % humidity");
    report.Value("beacons", "beacon", FormatHex(found.beacon.data(), found.beacon.size(), ""),
                 FormatHex(found.beacon.data(), found.beacon.size()));
    report.ValueOrNull("playing", "playing", found.message, "nothing");
}

void ShowPower(Report& report)
{
    std::uint8_t ordered = 0;
    std::uint8_t present = 0;
    const std::uint32_t result = vxGetPowerState(&ordered, &present);
    if (result != VX_OK)
        return report.Line(std::string("power               ") + vxErrorDesc(result));
    report.Value("power", "power", present != 0,
                 Toned(present != 0 ? "on" : "off", present != 0 ? Tone::kFine : Tone::kWrong));
}

void ShowClock(Report& report)
{
    ClockTime time;
    const std::uint32_t result = ReadClock(time);
    if (result != VX_OK)
        return report.Line(std::string("clock               ") + vxErrorDesc(result));
    const bool right = std::abs(MinutesAhead(time, LocalTime())) <= kClockTolerance;
    report.Value("clock", "clock", JsonTime(time),
                 Toned(FormatTime(time, ' ', false) + (right ? "" : " (not the time of this PC)"),
                       right ? Tone::kFine : Tone::kDoubtful));
}

TextTable TableOf(const std::vector<Warning>& warnings)
{
    TextTable table({{"where"}, {"what"}, {"value"}, {"time", kTimes}});
    for (const Warning& warning : warnings)
        table.Add({warning.where, warning.what, warning.value, warning.time});
    return table;
}

// A sign without a report is no failure.
void ShowWarningLines(Report& report)
{
    std::vector<Warning> warnings;
    const std::uint32_t read = ReadWarnings(warnings);
    if (read != VX_OK)
        return report.Line(std::string("warnings            ") + vxErrorDesc(read));
    TableOf(warnings).Put(report, "warnings");
    report.Line("warnings            " +
                (warnings.empty() ? Toned("none", Tone::kFine) : Toned(std::to_string(warnings.size()), Tone::kWrong)));
    for (const Warning& warning : warnings)
        report.Line("  " + Toned(warning.where + ": " + warning.what + " " + warning.value, Tone::kWrong));
}

Status ReadStatus()
{
    Status found;
    status = &found;
    const std::uint32_t result = vxReadStatusInfo("", 0, 0, TakeStatus, 0, 0, 0);
    status = nullptr;
    Check(result);
    return found;
}

std::uint32_t ShowStatus(Session& session, const Args& /*args*/)
{
    Report& report = session.report;
    const Status found = ReadStatus();
    report.Line("sign                " + session.options.url);
    ShowRecord(report, found);
    ShowFace(report, ReadFace());
    ShowPower(report);
    ShowClock(report);
    ShowDrives(report, ReadSpaces());
    ShowWarningLines(report);
    return VX_OK;
}

// The ring goes to a new file, since the sign deletes its own.
void ShowRing(Report& report, const std::string& local)
{
    const std::array<std::uint8_t, 100> noName{};
    const std::uint32_t result = vxReadSignWaringLog(local.c_str(), noName.data(), Collecting<vxWaringLogRow>());
    TextTable table({{"time", kTimes}, {"level", kNumbers}, {"warning"}});
    for (const vxWaringLogRow& row : TakeCollected<vxWaringLogRow>())
        table.Add({FieldText(row.Time), std::to_string(+row.Level), FieldText(row.Text)});
    std::error_code error;
    if (std::filesystem::file_size(local, error) == 0 && !error)
        std::filesystem::remove(local, error); // a sign without a ring
    Check(result);
    report.Line("");
    table.ShowOr(report, "ring", "the sign's ring has no warnings");
}

std::uint32_t ShowWarnings(Session& session, const Args& args)
{
    const std::string& ring = args.Text("--ring");
    std::error_code error;
    if (!ring.empty() && std::filesystem::exists(ring, error))
        throw UsageError(ring + " is there already: what the sign gives away wants a new file");
    std::vector<Warning> warnings;
    Check(ReadWarnings(warnings));
    TableOf(warnings).ShowOr(session.report, "warnings", Toned("no warnings", Tone::kFine));
    if (!ring.empty())
        ShowRing(session.report, ring);
    return VX_OK;
}

} // namespace

std::uint32_t ShowBriefly(Session& session, const Args& /*args*/)
{
    ShowRecord(session.report, ReadStatus());
    ShowWarningLines(session.report);
    return VX_OK;
}

namespace {

const Command kCommands[] = {
    {
        .name = "status",
        .help = "Show on one screen how the sign is",
        .details =
            R"(What is wrong is red on a terminal; NO_COLOR in the environment turns colours off. State and measurements are read in
the usual way; a sign may mean something else.)",
        .examples = R"(vxctl status
vxctl --json status | jq .warnings)",
        .signs = Signs::kMany,
        .run = ShowStatus,
    },
    {
        .name = "warnings",
        .help = "Show what the sign warns of",
        .details =
            R"(What its report says now. --ring shows the sign's ring of former warnings too; the sign deletes it when it is read, so
that it goes to a new file of this PC.)",
        .examples = R"(vxctl warnings
vxctl warnings --ring warnings.ring --json)",
        .arguments = {WriteFile("--ring", "take the ring off the sign, into this new file")},
        .signs = Signs::kMany,
        .run = ShowWarnings,
    },
};

} // namespace

const CommandTable kConditionCommands{"State", kCommands};

} // namespace vxctl

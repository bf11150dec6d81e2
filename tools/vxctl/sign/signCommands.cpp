#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"

#include <vxsign/control.h>
#include <vxsign/test.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <memory>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Control";

void AddBright(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {kGroup, "bright", "Set the brightness of the face",
                         R"(What a level looks like is the sign's own; vxsim has 1 to 8, and 0 for its own choice.

Example:
  vxctl bright 4)"});
    const auto level = std::make_shared<std::uint32_t>(0);
    AddNumber(*command, "LEVEL", *level, 0, 255, "the level")->required();
    command->callback([&session, level] {
        session.Connect();
        Check(vxBrightAdjust(static_cast<std::uint8_t>(*level)));
    });
}

void ShowPower(Report& report)
{
    std::uint8_t ordered = 0;
    std::uint8_t present = 0;
    Check(vxGetPowerState(&ordered, &present));
    report.Value("ordered", "ordered", ordered != 0, ordered != 0 ? "on" : "off");
    report.Value("power", "on", present != 0, present != 0 ? "on" : "off");
}

void AddPower(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(app, {kGroup, "power", "Switch the power of the face, or tell its state",
                                               "Examples:\n  vxctl power off\n  vxctl power status"});
    const auto action = std::make_shared<std::string>();
    command->add_option("ACTION", *action, "on, off or status")
        ->required()
        ->check(CLI::IsMember({"on", "off", "status"}));
    command->callback([&session, action] {
        session.Connect();
        if (*action == "status")
            return ShowPower(session.report);
        Check(vxPowerOnOff(*action == "on" ? 1 : 0));
    });
}

void AddReset(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {kGroup, "reset", "Start the sign's controller again",
                         R"(--flash waits until the sign has reset itself to what its data flash holds.

Examples:
  vxctl reset
  vxctl reset --cold)"});
    const auto cold = std::make_shared<bool>(false);
    const auto flash = std::make_shared<bool>(false);
    CLI::Option* const coldFlag = command->add_flag("--cold", *cold, "a cold start");
    command->add_flag("--flash", *flash, "back to what the data flash holds")->excludes(coldFlag);
    command->callback([&session, cold, flash] {
        const ProgressBar bar("reset", session.report.IsJson());
        session.Connect(ProgressBar::OnProgress);
        Check(*flash ? vxResetSystemToDataFlash() : *cold ? vxResetSystemCool() : vxResetSystem());
    });
}

void SetClock(Session& session, const std::string& wanted)
{
    const auto time = wanted == "now" ? LocalTime() : ParseClockTime(wanted);
    if (!time)
        throw UsageError("'" + wanted + "' is no time: now, or such as \"2026-11-21 14:05:30\", from 1970 on");
    session.Connect();
    Check(vxAjustLEDTimeEx(time->year, time->month, time->day, time->hour, time->minute, time->second, Weekday(*time),
                           0));
    session.report.Value("set to", "set", FormatTime(*time, 'T'), FormatTime(*time, ' '));
}

void ShowClock(Session& session)
{
    session.Connect();
    ClockTime time;
    std::uint8_t unused = 0;
    std::uint8_t weekday = 0;
    std::uint8_t mark = 0;
    Check(vxReadLEDTime(&time.year, &time.month, &time.day, &time.hour, &time.minute, &unused, &weekday, &mark));
    session.report.Value("clock", "clock", FormatTime(time, 'T', false), FormatTime(time, ' ', false));
    session.report.Put("weekday", weekday);
    session.report.Put("mark", mark);
}

void AddClock(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(app, {kGroup, "clock", "Tell the sign's clock, or set it",
                                               R"(The sign tells no seconds. now is the local time of this PC.

Examples:
  vxctl clock
  vxctl clock --set now
  vxctl clock --set "2026-11-21 14:05:30")"});
    const auto wanted = std::make_shared<std::string>();
    CLI::Option* const set = command->add_option("--set", *wanted, "now, or a time: YYYY-MM-DD HH:MM[:SS]");
    set->type_name("TIME");
    command->callback([&session, wanted, set] {
        if (set->count() != 0)
            return SetClock(session, *wanted);
        ShowClock(session);
    });
}

void AddBeacon(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {kGroup, "beacon", "Tell or set the sign's beacons",
                         R"(8 bytes in hexadecimal; those left out are 0. What they mean is the sign's own.

Examples:
  vxctl beacon
  vxctl beacon "01 00 ff")"});
    const auto text = std::make_shared<std::string>();
    CLI::Option* const set = command->add_option("BYTES", *text, "up to 8 bytes");
    set->type_name("HEX");
    command->callback([&session, text, set] {
        std::array<std::uint8_t, sizeof(std::uint64_t)> beacon{};
        const auto bytes = ParseHex(*text);
        if (set->count() != 0 && (!bytes || bytes->empty() || bytes->size() > beacon.size()))
            throw UsageError("'" + *text + "' is not 1 to 8 bytes in hexadecimal, such as \"01 ff\"");
        session.Connect();
        if (set->count() != 0) {
            std::copy(bytes->begin(), bytes->end(), beacon.begin());
            std::uint64_t value = 0;
            std::memcpy(&value, beacon.data(), sizeof value);
            return Check(vxSetBeacon(&value));
        }
        Check(vxGetBeacon(beacon.data()));
        const std::string found = FormatHex(beacon.data(), beacon.size());
        session.report.Value("beacon", "beacon", FormatHex(beacon.data(), beacon.size(), ""), found);
    });
}

} // namespace

void AddSignCommands(CLI::App& app, Session& session)
{
    AddBright(app, session);
    AddPower(app, session);
    AddReset(app, session);
    AddClock(app, session);
    AddBeacon(app, session);
}

} // namespace vxctl

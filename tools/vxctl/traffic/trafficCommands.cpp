#include "vxctl/cli/clockTime.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/traffic/trafficBlocks.h"
#include "vxctl/traffic/trafficLogs.h"

#include <vxsign/traffic.h>

#include <algorithm>
#include <array>
#include <memory>
#include <optional>

namespace vxctl {

namespace {

constexpr std::size_t kRealStatusSize = 102;
constexpr std::size_t kBlockSize = 2048;
constexpr std::size_t kMostLamps = 255;

struct BlockWanted
{
    std::string file;
    std::uint32_t kind = VX_TRAFFIC_MONITOR;
    bool real = false;
};

void ShowStatus(Session& session, const BlockWanted& wanted)
{
    session.Connect();
    std::array<std::uint8_t, kBlockSize> block{};
    std::uint32_t size = block.size();
    if (!wanted.file.empty()) {
        Check(wanted.real ? vxReadTrafficRealStatus(wanted.file.c_str()) : vxReadTrafficStatus(wanted.file.c_str()));
        session.report.Value("saved as", "file", wanted.file);
    } else if (wanted.real) {
        Check(vxTCGetRealStatus(block.data(), kRealStatusSize, 0));
        ShowTrafficRealStatus(session.report, TrafficBytes(block).first(kRealStatusSize));
    } else {
        Check(vxReadTCStatus(block.data(), &size));
        ShowTrafficStatus(session.report, TrafficBytes(block).first(size));
    }
}

void AddStatus(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "status", "Tell what the controller does",
         R"(What a block means is the controller's own; it shows in words as far as it is that of vxsim. --save makes a dump file:
12 bytes of header, then the block.

Examples:
  vxctl traffic status
  vxctl traffic status --real --json
  vxctl traffic status --save status.bin)"});
    const auto wanted = std::make_shared<BlockWanted>();
    command->add_flag("--real", wanted->real, "the real-time status");
    command->add_option("--save", wanted->file, "a dump file in place of words")->type_name("FILE");
    command->callback([&session, wanted] { ShowStatus(session, *wanted); });
}

void ShowMonitor(Session& session, const BlockWanted& wanted)
{
    if (!wanted.file.empty() && wanted.kind != VX_TRAFFIC_MONITOR)
        throw UsageError("--save takes the block of kind 4 alone");
    session.Connect();
    if (!wanted.file.empty()) {
        Check(vxReadTrafficMonitor(wanted.file.c_str()));
        return session.report.Value("saved as", "file", wanted.file);
    }
    std::array<std::uint8_t, kBlockSize> block{};
    std::uint32_t size = block.size();
    Check(vxReadTCMonitor(wanted.kind, block.data(), &size));
    ShowTrafficMonitor(session.report, TrafficBytes(block).first(size));
}

void AddMonitor(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "monitor", "Read a monitor block",
         R"(What a kind and its block mean is the controller's own; vxsim has kind 4, with the vehicles that each group has
counted since the hour began, and those that it expects in the whole hour.

Examples:
  vxctl traffic monitor
  vxctl traffic monitor --save monitor.bin)"});
    const auto wanted = std::make_shared<BlockWanted>();
    AddNumber(*command, "--kind", wanted->kind, 0, 255, "which block")->default_str("4");
    command->add_option("--save", wanted->file, "a dump file in place of words")->type_name("FILE");
    command->callback([&session, wanted] { ShowMonitor(session, *wanted); });
}

struct ClockWanted
{
    std::string time;
    std::optional<std::uint32_t> field7;
    std::uint32_t field8 = 0;
};

void SetClock(Session& session, const ClockWanted& wanted)
{
    const auto time = wanted.time == "now" ? LocalTime() : ParseClockTime(wanted.time);
    if (!time)
        throw UsageError("'" + wanted.time + "' is no time: now, or such as \"2026-11-21 14:05:30\", from 1970 on");
    session.Connect();
    Check(vxAjustTrafficTime(time->year, time->month, time->day, time->hour, time->minute, time->second,
                             static_cast<std::uint8_t>(wanted.field7.value_or(Weekday(*time))),
                             static_cast<std::uint8_t>(wanted.field8)));
    session.report.Value("set to", "set", FormatTime(*time, 'T'), FormatTime(*time, ' '));
}

void ShowClock(Session& session)
{
    session.Connect();
    ClockTime time;
    std::uint8_t field7 = 0;
    std::uint8_t field8 = 0;
    Check(vxReadTrafficTime(&time.year, &time.month, &time.day, &time.hour, &time.minute, &time.second, &field7,
                            &field8));
    session.report.Value("clock", "clock", FormatTime(time, 'T'), FormatTime(time, ' '));
    session.report.Value("field 7", "field7", field7);
    session.report.Value("field 8", "field8", field8);
}

void AddClock(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic, {kTrafficGroup, "clock", "Tell the controller's clock, or set it",
                  R"(Fields 7 and 8 are the controller's own; without --field7 it is the day of the week, 0 for Sunday.

Examples:
  vxctl traffic clock
  vxctl traffic clock --set now)"});
    const auto wanted = std::make_shared<ClockWanted>();
    const auto field7 = std::make_shared<std::uint32_t>(0);
    CLI::Option* const set = command->add_option("--set", wanted->time, "now, or a time: YYYY-MM-DD HH:MM[:SS]");
    set->type_name("TIME");
    CLI::Option* const seventh = AddNumber(*command, "--field7", *field7, 0, 99, "sent along")->needs(set);
    AddNumber(*command, "--field8", wanted->field8, 0, 255, "sent along")->default_str("0")->needs(set);
    command->callback([&session, wanted, field7, set, seventh] {
        if (set->count() == 0)
            return ShowClock(session);
        if (seventh->count() != 0)
            wanted->field7 = *field7;
        SetClock(session, *wanted);
    });
}

void AddManual(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "manual", "Switch to manual",
         R"(What a mode means is the controller's own. Those of vxsim: 0 automatic, 1 to 3 hold that phase, 4 all red, 5 flashing
yellow.

Examples:
  vxctl traffic manual 2
  vxctl traffic manual 0)"});
    const auto mode = std::make_shared<std::uint32_t>(0);
    AddNumber(*command, "MODE", *mode, 0, 255, "the mode")->required();
    command->callback([&session, mode] {
        session.Connect();
        Check(vxTCManual(static_cast<std::uint8_t>(*mode)));
    });
}

struct LampsWanted
{
    std::string test;
    std::string first;
    std::string second;
};

std::vector<std::uint8_t> ParseBytes(const std::string& text, std::size_t most)
{
    auto bytes = ParseHex(text);
    if (!bytes || bytes->size() > most)
        throw UsageError("'" + text + "' is not up to " + std::to_string(most) + " bytes in hexadecimal");
    return *std::move(bytes);
}

void TestLamps(const Session& session, const LampsWanted& wanted)
{
    std::vector<std::uint8_t> lamps = ParseBytes(wanted.first, kMostLamps);
    const std::vector<std::uint8_t> second = ParseBytes(wanted.second, kMostLamps);
    if (wanted.test == "jkb" && !second.empty())
        throw UsageError("jkb takes one list of lamps");
    const auto firstCount = static_cast<std::uint8_t>(lamps.size());
    lamps.insert(lamps.end(), second.begin(), second.end());
    session.Connect();
    Check(wanted.test == "jkb" ? vxTCJKBLightTest(lamps.data(), firstCount)
                               : vxTCJKCLightTest(lamps.data(), firstCount, static_cast<std::uint8_t>(second.size())));
}

void AddLamps(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "lamps", "Run a lamp test, JKB or JKC",
         R"(What a byte means is the controller's own. vxsim takes one for each group, 1 red, 2 yellow and 4 green added up, and
shows them for 10 seconds: jkb groups 1 to 6, jkc groups 1 to 4, then 5 and 6. Without bytes the test ends.

Examples:
  vxctl traffic lamps jkb 070707070707
  vxctl traffic lamps jkc "01 02 04 07" "01 04"
  vxctl traffic lamps jkb)"});
    const auto wanted = std::make_shared<LampsWanted>();
    command->add_option("TEST", wanted->test, "jkb or jkc")->required()->check(CLI::IsMember({"jkb", "jkc"}));
    command->add_option("LAMPS", wanted->first, "up to 255 bytes")->type_name("HEX");
    command->add_option("SECOND", wanted->second, "of jkc: up to 255 bytes")->type_name("HEX");
    command->callback([&session, wanted] { TestLamps(session, *wanted); });
}

void AddPhase(CLI::App& traffic, Session& session)
{
    CLI::App* const command = AddCommand(
        traffic,
        {kTrafficGroup, "phase", "Run a temporary phase",
         R"(31 bytes in hexadecimal; those left out are 0. What they mean is the controller's own. vxsim takes the groups that get
green, bit 0 being group 1, and the seconds of green, 10 for 0; flag 0 ends the phase.

Examples:
  vxctl traffic phase "05 14"
  vxctl traffic phase 00 --flag 0)"});
    const auto text = std::make_shared<std::string>();
    const auto flag = std::make_shared<std::uint32_t>(1);
    command->add_option("BYTES", *text, "up to 31 bytes")->type_name("HEX")->required();
    AddNumber(*command, "--flag", *flag, 0, 255, "sent along")->default_str("1");
    command->callback([&session, text, flag] {
        std::vector<std::uint8_t> phase = ParseBytes(*text, VX_TRAFFIC_PHASE);
        phase.resize(VX_TRAFFIC_PHASE);
        session.Connect();
        Check(vxTrafficTempPhaseRun(phase.data(), *flag));
    });
}

} // namespace

void AddTrafficCommands(CLI::App& app, Session& session)
{
    CLI::App* const traffic = AddCommand(app, {kTrafficGroup, "traffic", "Watch and steer a traffic signal controller",
                                               R"(Examples:
  vxctl traffic status
  vxctl traffic manual 2
  vxctl traffic errors)"});
    traffic->require_subcommand(1);
    AddStatus(*traffic, session);
    AddMonitor(*traffic, session);
    AddClock(*traffic, session);
    AddManual(*traffic, session);
    AddLamps(*traffic, session);
    AddPhase(*traffic, session);
    AddTrafficLogs(*traffic, session);
}

} // namespace vxctl

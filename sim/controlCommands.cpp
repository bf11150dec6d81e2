#include "sim/controlCommands.h"

#include <array>

namespace vxsim {

std::span<const CommandRow> ControlCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {4, 1, "black screen", 0, 0, kLogged, Run<&ControlCommands::SetBlack, true>, "turns the face dark, until 4, 2"},
        {4, 2, "end black screen", 0, 0, kLogged, Run<&ControlCommands::SetBlack, false>, "ends 4, 1"},
        {4, 3, "power off", 0, 0, kLogged, Run<&ControlCommands::Switch, false>, "the face is dark"},
        {4, 4, "power on", 0, 0, kLogged, Run<&ControlCommands::Switch, true>, "the face has light again"},
        {4, 5, "power state", 0, 0, kUnlogged, Run<&ControlCommands::TellPower>,
         "two bytes, 1 for on: what was ordered, and what is"},
        {4, 6, "baud rate", 1, 0, kUnlogged, Run<&ControlCommands::Keep>,
         "keeps the code of the baud rate; the line stays as it is"},
        {4, 7, "brightness", 2, 0, kLogged, Run<&ControlCommands::SetBrightness>,
         "[brightness](#brightness) of the front in byte 0; the back, byte 1, is kept"},
        {4, 8, "set Ethernet check", 2, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps 2 bytes"},
        {4, 9, "get Ethernet check", 0, 0, kUnlogged, Run<&ControlCommands::Give, 2>, "gives them back"},
        {4, 10, "set beacons", 8, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps 8 bytes"},
        {4, 11, "get beacons", 0, 0, kUnlogged, Run<&ControlCommands::Give, 8>, "gives them back"},
        {4, 13, "commit status", 2, 0, kUnlogged, Run<&ControlCommands::AskOrSet, 4>,
         "byte 0 is 0 to ask, else byte 1 is the new state. The answer begins with the state"},
        {4, 19, "online or offline", 1, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps a byte"},
        {4, 21, "brightness of the sides", 8, 0, kLogged, Run<&ControlCommands::SetBrightness>,
         "[brightness](#brightness) of the front in byte 0; those of the other sides are kept"},
        {4, 26, "set sign beacon", 8, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps 8 bytes"},
        {4, 27, "get sign beacon", 0, 0, kUnlogged, Run<&ControlCommands::Give, 8>, "gives them back"},
        {4, 28, "set external equipment", 8, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps 8 bytes"},
        {4, 29, "get external equipment", 0, 0, kUnlogged, Run<&ControlCommands::Give, 8>, "gives them back"},
        {4, 32, "generator", 2, 0, kUnlogged, Run<&ControlCommands::AskOrSet, 8>, "as commit status"},
        {4, 36, "set LCS", 1, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps a byte"},
        {4, 37, "get LCS", 0, 0, kUnlogged, Run<&ControlCommands::Give, 1>, "gives it back"},
        {4, 38, "voice", 2, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps 2 bytes and the data"},
        {17, 1, "set FH", 2, 0, kUnlogged, Run<&ControlCommands::Keep>, "keeps 2 bytes"},
        {17, 2, "get FH", 0, 0, kUnlogged, Run<&ControlCommands::Give, 2>, "gives them back"},
    };
    return kRows;
}

void ControlCommands::Restart(std::uint64_t, bool isCold)
{
    if (isCold)
        kept.clear();
}

std::span<const std::uint8_t> ControlCommands::Kept(std::uint8_t minor) const
{
    const auto value = kept.find({4, minor});
    return value == kept.end() ? std::span<const std::uint8_t>() : value->second;
}

Reply ControlCommands::SetBlack(const Call&, bool isBlack)
{
    const bool changed = light.IsBlack() != isBlack;
    light.SetBlack(isBlack);
    if (changed)
        observers.Tell(&SignEvents::blackScreenChanged, isBlack);
    return Reply::Done();
}

Reply ControlCommands::Switch(const Call&, bool isOn)
{
    light.Switch(isOn);
    return Reply::Done();
}

// What was ordered, and what the supply makes of it.
Reply ControlCommands::TellPower(const Call&)
{
    return Reply::WithPayload(std::array<std::uint8_t, 4>{light.IsOn(), light.IsOn()});
}

// The back of the sign and further sides are not drawn, so only the front's level counts.
Reply ControlCommands::SetBrightness(const Call& call)
{
    light.SetLevel(call.payload[0]);
    return Keep(call);
}

// As many bytes of the payload as the command needs, and the data.
Reply ControlCommands::Keep(const Call& call)
{
    const auto bytes = call.payload.first(call.row.leastPayload);
    auto& value = kept[{call.major, call.minor}];
    value.assign(bytes.begin(), bytes.end());
    value.insert(value.end(), call.extended.begin(), call.extended.end());
    return Reply::Done();
}

// What the command before this one has set.
Reply ControlCommands::Give(const Call& call, std::size_t size)
{
    const auto known = kept.find({call.major, static_cast<std::uint8_t>(call.minor - 1)});
    std::vector<std::uint8_t> value = known == kept.end() ? std::vector<std::uint8_t>() : known->second;
    value.resize(size);
    return Reply::WithPayload(value);
}

// One command that asks, with 0 in byte 0, and that sets, to byte 1. Both are answered with the state.
Reply ControlCommands::AskOrSet(const Call& call, std::size_t size)
{
    auto& state = kept[{call.major, call.minor}];
    if (call.payload[0] != 0)
        state = {call.payload[1]};
    std::vector<std::uint8_t> record = state;
    record.resize(size);
    return Reply::WithPayload(record);
}

} // namespace vxsim

#include "sim/play/testCommands.h"

#include "sim/protocol/bytes.h"

#include <array>
#include <utility>

namespace vxsim {
namespace {

constexpr std::size_t kCrayonSize = 6;
constexpr std::size_t kMostModules = 1024;

ColourTest ColourAt(std::span<const std::uint8_t> payload, std::size_t at)
{
    return {payload[at], payload[at + 1], payload[at + 2]};
}

LocationTest LocationOf(const Call& call)
{
    const auto field = [&](std::size_t index) { return Load16(call.payload, 2 * index); };
    LocationTest test{field(0), field(1), field(2), field(3), field(4), {}};
    for (std::size_t at = 0; at + 1 < call.extended.size() && test.numbers.size() < kMostModules; at += 2)
        test.numbers.push_back(Load16(call.extended, at));
    return test;
}

} // namespace

std::span<const CommandRow> TestCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {3, 1, "connect test", 0, 0, kUnlogged, Run<&TestCommands::ConnectTest>,
         "width and height of the face (16 bits each), and how many of these tests there were (32 bits)"},
        {3, 9, "stop test", 0, 0, kLogged, Run<&TestCommands::Stop>, "ends the test that is shown"},
        {3, 10, "crayon test", kCrayonSize, 0, kUnlogged, Run<&TestCommands::KeepCrayonState>,
         "keeps the crayon state"},
        {3, 11, "colour test", 16, 0, kUnlogged, Run<&TestCommands::ShowColour>, "shows a colour until it is stopped"},
        {3, 13, "area test", 24, 0, kUnlogged, Run<&TestCommands::ShowArea>, "shows an area until it is stopped"},
        {3, 16, "location test", 16, 0, kUnlogged, Run<&TestCommands::ShowLocation>,
         "shows numbered modules until it is stopped"},
        {3, 48, "debug settings", 4, 0, kUnlogged, Run<&TestCommands::KeepDebugSettings>, "keeps the debug settings"},
        {3, 49, "stability test", 0, 0, kUnlogged, Run<&TestCommands::Done>, "is done whatever the bytes"},
        {3, Minors(2, 15), "pattern test", 0, 0, kUnlogged, Run<&TestCommands::ShowPattern>,
         "without payload: shows a pattern until it is stopped"},
    };
    return kRows;
}

Reply TestCommands::Start(FaceTest test, std::uint64_t nowMs)
{
    running = std::move(test);
    startedMs = nowMs;
    return Reply::Done();
}

Reply TestCommands::Stop(const Call&)
{
    running = {};
    return Reply::Done();
}

// Some of these minors are a test of their own with a payload.
Reply TestCommands::ShowPattern(const Call& call)
{
    return call.payload.empty() ? Start(PatternTest{call.minor}, call.nowMs) : Reply::WithCode(Code::kBadLength);
}

Reply TestCommands::ShowColour(const Call& call)
{
    return Start(ColourAt(call.payload, 0), call.nowMs);
}

Reply TestCommands::ShowArea(const Call& call)
{
    const auto field = [&](std::size_t index) { return Load16(call.payload, 2 * index); };
    return Start(AreaTest{field(0), field(1), field(2), field(3), ColourAt(call.payload, 8)}, call.nowMs);
}

Reply TestCommands::ShowLocation(const Call& call)
{
    return Start(LocationOf(call), call.nowMs);
}

Reply TestCommands::KeepCrayonState(const Call& call)
{
    crayonState.assign(call.payload.begin(), call.payload.begin() + kCrayonSize);
    return Reply::Done();
}

Reply TestCommands::KeepDebugSettings(const Call& call)
{
    debugSettings = Load32(call.payload, 0);
    return Reply::Done();
}

Reply TestCommands::ConnectTest(const Call&)
{
    std::array<std::uint8_t, 8> record{};
    Store16(record, 0, static_cast<std::uint16_t>(faceWidth));
    Store16(record, 2, static_cast<std::uint16_t>(faceHeight));
    Store32(record, 4, ++connectTests);
    return Reply::WithPayload(record);
}

} // namespace vxsim

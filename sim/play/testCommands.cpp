#include "sim/play/testCommands.h"

#include "sim/protocol/bytes.h"

#include <array>
#include <utility>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kConnect = 1,
    kFirstPattern = 2,
    kStop = 9,
    kCrayon = 10,
    kColour = 11,
    kArea = 13,
    kLastPattern = 15,
    kLocation = 16,
    kDebugSettings = 48,
    kStability = 49
};

constexpr std::size_t kCrayonSize = 6;
constexpr std::size_t kColourSize = 16;
constexpr std::size_t kAreaSize = 24;
constexpr std::size_t kLocationSize = 16;
constexpr std::size_t kMostModules = 1024;

// Null if the minor is a pattern and nothing else.
std::size_t PayloadSize(std::uint8_t minor)
{
    switch (minor) {
    case kCrayon:
        return kCrayonSize;
    case kColour:
        return kColourSize;
    case kArea:
        return kAreaSize;
    case kLocation:
        return kLocationSize;
    case kDebugSettings:
        return 4;
    default:
        return 0;
    }
}

ColourTest ColourAt(std::span<const std::uint8_t> payload, std::size_t at)
{
    return {payload[at], payload[at + 1], payload[at + 2]};
}

LocationTest LocationOf(const Frame& request)
{
    const auto field = [&](std::size_t index) { return Load16(request.payload, 2 * index); };
    LocationTest test{field(0), field(1), field(2), field(3), field(4), {}};
    for (std::size_t at = 0; at + 1 < request.extended.size() && test.numbers.size() < kMostModules; at += 2)
        test.numbers.push_back(Load16(request.extended, at));
    return test;
}

} // namespace

Reply TestCommands::Execute(const Frame& request, std::uint64_t nowMs)
{
    const std::uint8_t minor = request.minor;
    if (minor == kStop) {
        Stop();
        return Reply::Done();
    }
    // Some minors are a test of their own with a payload, and one of the patterns without.
    if (minor >= kFirstPattern && minor <= kLastPattern && request.payload.empty())
        return Start(PatternTest{minor}, nowMs);
    if (request.payload.size() < PayloadSize(minor))
        return Reply::WithCode(Code::kBadLength);
    switch (minor) {
    case kConnect:
        return ConnectTest();
    case kCrayon:
        crayonState.assign(request.payload.begin(), request.payload.begin() + kCrayonSize);
        return Reply::Done();
    case kColour:
        return Start(ColourAt(request.payload, 0), nowMs);
    case kArea:
        return Start(AreaTest{Load16(request.payload, 0), Load16(request.payload, 2), Load16(request.payload, 4),
                              Load16(request.payload, 6), ColourAt(request.payload, 8)},
                     nowMs);
    case kLocation:
        return Start(LocationOf(request), nowMs);
    case kDebugSettings:
        debugSettings = Load32(request.payload, 0);
        return Reply::Done();
    case kStability: // any bytes: what counts is that they arrive
        return Reply::Done();
    default:
        return Reply::WithCode(minor >= kFirstPattern && minor <= kLastPattern ? Code::kBadLength
                                                                               : Code::kUnknownMinor);
    }
}

Reply TestCommands::Start(FaceTest test, std::uint64_t nowMs)
{
    running = std::move(test);
    startedMs = nowMs;
    return Reply::Done();
}

Reply TestCommands::ConnectTest()
{
    std::array<std::uint8_t, 8> record{};
    Store16(record, 0, static_cast<std::uint16_t>(faceWidth));
    Store16(record, 2, static_cast<std::uint16_t>(faceHeight));
    Store32(record, 4, ++connectTests);
    return Reply::WithPayload(record);
}

} // namespace vxsim

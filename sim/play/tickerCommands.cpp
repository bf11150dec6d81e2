#include "sim/play/tickerCommands.h"

#include "sim/files/limits.h"
#include "sim/protocol/bytes.h"

#include <algorithm>

namespace vxsim {
namespace {

constexpr std::uint64_t kSpeedStep = 10; // pixels a second
constexpr std::uint8_t kOwnSpeed = 6;
constexpr unsigned kByteWidth = 8;
constexpr std::size_t kUploadSize = 8;
constexpr std::size_t kMostText = 16384;
constexpr std::size_t kOnTheWay = 2; // buffers that show; the third receives

} // namespace

std::span<const CommandRow> TickerCommands::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {8, 1, "start ticker", 4, 0, kLogged, Run<&TickerCommands::Start, Mode::kOnline>,
         "shows what is uploaded from now on, see [tickers](#tickers)"},
        {8, 2, "stop ticker", 0, 0, kLogged, Run<&TickerCommands::Stop>, "ends the ticker"},
        {8, 3, "ticker status", 0, 0, kUnlogged, Run<&TickerCommands::TellStatus>,
         "the buffer that is ready, as a code"},
        {8, 4, "upload to ticker", 0, 0, kUnlogged, Run<&TickerCommands::Upload>, "takes a chunk of a text"},
        {9, 1, "start offline ticker", 4, 0, kLogged, Run<&TickerCommands::Start, Mode::kOffline>,
         "repeats the last three texts. Byte 3 is the number of rounds, 0 for no end"},
        {9, 2, "stop offline ticker", 0, 0, kLogged, Run<&TickerCommands::Stop>, "ends the ticker"},
    };
    return kRows;
}

// Speed, font, colour, and for the offline ticker the number of rounds.
Reply TickerCommands::Start(const Call& call, Mode wanted)
{
    mode = wanted;
    pixelsPerSecond = kSpeedStep * (call.payload[0] != 0 ? call.payload[0] : kOwnSpeed);
    style = {call.payload[1], call.payload[2]};
    startedMs = call.nowMs;
    band.clear();
    receiving.clear();
    received = 0;
    if (mode == Mode::kOnline) {
        uploads = 0;
        return Reply::Done();
    }
    rounds = call.payload[3];
    for (std::size_t i = 0; i < buffers.size(); ++i)
        Append(buffers[(uploads + 2 + i) % buffers.size()], 0); // the oldest first
    return Reply::Done();
}

Reply TickerCommands::Stop(const Call&)
{
    mode = Mode::kStopped;
    return Reply::Done();
}

void TickerCommands::Append(std::string text, std::uint64_t from)
{
    const std::uint64_t begin = band.empty() ? from : std::max(band.back().end, from);
    const std::size_t wide = measure ? measure(text, style) : text.size() * kByteWidth;
    band.push_back({std::move(text), begin, begin + wide});
}

std::uint64_t TickerCommands::Moved(std::uint64_t nowMs) const
{
    return (nowMs - std::min(nowMs, startedMs)) * pixelsPerSecond / 1000;
}

// From one round of the offline ticker to the next: all texts have left the face.
std::uint64_t TickerCommands::BandLength() const
{
    return (band.empty() ? 0 : band.back().end) + static_cast<std::uint64_t>(width);
}

bool TickerCommands::IsRunning(std::uint64_t nowMs) const
{
    if (mode == Mode::kOffline && rounds != 0)
        return Moved(nowMs) < BandLength() * rounds;
    return mode != Mode::kStopped;
}

std::vector<TickerText> TickerCommands::Shown(std::uint64_t nowMs) const
{
    const std::uint64_t moved = mode == Mode::kOffline ? Moved(nowMs) % BandLength() : Moved(nowMs);
    std::vector<TickerText> shown;
    for (const Piece& piece : band) {
        if (IsRunning(nowMs) && piece.begin < moved && moved < piece.end + static_cast<std::uint64_t>(width))
            shown.push_back({piece.text, width + static_cast<std::int64_t>(piece.begin - moved)});
    }
    return shown;
}

// Texts that have not yet left the face; the others are dropped.
std::size_t TickerCommands::Pending(std::uint64_t nowMs)
{
    const std::uint64_t moved = Moved(nowMs);
    while (!band.empty() && moved >= band.front().end + static_cast<std::uint64_t>(width))
        band.pop_front();
    return band.size();
}

// The buffers receive in turn, the third first.
Reply TickerCommands::TellStatus(const Call& call)
{
    constexpr Code kReady[] = {Code::kBuffer3Ready, Code::kBuffer1Ready, Code::kBuffer2Ready};
    if (mode != Mode::kOnline)
        return Reply::WithCode(Code::kNoTicker);
    if (Pending(call.nowMs) > kOnTheWay)
        return Reply::WithCode(Code::kBufferFull);
    return Reply::WithCode(kReady[uploads % buffers.size()]);
}

Reply TickerCommands::Upload(const Call& call)
{
    if (mode != Mode::kOnline)
        return Reply::WithCode(Code::kNoTicker);
    if (call.payload.size() < kUploadSize)
        return Reply::WithCode(Code::kBadTickerData);
    const std::uint32_t size = Load16(call.payload, 0);
    const std::uint32_t count = Load16(call.payload, 2);
    const std::uint32_t number = Load16(call.payload, 4);
    const std::size_t got = call.extended.size();
    if (!IsChunkSize(size) || number == 0 || number > count || got == 0 || got > size || (number < count && got < size))
        return Reply::WithCode(Code::kBadTickerData);
    // The answer to a chunk was lost, and it has come again.
    if (number > 1 && number == received)
        return Reply::Done();
    if (number == 1) {
        if (Pending(call.nowMs) > kOnTheWay)
            return Reply::WithCode(Code::kBufferFull);
        receiving.clear();
        received = 0;
    }
    if (number != received + 1 || receiving.size() + got > kMostText)
        return Reply::WithCode(Code::kBadTickerData);
    receiving.insert(receiving.end(), call.extended.begin(), call.extended.end());
    received = number;
    if (number < count)
        return Reply::Done();
    std::string text(receiving.begin(), receiving.end());
    receiving.clear();
    buffers[(uploads + 2) % buffers.size()] = text;
    ++uploads;
    Append(std::move(text), Moved(call.nowMs));
    return Reply::Done();
}

} // namespace vxsim

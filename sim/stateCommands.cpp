#include "sim/protocol/bytes.h"
#include "sim/virtualSign.h"

#include <algorithm>
#include <string_view>

// The sign's condition and its logs: what it does of itself, and what hosts ask of it.
namespace vxsim {
namespace {

constexpr std::uint16_t kLogDatabase = 1;

} // namespace

SignMoment VirtualSign::MomentAt(std::uint64_t nowMs) const
{
    return {nowMs, time.Clock().At(nowMs), Light(nowMs), control.IsOn(), IsDark(nowMs), time.LastWeather()};
}

void VirtualSign::KeepUp(std::uint64_t nowMs)
{
    monitor.KeepUp(MomentAt(nowMs));
    pixelCheck.KeepUp(monitor.Now(), time.Clock(), nowMs);
    tiles.KeepUp(monitor.TilesAt(MomentAt(nowMs)));
    if (traffic) {
        const SignState state = monitor.State(MomentAt(nowMs));
        traffic->KeepUp({static_cast<std::int8_t>(state.word[1]), static_cast<std::int8_t>(state.word[2])},
                        monitor.IsAlarmed(), nowMs);
    }
}

const TileWall& VirtualSign::Tiles(std::uint64_t nowMs)
{
    tiles.KeepUp(monitor.TilesAt(MomentAt(nowMs)));
    return tiles.Wall();
}

void VirtualSign::NotePlay(const std::string& signPath, std::uint64_t beginMs, std::uint64_t nowMs)
{
    log.Play(play.ListName(), signPath, (nowMs - std::min(nowMs, beginMs) + 500) / 1000, time.Clock().At(beginMs));
}

Reply VirtualSign::ReadState(std::uint64_t nowMs) const
{
    const SignState state = monitor.State(MomentAt(nowMs));
    return {0, {state.word.begin(), state.word.end()}, {state.record.begin(), state.record.end()}};
}

// The number of rows, 16 bits, and the rows.
Reply VirtualSign::QueryDatabase(const Frame& request)
{
    if (request.payload.size() < 4 || request.extended.empty())
        return Reply::WithCode(Code::kBadLength);
    if (Load16(request.payload, 0) != kLogDatabase)
        return Reply::WithCode(Code::kNotSupported);
    const auto page = database.Query({reinterpret_cast<const char*>(request.extended.data()), request.extended.size()});
    if (page.code != Code::kOk)
        return Reply::WithCode(page.code);
    Reply reply{0, std::vector<std::uint8_t>(4), {page.text.begin(), page.text.end()}};
    Store16(reply.payload, 0, page.rows);
    return reply;
}

} // namespace vxsim

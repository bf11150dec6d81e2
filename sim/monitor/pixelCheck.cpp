#include "sim/monitor/pixelCheck.h"

#include "sim/files/storedRecord.h"

#include <algorithm>
#include <map>

namespace vxsim {
namespace {

// Of the lamps; beyond it the summary names no boards any more.
constexpr std::size_t kTooManyPart = 10;

} // namespace

PixelCheck::PixelCheck(const Drives& signDrives, SignDatabase& tables, const Monitor& watch, const SignClock& signClock,
                       int width, int height)
    : drives(signDrives), database(tables), monitor(watch), clock(signClock), tiles(width, height),
      lamps(3 * static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
{
}

std::span<const CommandRow> PixelCheck::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {16, 1, "begin pixel check", 0, 0, kLogged, Run<&PixelCheck::Begin>,
         "begins the [pixel check](#pixel-check), if none runs"},
        {16, 3, "pixel check progress", 0, 0, kUnlogged, Run<&PixelCheck::TellProgress>,
         "its progress in percent, 100 when none runs"},
    };
    return kRows;
}

Reply PixelCheck::Execute(const Call& call)
{
    KeepUp(call.nowMs);
    return CommandFamily::Execute(call);
}

// The request may come twice.
Reply PixelCheck::Begin(const Call& call)
{
    if (!startedMs)
        startedMs = call.nowMs;
    return Reply::Done();
}

Reply PixelCheck::TellProgress(const Call& call)
{
    const std::uint8_t percent = Percent(call.nowMs);
    return Reply::WithPayload({&percent, 1});
}

std::uint8_t PixelCheck::Percent(std::uint64_t nowMs) const
{
    const std::uint64_t elapsed = startedMs ? nowMs - std::min(nowMs, *startedMs) : kDurationMs;
    return static_cast<std::uint8_t>(std::min(elapsed, kDurationMs) * 100 / kDurationMs);
}

void PixelCheck::KeepUp(std::uint64_t nowMs)
{
    if (!startedMs || Percent(nowMs) < 100)
        return;
    startedMs.reset();
    WriteResults(monitor.Now(), TimeText(clock.At(nowMs)));
}

void PixelCheck::WriteResults(const Condition& condition, const std::string& time)
{
    // Hosts pass over the first line, which is there for people.
    std::string pixelLines = "No,X,Y,Lamp,Status,Time\n";
    std::string signalLines = "No,X,Y,Status,Time\n";
    std::vector<SignDatabase::Row> pixelRows;
    std::vector<SignDatabase::Row> signalRows;
    for (const auto& [place, fault] : condition.badLamps) {
        const bool signal = fault == LampFault::kSignal;
        const std::string where = std::to_string(place.x) + "," + std::to_string(place.y);
        const std::string text = std::string(LampName(place.lamp)) + (signal ? " Signal Bad" : " Pixel Bad");
        std::string tail = ",\"";
        tail.append(text).append("\",\"").append(time).append("\"\n");
        auto& rows = signal ? signalRows : pixelRows;
        rows.push_back({std::int64_t{place.x}, std::int64_t{place.y}, text, time});
        std::string& lines = signal ? signalLines : pixelLines;
        lines.append(std::to_string(rows.size())).append(",").append(where);
        if (!signal)
            lines.append(",").append(std::to_string(static_cast<int>(place.lamp) + 1));
        lines.append(tail);
    }
    WriteFile("D:\\PXL.CSV", pixelLines);
    WriteFile("D:\\SIGNAL.CSV", signalLines);
    WriteFile("C:\\PIXEL.SYS", Summary(condition));
    database.Replace("PixelStatus", pixelRows);
    database.Replace("PixelSignalErr", signalRows);
}

// Boards are the tiles, by column and row; a port serves one row of tiles, counted from 1.
std::string PixelCheck::Summary(const Condition& condition) const
{
    if (condition.badLamps.empty())
        return "ALL OK\n";
    if (condition.badLamps.size() > lamps / kTooManyPart)
        return "Too many bad\n";
    std::map<int, int> ports;
    std::map<int, int> boards;
    for (const auto& [place, fault] : condition.badLamps) {
        const int board = tiles.At(place.x, place.y);
        if (fault == LampFault::kSignal)
            ++ports[tiles.RowOf(board) + 1];
        else
            ++boards[board];
    }
    std::string text;
    for (const auto& [port, count] : ports)
        text += "Port:" + std::to_string(port) + " Signal Error\n";
    for (const auto& [board, count] : boards)
        text += "Board(" + std::to_string(tiles.ColumnOf(board)) + "," + std::to_string(tiles.RowOf(board)) +
                ") have " + std::to_string(count) + " pixel bad\n";
    return text;
}

void PixelCheck::WriteFile(const char* signPath, const std::string& text) const
{
    if (const auto file = drives.Resolve(signPath))
        ReplaceFile(*file, {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()});
}

} // namespace vxsim

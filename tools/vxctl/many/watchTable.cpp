// Lays out what watch has read.
#include "vxctl/many/watchTable.h"

#include <vxsign/result.h>

#include <algorithm>
#include <numeric>

namespace vxctl {

namespace {

enum Column : std::size_t
{
    kState,
    kPlaying,
    kInside,
    kHottest,
    kWarnings,
    kCells
};

std::string Degrees(const Report::Json& measured, const char* key)
{
    return std::to_string(measured[key].get<int>()) + " C";
}

// Of what vxctl itself has put there.
TextRow CellsOf(const Report::Json& values)
{
    TextRow cells(kCells);
    for (const Report::Json& name : values["state"])
        cells[kState].append(cells[kState].empty() ? "" : ", ").append(Words(name.get<std::string>()));
    if (cells[kState].empty())
        cells[kState] = "well";
    cells[kPlaying] = values["playing"].is_string() ? values["playing"].get<std::string>() : "nothing";
    cells[kInside] = Degrees(values["measured"], "insideC");
    cells[kHottest] = Degrees(values["measured"], "hottestTileC");
    cells[kWarnings] = values.contains("warnings") ? std::to_string(values["warnings"].size()) : "?";
    return cells;
}

// So many characters of UTF-8 at most.
Shown Cut(std::string_view line, std::size_t most)
{
    std::size_t at = 0;
    for (std::size_t count = 0; at < line.size(); ++at) {
        const bool isFirst = (static_cast<unsigned char>(line[at]) & 0xC0U) != 0x80U;
        if (isFirst && count++ == most)
            break;
    }
    return line.substr(0, at);
}

} // namespace

void WatchTable::Take(std::size_t which, const Outcome& outcome, Clock::time_point now)
{
    Reading& reading = readings[which];
    if (outcome.result != VX_OK) {
        reading.fault = outcome.isRefused ? outcome.reason : vxErrorDesc(outcome.result);
        return;
    }
    const Report::Json& values = outcome.values;
    reading = {CellsOf(values), "", values["stateCode"] == 0 && values.value("warnings", Report::Json()).empty(), true,
               now};
}

WatchTable::Rank WatchTable::RankOf(std::size_t which) const
{
    const Reading& reading = readings[which];
    if (reading.fault.empty() && !reading.isThere)
        return Rank::kUnknown;
    return reading.fault.empty() && reading.isWell ? Rank::kWell : Rank::kWrong;
}

bool WatchTable::HasFailed() const
{
    return std::ranges::any_of(readings, [](const Reading& reading) { return !reading.fault.empty(); });
}

std::string WatchTable::Line(std::size_t which) const
{
    const auto& [cells, fault, isWell, isThere, when] = readings[which];
    if (!fault.empty())
        return signs[which].name + ": " + fault;
    return signs[which].name + ": " + cells[kState] + ", plays " + cells[kPlaying] + ", " + cells[kInside] +
           " inside, hottest tile " + cells[kHottest] + ", warnings " + cells[kWarnings];
}

TextRow WatchTable::RowOf(std::size_t which, Clock::time_point now) const
{
    const Reading& reading = readings[which];
    TextRow row = reading.isThere ? reading.cells : TextRow(kCells);
    if (!reading.fault.empty())
        row[kState] = reading.fault;
    row.insert(row.begin(), signs[which].name);
    const auto age = std::chrono::duration_cast<std::chrono::seconds>(now - reading.when);
    row.push_back(reading.isThere ? std::to_string(age.count()) + " s" : "");
    return row;
}

std::vector<Shown> WatchTable::Lines(const ScreenSize& screen, Clock::time_point now) const
{
    constexpr std::size_t kOthers = 3; // lines: the head, what is left out, the cursor
    std::vector<std::size_t> order(signs.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t room = screen.rows > kOthers ? screen.rows - kOthers : 1;
    if (order.size() > room)
        std::ranges::stable_sort(order, {}, [this](std::size_t which) { return RankOf(which); });
    const std::vector<std::size_t> hidden(order.begin() + static_cast<std::ptrdiff_t>(std::min(order.size(), room)),
                                          order.end());
    order.resize(order.size() - hidden.size());

    TextTable table({{"sign"}, {"state"}, {"plays"}, {"inside"}, {"hottest"}, {"warnings"}, {"age"}});
    for (const std::size_t which : order)
        table.Add(RowOf(which, now));
    std::string text;
    Report report;
    report.KeepLines(text);
    table.Show(report, "signs");

    std::vector<Shown> lines;
    for (const std::string_view line : Split(text, '\n')) {
        const bool isWrong = !lines.empty() && RankOf(order[lines.size() - 1]) == Rank::kWrong;
        lines.push_back(Toned(Cut(line, screen.columns), isWrong ? Tone::kWrong : Tone::kPlain));
    }
    if (!hidden.empty()) {
        const auto wrong =
            std::ranges::count_if(hidden, [this](std::size_t which) { return RankOf(which) == Rank::kWrong; });
        const std::string more = "and " + std::to_string(hidden.size()) + " more";
        lines.push_back(
            Cut(wrong == 0 ? more : more + ", of which " + std::to_string(wrong) + " are not well", screen.columns));
    }
    return lines;
}

} // namespace vxctl

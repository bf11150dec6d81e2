// watch: how signs are, again and again.
#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/jsonText.h"
#include "vxctl/cli/tables.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/many/account.h"
#include "vxctl/many/pool.h"
#include "vxctl/many/watchTable.h"
#include "vxctl/state/condition.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <limits>
#include <memory>
#include <optional>
#include <thread>

namespace vxctl {

namespace {

using Clock = std::chrono::steady_clock;

const Command kLook{.name = "watch", .help = "", .run = ShowBriefly};

// Looks at each sign when it is time, on the threads of a pool. A sign that has not answered by then is left out for
// once, and nobody waits for it.
class Looks
{
public:
    Looks(const std::vector<Target>& all, std::chrono::seconds between)
        : signs(all), every(between), underWay(all.size())
    {
    }

    // Nothing for a sign that is left out, or when it is over.
    Outcome Next(std::size_t which)
    {
        const std::size_t sign = which % signs.size();
        const auto due = started + every * (which / signs.size());
        while (Clock::now() < due && !IsAborted())
            std::this_thread::sleep_for(std::min<Clock::duration>(due - Clock::now(), std::chrono::milliseconds(50)));
        if (IsAborted() || underWay[sign].exchange(true))
            return {};
        Outcome outcome = RunOn(signs[sign].options, look);
        underWay[sign] = false;
        return outcome;
    }

private:
    const std::vector<Target> signs;
    const std::chrono::seconds every;
    const Order look{kLook, {}};
    const Clock::time_point started = Clock::now();
    std::vector<std::atomic<bool>> underWay;
};

// Shows what has come: as a table on a terminal, else in lines.
class Watch
{
public:
    Watch(const std::vector<Target>& all, const Report& target) : signs(all), report(target), table(all) {}

    void Take(const std::vector<Pool::Ended>& news)
    {
        for (const auto& [which, outcome] : news) {
            if (!outcome.values.is_null() && outcome.result != VX_ABORTED)
                Take(which % signs.size(), outcome);
        }
        const auto now = Clock::now();
        const auto pause = std::chrono::milliseconds(news.empty() ? 1000 : 200);
        if (const auto screen = report.IsJson() ? std::nullopt : SizeOfScreen(); screen && now - drawn >= pause)
            Draw(*screen, now);
        else if (!screen)
            Flush();
    }

    void Close()
    {
        if (const auto screen = report.IsJson() ? std::nullopt : SizeOfScreen())
            Draw(*screen, Clock::now());
    }

    bool HasFailed() const { return table.HasFailed(); }

private:
    void Take(std::size_t which, const Outcome& outcome)
    {
        table.Take(which, outcome, Clock::now());
        if (report.IsJson())
            PrintLine(Stream::kOut, JsonText(ObjectOf("watch", signs[which], outcome)));
        else if (!SizeOfScreen())
            PrintLine(Stream::kOut, FormatTime(LocalTime(), ' ', true) + "  " + table.Line(which));
    }

    void Draw(const ScreenSize& screen, Clock::time_point now)
    {
        const std::vector<Shown> lines = table.Lines(screen, now);
        DrawScreen(lines, onScreen);
        onScreen = lines.size();
        drawn = now;
    }

    const std::vector<Target>& signs;
    const Report& report;
    WatchTable table;
    std::size_t onScreen = 0; // lines
    Clock::time_point drawn{};
};

std::uint32_t WatchSigns(Session& session, const Args& args)
{
    constexpr auto kGlance = std::chrono::milliseconds(100);
    for (const Target& sign : session.signs)
        ParseSignUrl(sign.options.url);
    AbortOnInterrupt();
    const std::size_t rounds = args.Number<std::size_t>("--count", std::numeric_limits<std::uint32_t>::max());
    const auto looks = std::make_shared<Looks>(session.signs, std::chrono::seconds(args.Number("--every")));
    Watch watch(session.signs, session.report);
    Pool pool(session.signs.size() * rounds, std::min(session.signs.size(), args.Number<std::size_t>("--jobs")),
              [looks](std::size_t which) { return looks->Next(which); });
    do
        watch.Take(pool.Take(kGlance));
    while (!pool.IsOver());
    watch.Close();
    session.report.EndsInLines();
    if (watch.HasFailed())
        session.exitStatus = kExitSome;
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "watch",
        .help = "Watch how signs are: state, what plays, temperature, warnings",
        .details =
            R"(A table that is drawn anew as signs answer; where it has no room for all, those that are not well come first. Age is that
of the last answer. In a file or a pipe each look is a line, with --json an object. Ctrl-C ends it. The exit status is 3
when some sign did not answer at the end.)",
        .examples = R"(vxctl -s all watch
vxctl -s group:a7-north watch --every 30
vxctl -s all --json watch -n 1 | jq -r 'select(.warnings != []) | .signName')",
        .arguments = {Number("--every", 1, 86400, "from one look at a sign to the next").In("SECONDS").Default("5"),
                      Number("-n,--count", 1, 1000000, "looks at each sign, otherwise without end").In("COUNT")},
        .line = Line::kOwn,
        .signs = Signs::kTogether,
        .run = WatchSigns,
    },
};

} // namespace

const CommandTable kWatchCommands{"State", kCommands};

} // namespace vxctl

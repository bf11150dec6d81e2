// The latest of each sign that is watched, as a table.
#pragma once

#include "vxctl/cli/shown.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/cli/textTable.h"
#include "vxctl/many/pool.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace vxctl {

class WatchTable
{
public:
    using Clock = std::chrono::steady_clock;

    // The signs live longer than this.
    explicit WatchTable(const std::vector<Target>& all) : signs(all), readings(all.size()) {}

    void Take(std::size_t which, const Outcome& outcome, Clock::time_point now);

    // As many lines as the screen has, none wider. Where there are more signs, those that are not well come first.
    std::vector<Shown> Lines(const ScreenSize& screen, Clock::time_point now) const;

    // A sign in one line.
    std::string Line(std::size_t which) const;

    // Whether some sign has failed at its last look.
    bool HasFailed() const;

private:
    // What a sign told last: it stays when the sign falls silent.
    struct Reading
    {
        TextRow cells;
        std::string fault; // of the last look; empty when it went well
        bool isWell = false;
        bool isThere = false; // a look went well
        Clock::time_point when;
    };

    // What deserves a look, the most urgent first.
    enum class Rank
    {
        kWrong,
        kUnknown, // not looked at so far
        kWell
    };
    Rank RankOf(std::size_t which) const;
    TextRow RowOf(std::size_t which, Clock::time_point now) const;

    const std::vector<Target>& signs;
    std::vector<Reading> readings;
};

} // namespace vxctl

// What becomes of many signs, for people and programs, as it comes.
#pragma once

#include "vxctl/cli/shown.h"
#include "vxctl/many/pool.h"

#include <chrono>
#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

class Account
{
public:
    // Both live longer than this.
    Account(const Order& order, const std::vector<Target>& signs);

    // Prints them, and how far it is where standard error is a terminal.
    void Take(const std::vector<Pool::Ended>& ended);

    // The sum of it all, what failed and why; writes the file of --retry-failed. Gives the exit status.
    int Close(std::size_t begun);

private:
    void PrintObject(const Target& sign, const Outcome& outcome) const;
    void DrawProgress();
    std::string Sum(std::size_t begun) const;
    std::vector<std::string> Missing() const;

    const Order& order;
    const std::vector<Target>& signs;
    const bool json;
    const bool drawsProgress;
    const std::chrono::steady_clock::time_point started = std::chrono::steady_clock::now();
    std::chrono::steady_clock::time_point drawn = started;
    std::vector<bool> isDone;
    std::size_t ended = 0;
    std::size_t done = 0;
    std::size_t aborted = 0;
    std::vector<std::string> failures;
};

// The object of one of many signs.
Report::Json ObjectOf(std::string_view command, const Target& sign, const Outcome& outcome);

// Why it failed, in one line.
std::string WhyOf(const Outcome& outcome);

// Its lines behind its name.
void PrintLines(const Target& sign, const Outcome& outcome);

} // namespace vxctl

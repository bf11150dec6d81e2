// Prints what becomes of many signs.
#include "vxctl/many/account.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/jsonText.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/many/targets.h"
#include "vxctl/platform/console.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>

namespace vxctl {

namespace {

using SteadyClock = std::chrono::steady_clock;

constexpr std::size_t kMostTold = 100; // failures at the end: each was told when it came
constexpr auto kDrawEvery = std::chrono::milliseconds(100);

std::string Seconds(SteadyClock::time_point since)
{
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f s",
                  std::chrono::duration<double>(SteadyClock::now() - since).count());
    return text.data();
}

std::string Of(std::size_t count, std::size_t all)
{
    return std::to_string(count) + " of " + std::to_string(all);
}

} // namespace

Report::Json ObjectOf(std::string_view command, const Target& sign, const Outcome& outcome)
{
    Report::Json object = {{"command", command}, {"sign", sign.options.url}, {"signName", sign.name}};
    object.update(JsonResult(outcome.result, outcome.reason, outcome.advice));
    object.update(outcome.values);
    return object;
}

std::string WhyOf(const Outcome& outcome)
{
    if (outcome.isRefused)
        return outcome.reason;
    if (outcome.result == VX_OK) {
        const bool isOneLine = std::ranges::count(outcome.lines, '\n') == 1;
        return isOneLine ? outcome.lines.substr(0, outcome.lines.size() - 1)
                         : "exit status " + std::to_string(outcome.status);
    }
    const std::string& more = outcome.reason.empty() ? outcome.advice : outcome.reason;
    return "error " + std::to_string(outcome.result) + " (" + FormatWord(outcome.result) +
           "): " + vxErrorDesc(outcome.result) + (more.empty() ? "" : "; " + more);
}

Account::Account(const Order& whatIsDone, const std::vector<Target>& toWhom)
    : order(whatIsDone), signs(toWhom), json(order.With().Has("--json")),
      drawsProgress(platform::IsTerminal(platform::Standard::kError)), isDone(signs.size())
{
}

void Account::Take(const std::vector<Pool::Ended>& news)
{
    if (drawsProgress && !news.empty())
        EraseLine();
    for (const auto& [which, outcome] : news) {
        ++ended;
        isDone[which] = outcome.status == EXIT_SUCCESS;
        done += isDone[which] ? 1 : 0;
        aborted += outcome.result == VX_ABORTED ? 1 : 0;
        if (!isDone[which] && outcome.result != VX_ABORTED)
            failures.push_back(signs[which].name + ": " + WhyOf(outcome));
        if (json)
            PrintObject(signs[which], outcome);
        else
            PrintLines(signs[which], outcome);
    }
    if (drawsProgress && (!news.empty() || SteadyClock::now() - drawn > kDrawEvery))
        DrawProgress();
}

void PrintLines(const Target& sign, const Outcome& outcome)
{
    for (const std::string_view line : Split(outcome.lines, '\n'))
        PrintLine(Stream::kOut, sign.name + (line.empty() ? ":" : ": ") + std::string(line));
    if (outcome.status != EXIT_SUCCESS) {
        Flush(); // in their order on a terminal
        PrintLine(Stream::kError, "vxctl: " + sign.name + ": " + WhyOf(outcome));
    } else if (outcome.lines.empty()) {
        PrintLine(Stream::kOut, sign.name + ": done");
    }
}

void Account::PrintObject(const Target& sign, const Outcome& outcome) const
{
    PrintLine(Stream::kOut, JsonText(ObjectOf(order.What().name, sign, outcome)));
}

void Account::DrawProgress()
{
    constexpr std::size_t kWidth = 30;
    const std::size_t part = ended * kWidth / signs.size();
    const std::string failed = failures.empty() ? "" : ", " + std::to_string(failures.size()) + " failed";
    Flush();
    DrawLine("[" + std::string(part, '#') + std::string(kWidth - part, '.') + "] " + Of(ended, signs.size()) + failed +
             ", " + Seconds(started));
    drawn = SteadyClock::now();
}

std::string Account::Sum(std::size_t begun) const
{
    std::string text = Of(done, signs.size()) + " done";
    const auto add = [&text](std::size_t count, const char* what) {
        if (count != 0)
            text += ", " + std::to_string(count) + " " + what;
    };
    add(failures.size(), "failed");
    add(aborted + begun - ended, "broken off");
    add(signs.size() - begun, "not begun");
    return text + " in " + Seconds(started);
}

std::vector<std::string> Account::Missing() const
{
    std::vector<std::string> names;
    for (std::size_t i = 0; i < signs.size(); ++i) {
        if (!isDone[i])
            names.push_back(signs[i].name);
    }
    return names;
}

int Account::Close(std::size_t begun)
{
    if (drawsProgress)
        EraseLine();
    const bool isTaken = Flush();
    if (!isTaken)
        PrintLine(Stream::kError, "vxctl: standard output takes no more");
    if (!json || done != signs.size()) // a program knows by the status that nothing is wrong
        PrintLine(Stream::kError, Sum(begun));
    for (std::size_t i = 0; i < std::min(failures.size(), kMostTold); ++i)
        PrintLine(Stream::kError, "  " + failures[i]);
    if (failures.size() > kMostTold)
        PrintLine(Stream::kError, "  and " + std::to_string(failures.size() - kMostTold) + " more");
    if (const std::string& file = order.With().Text("--retry-failed"); !file.empty())
        WriteNames(file, Missing());
    if (CaughtSignal() != 0)
        return kExitSignal + CaughtSignal();
    if (done != signs.size())
        return kExitSome;
    return isTaken ? EXIT_SUCCESS : kExitFailure;
}

} // namespace vxctl

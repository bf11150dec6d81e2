// Draws the bar.
#include "vxctl/cli/progressBar.h"

#include "vxctl/cli/terminal.h"
#include "vxctl/platform/console.h"

#include <algorithm>
#include <array>
#include <cstdio>

namespace vxctl {

namespace {

constexpr std::uint32_t kWidth = 40;
constexpr double kQuickSeconds = 0.5; // needs no bar

// The library's callback brings nothing along that could name a bar.
thread_local ProgressBar* current = nullptr;

} // namespace

ProgressBar::ProgressBar(std::string text, bool silent)
    : title(std::move(text)), visible(!silent && platform::IsTerminal(platform::Standard::kError))
{
    current = this;
}

ProgressBar::~ProgressBar()
{
    current = nullptr;
    if (drawn)
        EraseLine();
}

void ProgressBar::OnProgress(vxApiConfig* /*config*/, std::uint32_t /*reserved*/, std::uint32_t percent)
{
    if (current != nullptr)
        current->Draw(std::min<std::uint32_t>(percent, 100));
}

double ProgressBar::Seconds() const
{
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - started).count();
}

void ProgressBar::Draw(std::uint32_t percent)
{
    moved = true;
    if (!visible || (drawn ? percent == shown : Seconds() < kQuickSeconds))
        return;
    const std::uint32_t done = percent * kWidth / 100;
    std::array<char, 8> figure{};
    std::snprintf(figure.data(), figure.size(), "%3u %%", static_cast<unsigned>(percent));
    DrawLine(title + " [" + std::string(done, '#') + std::string(kWidth - done, '.') + "] " + figure.data());
    drawn = true;
    shown = percent;
}

std::string FormatSize(double bytes)
{
    static constexpr std::array kUnits = {"bytes", "kB", "MB", "GB"};
    std::size_t unit = 0;
    while (bytes >= 1000 && unit + 1 < kUnits.size()) {
        bytes /= 1000;
        ++unit;
    }
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), unit == 0 ? "%.0f %s" : "%.1f %s", bytes, kUnits[unit]);
    return text.data();
}

} // namespace vxctl

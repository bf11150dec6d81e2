// The progress of one transfer on standard error, when that is a terminal and it takes its time.
#pragma once

#include <vxsign/api.h>

#include <chrono>
#include <cstdint>
#include <string>

namespace vxctl {

class ProgressBar
{
public:
    // A silent bar draws nothing, but measures the time all the same.
    ProgressBar(std::string title, bool silent);
    ~ProgressBar();
    ProgressBar(const ProgressBar&) = delete;
    ProgressBar& operator=(const ProgressBar&) = delete;

    // To be called by the library: shows the percentage on the bar that is alive.
    static void OnProgress(vxApiConfig* config, std::uint32_t reserved, std::uint32_t percent);

    // Whether the library has told this thread of any progress under a bar, since the last start.
    static bool HasMoved() { return moved; }
    static void StartAnew() { moved = false; }

    double Seconds() const;

private:
    void Draw(std::uint32_t percent);

    std::string title;
    bool visible;
    static inline thread_local bool moved = false;
    bool drawn = false;
    std::uint32_t shown = 0;
    std::chrono::steady_clock::time_point started = std::chrono::steady_clock::now();
};

// "12.3 MB" in steps of 1000.
std::string FormatSize(double bytes);

} // namespace vxctl

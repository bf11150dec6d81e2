// What one file of the sign puts on the face, and how long.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/face/modes.h"
#include "sim/face/text.h"

#include <cstdint>
#include <optional>
#include <span>
#include <variant>
#include <vector>

namespace vxsim {

struct Timing
{
    std::uint8_t entryMode = kDefaultMode;
    std::uint8_t exitMode = kDefaultMode;
    std::uint64_t stayMs = 3000;
};

// No page is shown for less, whatever its file says.
inline constexpr std::uint64_t kShortestStayMs = 200;

class Show
{
public:
    // Makes a show from an NMG, BMP, JPEG or PNG file for a face of that size. What an NMG file says of modes and stay
    // time goes before the given timing. nullopt for bytes that can't be shown.
    static std::optional<Show> Load(std::span<const std::uint8_t> bytes, Timing timing, int width, int height,
                                    Font& font);

    // A show of texts alone.
    static Show OfText(std::span<const TextRun> runs, Timing timing, int width, int height, Font& font);

    // How long all of it takes: each page comes, stays and leaves.
    std::uint64_t DurationMs() const;

    // When, after the start, the page behind the one of that moment begins; behind the last page the end.
    std::uint64_t NextPageMs(std::uint64_t elapsedMs) const { return (elapsedMs / PageMs() + 1) * PageMs(); }

    std::uint64_t Pages() const { return pages; }

    // When, after the start, that page, counted from 0, has come, and when it begins to leave.
    std::uint64_t WholeMs(std::uint64_t page) const { return page * PageMs() + entry->durationMs; }
    std::uint64_t LeaveMs(std::uint64_t page) const { return WholeMs(page) + stayMs; }

    // Draws what is to be seen elapsedMs after the start. After the end: the last page's last sight.
    void Draw(std::uint64_t elapsedMs, Font& font, Canvas& face) const;

private:
    Show(std::variant<std::vector<Page>, Canvas> shown, Timing timing);

    std::uint64_t PageMs() const;
    void DrawWhole(std::uint64_t page, Font& font, Canvas& face) const;

    std::variant<std::vector<Page>, Canvas> content;
    std::uint64_t pages;
    const Mode* entry;
    const Mode* exit;
    std::uint64_t stayMs;
};

} // namespace vxsim

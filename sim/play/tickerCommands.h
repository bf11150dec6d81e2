// Commands for texts that run over the face.
#pragma once

#include "sim/command/commandFamily.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace vxsim {

// What the text of a ticker looks like: codes as in messages, 0 for the sign's own.
struct TickerStyle
{
    std::uint8_t font = 0;
    std::uint8_t colour = 0;
};

// A text on its way over the face.
struct TickerText
{
    std::string text;
    std::int64_t left = 0; // pixel of the face that it begins at
};

// Majors 8 and 9: texts that run over the face from right to left. The ticker shows the texts that a host uploads, one
// behind the other, each once; two buffers are on their way, and a third receives. The offline ticker shows what the
// buffers hold, again and again.
class TickerCommands : public CommandFamily
{
public:
    // Width of a text in this style, in pixels.
    using Measure = std::function<unsigned(std::string_view, const TickerStyle&)>;

    explicit TickerCommands(int faceWidth) : width(faceWidth) {}

    // Without a measure a byte takes eight pixels.
    void MeasureWith(Measure by) { measure = std::move(by); }

    std::span<const CommandRow> Commands() const override;
    void Restart(std::uint64_t, bool) override { mode = Mode::kStopped; }

    // Whether the face belongs to a ticker at that time, even between two texts.
    bool IsRunning(std::uint64_t nowMs) const;
    const TickerStyle& Style() const { return style; }

    // The texts that are to be seen at least in part.
    std::vector<TickerText> Shown(std::uint64_t nowMs) const;

private:
    enum class Mode
    {
        kStopped,
        kOnline,
        kOffline
    };
    // A text in its place on the endless band that runs over the face. The band begins at the right edge.
    struct Piece
    {
        std::string text;
        std::uint64_t begin = 0;
        std::uint64_t end = 0;
    };

    Reply Start(const Call& call, Mode wanted);
    Reply Stop(const Call& call);
    Reply TellStatus(const Call& call);
    Reply Upload(const Call& call);
    void Append(std::string text, std::uint64_t from);
    std::uint64_t Moved(std::uint64_t nowMs) const;
    std::uint64_t BandLength() const;
    std::size_t Pending(std::uint64_t nowMs);

    int width;
    Measure measure;
    Mode mode = Mode::kStopped;
    TickerStyle style;
    std::uint64_t pixelsPerSecond = 0;
    unsigned rounds = 0; // of the offline ticker; 0 for no end
    std::uint64_t startedMs = 0;
    std::deque<Piece> band;
    std::array<std::string, 3> buffers;
    std::size_t uploads = 0;
    std::vector<std::uint8_t> receiving;
    std::uint32_t received = 0; // chunks of the upload that runs or that was the last
};

} // namespace vxsim

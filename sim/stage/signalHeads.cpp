#include "sim/stage/signalHeads.h"

#include "sim/face/text.h"

#include <algorithm>
#include <array>
#include <span>

namespace vxsim {
namespace {

constexpr Rgb kFrame{90, 90, 90};
constexpr Rgb kLetters{255, 255, 255};
constexpr int kLetterWidth = 8;
constexpr int kLetterRows = 9;
constexpr int kGap = 1;   // around each lamp
constexpr int kUnlit = 8; // part of a colour that a lamp shows when it is not lit

constexpr std::array<char, kSignalGroups> kNames{'N', 'E', 'S', 'W', '1', '2'};
constexpr std::array<char, 4> kRuns{'A', 'M', 'T', 'L'};

struct HeadLamp
{
    std::uint8_t bit;
    Rgb colour;
};
constexpr std::array<HeadLamp, 3> kVehicleLamps{
    {{kRedLamp, {255, 0, 0}}, {kYellowLamp, {255, 200, 0}}, {kGreenLamp, {0, 255, 0}}}};
constexpr std::array<HeadLamp, 2> kCrossingLamps{{{kRedLamp, {255, 0, 0}}, {kGreenLamp, {0, 255, 0}}}};

Rgb Dimmed(Rgb colour)
{
    const auto part = [](std::uint8_t light) { return static_cast<std::uint8_t>(light / kUnlit); };
    return {part(colour.red), part(colour.green), part(colour.blue)};
}

void DrawDisc(int left, int top, int diameter, Rgb colour, Canvas& face)
{
    for (int y = 0; y < diameter; ++y) {
        for (int x = 0; x < diameter; ++x) {
            // Twice the distances from the middle, so that an even diameter has one.
            const int across = 2 * x + 1 - diameter;
            const int down = 2 * y + 1 - diameter;
            if (across * across + down * down <= diameter * diameter)
                face.Set(left + x, top + y, colour);
        }
    }
}

void DrawFrame(int left, int top, int width, int height, Canvas& face)
{
    for (int x = left; x < left + width; ++x) {
        face.Set(x, top, kFrame);
        face.Set(x, top + height - 1, kFrame);
    }
    for (int y = top; y < top + height; ++y) {
        face.Set(left, y, kFrame);
        face.Set(left + width - 1, y, kFrame);
    }
}

void DrawHead(int left, int diameter, std::span<const HeadLamp> lamps, std::uint8_t lit, Canvas& face)
{
    const int step = diameter + kGap;
    const int height = static_cast<int>(lamps.size()) * step + kGap + 2;
    int top = (face.Height() - height) / 2;
    DrawFrame(left, top, diameter + 2 * kGap + 2, height, face);
    top += 1 + kGap;
    for (const HeadLamp& lamp : lamps) {
        DrawDisc(left + 1 + kGap, top, diameter, (lit & lamp.bit) != 0 ? lamp.colour : Dimmed(lamp.colour), face);
        top += step;
    }
}

void DrawLetter(char letter, int left, int top, Font& font, Canvas& face)
{
    const TextLine line = SetLine({&letter, 1}, kLetterRows, kLetters, font);
    DrawPage(line.glyphs, font, face, left, top - line.top);
}

} // namespace

void DrawSignalHeads(const SignalSituation& signals, Font& font, Canvas& face)
{
    face.Clear();
    constexpr int kGroups = static_cast<int>(kSignalGroups);
    constexpr int kSmallestHead = 6;
    constexpr int kRunWidth = kLetterWidth + 4;
    // A narrow face has no room for letters.
    const bool letters = (face.Width() - kRunWidth) / kGroups >= kLetterWidth + kSmallestHead;
    int left = letters ? kRunWidth : 0;
    const int cell = (face.Width() - left) / kGroups;
    const int beside = 2 * kGap + 2 + (letters ? kLetterWidth : 0);
    const int diameter = std::max(1, std::min(cell - beside, (face.Height() - 2) / 3 - kGap));
    if (letters) {
        const int middle = face.Height() / 2;
        DrawLetter(kRuns[static_cast<std::size_t>(signals.run)], 0, middle - kLetterRows - 1, font, face);
        DrawLetter(signals.phase != 0 ? static_cast<char>('0' + signals.phase) : '-', 0, middle + 1, font, face);
    }
    for (std::size_t i = 0; i < kSignalGroups; ++i, left += cell) {
        if (letters)
            DrawLetter(kNames[i], left, (face.Height() - kLetterRows) / 2, font, face);
        const auto lamps = i < kVehicleGroups ? std::span<const HeadLamp>(kVehicleLamps) : kCrossingLamps;
        DrawHead(left + (letters ? kLetterWidth : 0), diameter, lamps, signals.lamps[i], face);
    }
}

} // namespace vxsim

#include "sim/stage/testPictures.h"

#include "sim/face/text.h"

#include <algorithm>
#include <array>
#include <string>

namespace vxsim {
namespace {

constexpr Rgb kBlack{};
constexpr Rgb kWhite{255, 255, 255};
constexpr Rgb kRed{255, 0, 0};
constexpr Rgb kGreen{0, 255, 0};
constexpr Rgb kBlue{0, 0, 255};
constexpr std::array<Rgb, 8> kBars{
    {{255, 255, 255}, {255, 255, 0}, {0, 255, 255}, {0, 255, 0}, {255, 0, 255}, {255, 0, 0}, {0, 0, 255}, {0, 0, 0}}};
constexpr std::array<Rgb, 4> kTurns{{kRed, kGreen, kBlue, kWhite}};

constexpr int kGrid = 8;            // pixels from one line to the next
constexpr unsigned kBarStepMs = 40; // a running bar moves by a pixel
constexpr int kBarWidth = 4;
constexpr unsigned kTurnMs = 1000;
constexpr int kModuleWidth = 32; // where the test gives no size
constexpr int kModuleHeight = 16;

enum Pattern : std::uint8_t
{
    kAllOn = 2,
    kAllRed = 3,
    kAllGreen = 4,
    kAllBlue = 5,
    kUprights = 6,
    kRows = 7,
    kGridLines = 8,
    kCheckers = 10,
    kDiagonals = 11,
    kColourBars = 12,
    kFrameAndCross = 13,
    kRunningBar = 14,
    kColoursInTurn = 15
};

Rgb PatternPixel(std::uint8_t pattern, int x, int y, std::uint64_t elapsedMs, const Canvas& face)
{
    const auto lit = [](bool on) { return on ? kWhite : kBlack; };
    const int right = face.Width() - 1;
    const int bottom = face.Height() - 1;
    switch (pattern) {
    case kAllOn:
        return kWhite;
    case kAllRed:
        return kRed;
    case kAllGreen:
        return kGreen;
    case kAllBlue:
        return kBlue;
    case kUprights:
        return lit(x % 2 == 0);
    case kRows:
        return lit(y % 2 == 0);
    case kGridLines:
        return lit(x % kGrid == 0 || y % kGrid == 0 || x == right || y == bottom);
    case kCheckers:
        return lit((x + y) % 2 == 0);
    case kDiagonals:
        return lit((x + y) % kGrid == 0);
    case kColourBars:
        return kBars[static_cast<std::size_t>(x) * kBars.size() / static_cast<std::size_t>(face.Width())];
    case kFrameAndCross: {
        const bool frame = x == 0 || y == 0 || x == right || y == bottom;
        const auto isDiagonal = [&](int column) {
            return column == (y * right + bottom / 2) / std::max(bottom, 1) ||
                   y == (column * bottom + right / 2) / std::max(right, 1);
        };
        const bool cross = isDiagonal(x) || isDiagonal(right - x);
        return lit(frame || cross);
    }
    case kRunningBar: {
        const auto at = static_cast<int>(elapsedMs / kBarStepMs % static_cast<unsigned>(face.Width()));
        return lit((x - at + face.Width()) % face.Width() < kBarWidth);
    }
    case kColoursInTurn:
        return kTurns[elapsedMs / kTurnMs % kTurns.size()];
    default:
        return kBlack;
    }
}

void Fill(int left, int top, int width, int height, Rgb colour, Canvas& face)
{
    for (int y = std::max(0, top); y < std::min(top + height, face.Height()); ++y) {
        for (int x = std::max(0, left); x < std::min(left + width, face.Width()); ++x)
            face.Set(x, y, colour);
    }
}

Rgb ColourOf(const ColourTest& test)
{
    return {test.red, test.green, test.blue};
}

struct Drawer
{
    std::uint64_t elapsedMs;
    Font& font;
    Canvas& face;

    void operator()(const std::monostate&) const {}

    void operator()(const PatternTest& test) const
    {
        for (int y = 0; y < face.Height(); ++y) {
            for (int x = 0; x < face.Width(); ++x)
                face.Set(x, y, PatternPixel(test.pattern, x, y, elapsedMs, face));
        }
    }

    void operator()(const ColourTest& test) const { Fill(0, 0, face.Width(), face.Height(), ColourOf(test), face); }

    void operator()(const AreaTest& test) const
    {
        const Rgb colour = ColourOf(test.colour);
        Fill(test.left, test.top, test.width, test.height, colour == kBlack ? kWhite : colour, face);
    }

    void operator()(const LocationTest& test) const
    {
        const int width = test.width != 0 ? test.width : kModuleWidth;
        const int height = test.height != 0 ? test.height : kModuleHeight;
        const int columns = test.columns != 0 ? test.columns : std::max(1, (face.Width() - test.left) / width);
        for (std::size_t i = 0; i < test.numbers.size(); ++i) {
            const int left = test.left + static_cast<int>(i) % columns * width;
            const int top = test.top + static_cast<int>(i) / columns * height;
            if (left < face.Width() && top < face.Height())
                DrawModule(left, top, std::min(width, face.Width()), std::min(height, face.Height()), test.numbers[i],
                           font, face);
        }
    }
};

} // namespace

void DrawModule(int left, int top, int width, int height, std::uint16_t number, Font& font, Canvas& face)
{
    Fill(left, top, width, height, kGreen, face);
    Fill(left + 1, top + 1, width - 2, height - 2, kBlack, face);
    const std::array<TextRun, 1> text{{{std::to_string(number), kDefaultFontCode, kWhite}}};
    Canvas inside(width, height);
    for (const Page& page : SetText(text, width, height, font))
        DrawPage(page, font, inside);
    for (int y = 0; y < inside.Height(); ++y) {
        for (int x = 0; x < inside.Width(); ++x) {
            if (inside.At(x, y) != kBlack)
                face.Set(left + x, top + y, inside.At(x, y));
        }
    }
}

void DrawTest(const FaceTest& test, std::uint64_t elapsedMs, Font& font, Canvas& face)
{
    face.Clear();
    std::visit(Drawer{elapsedMs, font, face}, test);
}

} // namespace vxsim

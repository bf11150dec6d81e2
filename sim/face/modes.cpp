#include "sim/face/modes.h"

#include <cmath>

namespace vxsim {

namespace {

// Draws each pixel from one of the two pictures.
template <typename ShowsNew>
void Choose(const Canvas& from, const Canvas& to, Canvas& face, ShowsNew showsNew)
{
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x)
            face.Set(x, y, showsNew(x, y) ? to.At(x, y) : from.At(x, y));
    }
}

// Pixels out of extent that progress has covered.
int Covered(int extent, double progress)
{
    return static_cast<int>(std::lround(extent * progress));
}

void WipeRight(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    const int edge = Covered(face.Width(), progress);
    Choose(from, to, face, [=](int x, int) { return x < edge; });
}

void WipeLeft(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    const int edge = face.Width() - Covered(face.Width(), progress);
    Choose(from, to, face, [=](int x, int) { return x >= edge; });
}

void WipeUp(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    const int edge = face.Height() - Covered(face.Height(), progress);
    Choose(from, to, face, [=](int, int y) { return y >= edge; });
}

void WipeDown(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    const int edge = Covered(face.Height(), progress);
    Choose(from, to, face, [=](int, int y) { return y < edge; });
}

void OpenFromMiddle(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    const int open = Covered(face.Width(), progress);
    const int left = (face.Width() - open) / 2;
    Choose(from, to, face, [=](int x, int) { return x >= left && x < left + open; });
}

// Pixel by pixel in an order that looks like none.
void Dissolve(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    const auto limit = static_cast<std::uint32_t>(Covered(1 << 16, progress));
    Choose(from, to, face, [=](int x, int y) {
        std::uint32_t mix = static_cast<std::uint32_t>(x) * 0x9E3779B1U ^ static_cast<std::uint32_t>(y) * 0x85EBCA77U;
        mix = (mix ^ (mix >> 15)) * 0x2C1B3C6DU;
        return (mix >> 16) < limit;
    });
}

// Pushes the old picture out by the new one, which comes from the side (stepX, stepY) points away from.
void Scroll(const Canvas& from, const Canvas& to, double progress, int stepX, int stepY, Canvas& face)
{
    const int movedX = stepX * Covered(face.Width(), progress);
    const int movedY = stepY * Covered(face.Height(), progress);
    const int startX = stepX * face.Width();
    const int startY = stepY * face.Height();
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x) {
            const int oldX = x - movedX;
            const int oldY = y - movedY;
            const bool old = oldX >= 0 && oldY >= 0 && oldX < face.Width() && oldY < face.Height();
            face.Set(x, y, old ? from.At(oldX, oldY) : to.At(oldX + startX, oldY + startY));
        }
    }
}

void ScrollLeft(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    Scroll(from, to, progress, -1, 0, face);
}

void ScrollRight(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    Scroll(from, to, progress, 1, 0, face);
}

void ScrollUp(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    Scroll(from, to, progress, 0, -1, face);
}

void ScrollDown(const Canvas& from, const Canvas& to, double progress, Canvas& face)
{
    Scroll(from, to, progress, 0, 1, face);
}

// The first row serves for every other code.
constexpr Mode kModes[] = {
    {kDefaultMode, 0, "at once", nullptr},    {'1', 600, "wipe right", WipeRight},
    {'2', 600, "wipe left", WipeLeft},        {'3', 1200, "scroll left", ScrollLeft},
    {'4', 1200, "scroll right", ScrollRight}, {'5', 800, "scroll up", ScrollUp},
    {'6', 800, "scroll down", ScrollDown},    {'7', 600, "open from the middle", OpenFromMiddle},
    {'8', 800, "dissolve", Dissolve},         {'9', 600, "wipe up", WipeUp},
    {'A', 600, "wipe down", WipeDown},
};

} // namespace

const Mode& ModeOfCode(std::uint8_t code)
{
    for (const Mode& mode : kModes) {
        if (mode.code == code)
            return mode;
    }
    return kModes[0];
}

} // namespace vxsim

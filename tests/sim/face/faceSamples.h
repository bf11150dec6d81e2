// What the tests of the sign's face share: reading a face as text, and bytes that nobody would send.
#pragma once

#include "sim/face/canvas.h"
#include "support/bytes.h"
#include "support/tempFolder.h"

#include <random>
#include <string>

namespace vxsim::test {

using vxsign::test::Bytes;
using vxsign::test::operator+;
using vxsign::test::TempFolder;

inline constexpr Rgb kRed{255, 0, 0};
inline constexpr Rgb kGreen{0, 255, 0};
inline constexpr Rgb kBlue{0, 0, 255};

inline Bytes BytesOf(std::string_view text)
{
    return vxsign::test::FromText(text);
}

inline int CountLit(const Canvas& face)
{
    int lit = 0;
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x)
            lit += face.At(x, y) != Rgb{} ? 1 : 0;
    }
    return lit;
}

// One line of text for each row: '#' lit, '.' not.
inline std::string Drawing(const Canvas& face)
{
    std::string drawing;
    for (int y = 0; y < face.Height(); ++y) {
        for (int x = 0; x < face.Width(); ++x)
            drawing += face.At(x, y) != Rgb{} ? '#' : '.';
        drawing += '\n';
    }
    return drawing;
}

// Calls take with every truncation of the bytes (in steps), and with copies that have a few bytes overwritten. Each
// copy lies in a block of its own length, so that a read beyond it shows.
template <typename Take>
void WithDamage(const Bytes& bytes, Take take)
{
    const std::size_t step = bytes.size() / 400 + 1;
    for (std::size_t size = 0; size <= bytes.size(); size += step)
        take(Bytes(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(size)));
    std::mt19937 random(42);
    for (int round = 0; round < 1000; ++round) {
        Bytes damaged = bytes;
        for (int i = 0; i < 1 + round % 4; ++i)
            damaged[random() % damaged.size()] = static_cast<std::uint8_t>(random());
        take(damaged);
    }
}

} // namespace vxsim::test

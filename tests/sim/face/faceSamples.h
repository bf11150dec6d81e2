// What the tests of the sign's face share: reading a face as text.
#pragma once

#include "sim/face/canvas.h"
#include "support/bytes.h"
#include "support/tempFolder.h"

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

} // namespace vxsim::test

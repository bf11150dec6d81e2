// What the tests of the sign's face share: reading a face as text.
#pragma once

#include "sim/face/canvas.h"
#include "support/playFiles.h"
#include "support/tempFolder.h"

namespace vxsim::test {

using namespace vxsign::test;

inline constexpr auto& BytesOf = FromText;

// One line of text for each row: '#' lit, '.' not.
inline std::string Drawing(const Canvas& face)
{
    std::string drawing;
    for (int y = 0; y < face.Height(); ++y, drawing += '\n')
        for (int x = 0; x < face.Width(); ++x)
            drawing += face.At(x, y) != kDark ? '#' : '.';
    return drawing;
}

inline int CountLit(const Canvas& face)
{
    const std::string drawing = Drawing(face);
    return static_cast<int>(std::count(drawing.begin(), drawing.end(), '#'));
}

} // namespace vxsim::test

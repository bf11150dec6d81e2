// Files that a sign plays, made in memory.
#pragma once

#include "sim/face/canvas.h"
#include "support/bytes.h"

namespace vxsign::test {

inline constexpr vxsim::Rgb kRed{255, 0, 0};
inline constexpr vxsim::Rgb kGreen{0, 255, 0};
inline constexpr vxsim::Rgb kBlue{0, 0, 255};
inline constexpr vxsim::Rgb kWhite{255, 255, 255};
inline constexpr vxsim::Rgb kDark{};

// A BMP of one pixel, which is shown in the middle.
inline Bytes Dot(vxsim::Rgb colour)
{
    return Bytes{'B', 'M', 58, 0, 0, 0, 0, 0, 0, 0, 54, 0, 0, 0, 40, 0, 0, 0, 1, 0, 0, 0, 1, 0, 0, 0, 1, 0, 24, 0} +
           Bytes(24, 0) + Bytes{colour.blue, colour.green, colour.red, 0};
}

// A flat list of files of one folder: its drive and its letter.
inline Bytes FlatList(const std::vector<std::string>& names, const std::string& place = "DT")
{
    Bytes list = FromText("SQ") + Bytes{4, 0} + Little(static_cast<std::uint32_t>(names.size()), 4);
    for (const std::string& name : names)
        list = list + FromText(place) + Bytes{15, 255} + Bytes(20, 0) + Padded(name, 12);
    return list;
}

} // namespace vxsign::test

// What helps when a result is no success. Written by bindings/generate.py from words/resultWords.def.
#ifndef VXSIGN_ADVICE_HPP
#define VXSIGN_ADVICE_HPP

#include <cstdint>
#include <string_view>

namespace vxsign::detail {

struct Advice
{
    std::uint32_t code;
    std::string_view text;
};

// clang-format off
inline constexpr Advice kAdvice[] = {
    {0x0002, "look at the arguments: a text, path or payload may be too long"},
    {0x0C02, "wait until the other tasks of the tiles are done"},
    {0x0C03, "the tile is still at it: wait, then look at it with tile status"},
    {0x0C04, "check the cable and the power of the tile, and try once more"},
    {0x0C05, "check the cable and the power of the tile, and try once more"},
    {0x0C06, "look at the tile with tile status; its calibration may be locked"},
    {0x0C08, "name one tile"},
    {0x0C11, "check the number of the tile, and its port"},
    {0x0C13, "check --module and --kind: the file is not in the order of this tile"},
    {0x2101, "send the file in parts, or smaller"},
    {0x2102, "free some room on that drive with rm, or write to another drive"},
    {0x2103, "free some room on that drive with rm, or write to another drive"},
    {0x2104, "free some room on that drive with rm, or write to another drive"},
    {0x2105, "free some room on that drive with rm, or write to another drive"},
    {0x2106, "free some room on that drive with rm, or write to another drive"},
    {0x2107, "free some room on that drive with rm, or write to another drive"},
    {0x36E1, "this sign may have fewer pages: see zone list"},
    {0x36E2, "divide the page first, with zone divide"},
    {0x36E4, "this sign may have fewer zones on a page: see zone list"},
    {0x36E5, "divide the page into more zones, with zone divide"},
    {0x3A01, "this sign does not know the command; its firmware may be older or newer"},
    {0x5003, "try once more; the sign may have been busy"},
    {0x5004, "is that the port of a sign? Look at its reply with raw"},
    {0x5100, "check address, port, power and cable; give a slow line more time with --timeout and --retries"},
    {0x5101, "check that the file on this PC, or the folder it goes to, is there and may be used"},
    {0x5102, "the sign takes no empty file"},
    {0x5201, "set a time that exists; clock --set takes YYYY-MM-DD HH:MM:SS"},
    {0x7201, "check the letter of the drive; try once more"},
    {0x7301, "check drive and path; a file may have that name"},
    {0x7401, "check that the file is there and the new name is not"},
    {0x7402, "the new name belongs into the same folder"},
    {0x7501, "check that the file and the new folder are there, and the new name is not"},
    {0x7601, "check drive, folder and name of the file on the sign"},
    {0x7B01, "check drive, folder and name of the file on the sign"},
    {0x7D01, "this sign may not have that drive: try df alone"},
    {0x7E01, "check drive, folder and name of the file on the sign"},
    {0x8305, "start the ticker first"},
    {0x8306, "wait until what runs has left the face"},
    {0x8307, "send less text"},
    {0x9002, "noise on the line: check cable and speed"},
    {0x9003, "check --destination"},
    {0x9004, "this sign does not know the command; its firmware may be older or newer"},
    {0x9005, "this sign does not know the command; its firmware may be older or newer"},
    {0x9006, "try a smaller --chunk"},
    {0x9008, "check drive, folder and name of the file on the sign"},
    {0x9010, "check drive, folder and name of the file on the sign"},
    {0x9011, "this sign cannot do that: look at its kind, its firmware and the arguments"},
    {0x9012, "check that the drive is there and has room"},
    {0x9013, "look at the sizes that you give, or try a smaller --chunk"},
    {0x9015, "check drive, folder and name of the file on the sign"},
    {0x9030, "the sign wants a login first: see login"},
    {0x9031, "check the password; case counts"},
    {0x9032, "check the name of the user"},
    {0x9033, "check the old password"},
    {0x9035, "somebody else is using the sign: wait, and try once more"},
    {0x9036, "log in as a user who may do this"},
    {0xFFFF, "wait until the other tasks of the tiles are done"},
};
// clang-format on

// Empty where there is nothing to tell.
constexpr std::string_view AdviceFor(std::uint32_t code)
{
    for (const Advice& advice : kAdvice)
        if (advice.code == code)
            return advice.text;
    return {};
}

} // namespace vxsign::detail

#endif

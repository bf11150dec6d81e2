// Draws faces with the blocks of a terminal.
#include "vxctl/show/drawnFace.h"

#include "sim/face/ansi.h"
#include "sim/platform/terminal.h"

#include <algorithm>
#include <array>

namespace vxctl {

namespace {

std::string PlainBlocks(const vxsim::Canvas& face)
{
    constexpr std::array<const char*, 4> kBlocks{" ", "\u2580", "\u2584", "\u2588"};
    constexpr int kFaintest = 32;
    const auto isLit = [&face](int x, int y) {
        const vxsim::Rgb pixel = face.At(x, y);
        return std::max({pixel.red, pixel.green, pixel.blue}) >= kFaintest;
    };
    std::string lines;
    for (int y = 0; y < face.Height(); y += 2) {
        for (int x = 0; x < face.Width(); ++x)
            lines += kBlocks[(isLit(x, y) ? 1U : 0U) + (isLit(x, y + 1) ? 2U : 0U)];
        lines += '\n';
    }
    return lines;
}

} // namespace

std::vector<Shown> DrawnFace(const vxsim::Canvas& face)
{
    const std::string text = IsColoured() ? vxsim::AnsiFace(face, vxsim::TerminalColumns()) : PlainBlocks(face);
    std::vector<Shown> lines;
    for (std::string_view rest = text; !rest.empty(); rest.remove_prefix(rest.find('\n') + 1))
        lines.emplace_back().text = rest.substr(0, rest.find('\n')); // made of pixels alone
    return lines;
}

} // namespace vxctl

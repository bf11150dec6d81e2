// Reads sizes.
#include "vxctl/cli/faceSize.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <vxsign/read.h>

#include <array>
#include <cstdint>

namespace vxctl {

namespace {

int ParseSide(std::string_view text, int most)
{
    const auto side = ParseNumber(text);
    if (!side || *side < 1 || *side > static_cast<std::uint32_t>(most))
        throw UsageError("'" + std::string(text) + "' is no side of WIDTHxHEIGHT, each from 1 to " +
                         std::to_string(most));
    return static_cast<int>(*side);
}

} // namespace

FaceSize ReadFaceSize()
{
    std::array<std::uint8_t, 16> settings{};
    return IsDone(vxReadSystemSet(settings.data())) ? FaceSize{Load16(settings, 0), Load16(settings, 2)} : FaceSize{};
}

FaceSize ParseSides(std::string_view text, int most)
{
    const std::size_t between = text.find('x');
    return {ParseSide(text.substr(0, between), most),
            ParseSide(between == std::string_view::npos ? std::string_view() : text.substr(between + 1), most)};
}

} // namespace vxctl

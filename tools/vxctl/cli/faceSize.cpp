#include "vxctl/cli/faceSize.h"

#include "vxctl/cli/failure.h"
#include "vxctl/cli/numbers.h"

#include <string>
#include <string_view>

namespace vxctl {

namespace {

int ParseSide(std::string_view text, const std::string& name)
{
    const auto side = ParseNumber(text);
    if (!side || *side < 1 || *side > kMostPictureSide)
        throw UsageError(name + " is WIDTHxHEIGHT, each from 1 to " + std::to_string(kMostPictureSide));
    return static_cast<int>(*side);
}

} // namespace

CLI::Option* AddFaceSize(CLI::App& app, FaceSize& size, const std::string& name, const std::string& description)
{
    const auto take = [&size, name](const std::string& text) {
        const std::string_view sides = text;
        const std::size_t between = sides.find('x');
        size.width = ParseSide(sides.substr(0, between), name);
        size.height =
            ParseSide(between == std::string_view::npos ? std::string_view() : sides.substr(between + 1), name);
    };
    return app.add_option_function<std::string>(name, take, description)->type_name("WxH");
}

} // namespace vxctl

// Asks for the size of faces.
#include "vxctl/show/wantedFace.h"

#include "vxctl/cli/failure.h"

#include "sim/face/canvas.h"

namespace vxctl {

WantedFace FaceOfSign(const Session& session, const Args& args)
{
    if (args.Has("--size"))
        return {ParseFaceSize(args.Text("--size")), "--size"};
    session.Connect();
    const FaceSize size = ReadFaceSize();
    constexpr int kMost = vxsim::Canvas::kMostPixelsPerSide;
    const bool isFace = size.width > 0 && size.height > 0 && size.width <= kMost && size.height <= kMost;
    return {isFace ? size : FaceSize{}, "sign"};
}

WantedFace KnownFaceOfSign(const Session& session, const Args& args)
{
    const WantedFace face = FaceOfSign(session, args);
    if (!face.IsKnown())
        throw UsageError("the sign does not tell the size of its face: give --size WIDTHxHEIGHT");
    return face;
}

WantedFace FaceWithoutSign(const Session& session, const Args& args)
{
    constexpr FaceSize kFaceOfVxsim{128, 32};
    return args.Has("--size") || args.Has("--sign") ? KnownFaceOfSign(session, args)
                                                    : WantedFace{kFaceOfVxsim, "vxsim"};
}

std::string SizeText(const FaceSize& size)
{
    return std::to_string(size.width) + "x" + std::to_string(size.height);
}

} // namespace vxctl

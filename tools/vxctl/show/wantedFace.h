// The face that a message or a picture is made for.
#pragma once

#include "vxctl/cli/args.h"
#include "vxctl/cli/faceSize.h"
#include "vxctl/cli/session.h"

#include <string>
#include <string_view>

namespace vxctl {

struct WantedFace
{
    FaceSize size;
    std::string_view from; // "--size", "sign" or "vxsim"

    bool IsKnown() const { return size.width > 0; }
};

// That of --size; without it the sign's own, which stays unknown where the sign does not tell it. Throws SignFailure
// when the line fails.
WantedFace FaceOfSign(const Session& session, const Args& args);

// The same, but throws UsageError for an unknown one.
WantedFace KnownFaceOfSign(const Session& session, const Args& args);

// That of --size; without it that of the sign if the command line names one, else that of vxsim.
WantedFace FaceWithoutSign(const Session& session, const Args& args);

// "128x32"
std::string SizeText(const FaceSize& size);

} // namespace vxctl

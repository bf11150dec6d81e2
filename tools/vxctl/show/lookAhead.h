// What a message will look like, told before it goes to the sign.
#pragma once

#include "vxctl/show/messageText.h"
#include "vxctl/show/wantedFace.h"

namespace vxctl {

inline constexpr Argument kMustFit = Flag("--must-fit", "refuse a text that does not fit the face");

// Says what of the message does not fit the face, and puts how it lies there into the report. Throws UsageError when it
// does not fit and --must-fit is given.
void CheckFit(Session& session, const Args& args, const Message& message, const FaceSize& face);

// The same for the face of the sign, with a picture of it for --preview.
void LookAhead(Session& session, const Args& args, const Message& message);

} // namespace vxctl

// Text that something beside the sign writes on the face.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/font.h"

#include <string>

namespace vxsim {

// What is written over the face by something beside the sign.
struct Caption
{
    std::string text;       // empty is none
    bool wholeFace = false; // in the middle of an else dark face; otherwise one line along its lower edge
};

void DrawCaption(const Caption& caption, Font& font, Canvas& face);

} // namespace vxsim

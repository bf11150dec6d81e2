// What show, picture and files have in common.
#pragma once

#include "vxctl/cli/args.h"
#include "vxctl/show/showCodes.h"

#include <cstdint>

namespace vxctl {

inline constexpr Argument kFont = Of(kFontCode, "--font", "a character or its code, 48 to 169").Default("1");
inline constexpr Argument kColour =
    Of(kColourCode, "--colour,--color", "a name, #RRGGBB, or a code of the sign").Default("1");
inline constexpr Argument kMode = Of(kModeCode, "--mode", "entry and exit mode: a character or its code").Default("0");
inline constexpr Argument kStay = Number("--stay", 0, 9999, "seconds to stay").In("SECONDS").Default("5");
inline constexpr Argument kDrive =
    Choice("--drive", "E|auto", "E, or auto: F where the sign has it, else D").Default("auto");

inline std::uint32_t ToE(const Args& args)
{
    return args.Text("--drive") == "E" ? 1 : 0;
}

inline constexpr Argument kFit =
    Choice("--fit", "contain|cover|stretch|none", "how a picture fits the face").Default("contain");

} // namespace vxctl

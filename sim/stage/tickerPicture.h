// Tickers on the face.
#pragma once

#include "sim/face/canvas.h"
#include "sim/face/font.h"
#include "sim/play/tickerCommands.h"

#include <cstdint>
#include <string_view>

namespace vxsim {

// Width of the text in one line on a face of that height, in pixels.
unsigned TickerWidth(std::string_view text, const TickerStyle& style, int faceHeight, Font& font);

// Draws what the ticker shows at that time.
void DrawTicker(const TickerCommands& ticker, std::uint64_t nowMs, Font& font, Canvas& face);

} // namespace vxsim

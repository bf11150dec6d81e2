// The texts of a ticker on their way over the face.
#pragma once

#include "sim/face/text.h"
#include "sim/play/tickerCommands.h"

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <tuple>

namespace vxsim {

class TickerPicture
{
public:
    explicit TickerPicture(Font& faceFont) : font(faceFont) {}

    // Width of the text in one line on a face of that height, in pixels.
    unsigned Width(std::string_view text, const TickerStyle& style, int faceHeight);

    // Draws what the ticker shows at that time.
    void Draw(const TickerCommands& ticker, std::uint64_t nowMs, Canvas& face);

private:
    // Setting a long text takes longer than a picture may: the last ones are kept.
    const TextLine& LineOf(std::string_view text, const TickerStyle& style, int faceHeight);

    using Key = std::tuple<std::string, std::uint8_t, std::uint8_t, int>;

    Font& font;
    std::map<Key, TextLine> lines;
};

} // namespace vxsim

#include "sim/content/nmg.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace vxsim {

namespace {

constexpr std::size_t kIntroSize = 7;
constexpr std::array<std::uint8_t, kIntroSize> kTransmissionIntro{0x01, 'Z', '0', '0', 0x02, 'A', 'A'};
constexpr std::array<std::uint8_t, kIntroSize> kFileIntro{'Q', 'Z', '0', '0', 'S', 'A', 'X'};

enum Control : std::uint8_t
{
    kEndOfText = 0x04,
    kTab = 0x09,
    kLineFeed = 0x0A, // followed by 'I' or 'O' also an entry or exit mode
    kPageFeed = 0x0C,
    kReturn = 0x0D,
    kStay = 0x0E,
    kPicture = 0x14,
    kFont = 0x1A,
    kColour = 0x1C,
};

// A picture group: six fixed bytes, other constants, the file's size, more constants, the file.
constexpr std::array<std::uint8_t, 6> kPictureStart{kPicture, 0x40, '0', 0x04, 'R', 'C'};
constexpr std::size_t kPictureSizeOffset = 12;
constexpr std::size_t kPictureHeaderSize = 44;

constexpr std::size_t kStayDigits = 4;

class Parser
{
public:
    explicit Parser(std::span<const std::uint8_t> file)
        : bytes(file), end(std::min(file.size(), kMostMessageBytes)), at(kIntroSize)
    {
    }

    Message Parse()
    {
        while (at < end && !message.picture && bytes[at] != kEndOfText) {
            if (!TakeGroup())
                TakeText();
        }
        return std::move(message);
    }

private:
    bool Has(std::size_t size) const { return end - at >= size; }

    template <std::size_t kSize>
    bool StartsWith(const std::array<std::uint8_t, kSize>& start) const
    {
        return Has(kSize) && std::equal(start.begin(), start.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    }

    bool TakeGroup()
    {
        switch (bytes[at]) {
        case kFont:
            return TakeFont();
        case kColour:
            return TakeColour();
        case kLineFeed:
            return TakeMode('I', message.entryMode) || TakeMode('O', message.exitMode);
        case kStay:
            return TakeStay();
        case kPicture:
            return TakePicture();
        default:
            return false;
        }
    }

    bool TakeFont()
    {
        if (!Has(2))
            return false;
        font = bytes[at + 1];
        at += 2;
        return true;
    }

    bool TakeColour()
    {
        if (Has(5) && bytes[at + 1] == '/') {
            colour = {bytes[at + 2], bytes[at + 3], bytes[at + 4]};
            at += 5;
            return true;
        }
        if (!Has(2) || bytes[at + 1] == '/')
            return false;
        colour = ColourOfCode(bytes[at + 1]);
        at += 2;
        return true;
    }

    // Modes rule the whole message and stand in front of its text, each once. So a line of text that happens to begin
    // with 'I' or 'O' stays a line of text.
    bool TakeMode(std::uint8_t letter, std::optional<std::uint8_t>& mode)
    {
        if (mode || !message.runs.empty() || !Has(3) || bytes[at + 1] != letter)
            return false;
        mode = bytes[at + 2];
        at += 3;
        return true;
    }

    bool TakeStay()
    {
        if (!Has(2 + kStayDigits) || bytes[at + 1] != '2')
            return false;
        std::uint32_t seconds = 0;
        for (const std::uint8_t digit : bytes.subspan(at + 2, kStayDigits)) {
            if (digit < '0' || digit > '9')
                return false;
            seconds = seconds * 10 + (digit - '0');
        }
        message.staySeconds = seconds;
        at += 2 + kStayDigits;
        return true;
    }

    bool TakePicture()
    {
        if (!StartsWith(kPictureStart) || bytes.size() - at < kPictureHeaderSize)
            return false;
        std::size_t size = 0;
        for (std::size_t i = 4; i-- > 0;)
            size = size << 8 | bytes[at + kPictureSizeOffset + i];
        const std::span<const std::uint8_t> rest = bytes.subspan(at + kPictureHeaderSize);
        message.picture = rest.first(std::min(size, rest.size()));
        return true;
    }

    void TakeText()
    {
        const std::uint8_t byte = bytes[at++];
        switch (byte) {
        case kReturn:
            // A return and a line feed make one line break.
            if (at < end && bytes[at] == kLineFeed)
                ++at;
            return Append('\n');
        case kTab:
            return Append(' ');
        case kLineFeed:
        case kPageFeed:
            return Append(static_cast<char>(byte));
        default:
            if (byte >= ' ')
                Append(static_cast<char>(byte));
        }
    }

    void Append(char character)
    {
        if (message.runs.empty() || message.runs.back().font != font || message.runs.back().colour != colour)
            message.runs.push_back({std::string(), font, colour});
        message.runs.back().text += character;
    }

    std::span<const std::uint8_t> bytes;
    std::size_t end;
    std::size_t at;
    std::uint8_t font = kDefaultFontCode;
    Rgb colour = ColourOfCode(kDefaultColourCode);
    Message message;
};

} // namespace

bool IsNmg(std::span<const std::uint8_t> bytes)
{
    if (bytes.size() < kIntroSize)
        return false;
    const auto intro = bytes.first(kIntroSize);
    return std::equal(intro.begin(), intro.end(), kTransmissionIntro.begin()) ||
           std::equal(intro.begin(), intro.end(), kFileIntro.begin());
}

std::optional<Message> ParseNmg(std::span<const std::uint8_t> bytes)
{
    if (!IsNmg(bytes))
        return std::nullopt;
    return Parser(bytes).Parse();
}

} // namespace vxsim

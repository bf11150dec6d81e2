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
    explicit Parser(std::span<const std::uint8_t> bytes)
        : bytes_(bytes), end_(std::min(bytes.size(), kMostMessageBytes)), at_(kIntroSize)
    {
    }

    Message Parse()
    {
        while (at_ < end_ && !message_.picture && bytes_[at_] != kEndOfText) {
            if (!TakeGroup())
                TakeText();
        }
        return std::move(message_);
    }

private:
    bool Has(std::size_t size) const { return end_ - at_ >= size; }

    template <std::size_t kSize>
    bool StartsWith(const std::array<std::uint8_t, kSize>& start) const
    {
        return Has(kSize) && std::equal(start.begin(), start.end(), bytes_.begin() + static_cast<std::ptrdiff_t>(at_));
    }

    bool TakeGroup()
    {
        switch (bytes_[at_]) {
        case kFont:
            return TakeFont();
        case kColour:
            return TakeColour();
        case kLineFeed:
            return TakeMode('I', message_.entryMode) || TakeMode('O', message_.exitMode);
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
        font_ = bytes_[at_ + 1];
        at_ += 2;
        return true;
    }

    bool TakeColour()
    {
        if (Has(5) && bytes_[at_ + 1] == '/') {
            colour_ = {bytes_[at_ + 2], bytes_[at_ + 3], bytes_[at_ + 4]};
            at_ += 5;
            return true;
        }
        if (!Has(2) || bytes_[at_ + 1] == '/')
            return false;
        colour_ = ColourOfCode(bytes_[at_ + 1]);
        at_ += 2;
        return true;
    }

    // Modes rule the whole message and stand in front of its text, each once. So a line of text that happens to begin
    // with 'I' or 'O' stays a line of text.
    bool TakeMode(std::uint8_t letter, std::optional<std::uint8_t>& mode)
    {
        if (mode || !message_.runs.empty() || !Has(3) || bytes_[at_ + 1] != letter)
            return false;
        mode = bytes_[at_ + 2];
        at_ += 3;
        return true;
    }

    bool TakeStay()
    {
        if (!Has(2 + kStayDigits) || bytes_[at_ + 1] != '2')
            return false;
        std::uint32_t seconds = 0;
        for (const std::uint8_t digit : bytes_.subspan(at_ + 2, kStayDigits)) {
            if (digit < '0' || digit > '9')
                return false;
            seconds = seconds * 10 + (digit - '0');
        }
        message_.staySeconds = seconds;
        at_ += 2 + kStayDigits;
        return true;
    }

    bool TakePicture()
    {
        if (!StartsWith(kPictureStart) || bytes_.size() - at_ < kPictureHeaderSize)
            return false;
        std::size_t size = 0;
        for (std::size_t i = 4; i-- > 0;)
            size = size << 8 | bytes_[at_ + kPictureSizeOffset + i];
        const std::span<const std::uint8_t> rest = bytes_.subspan(at_ + kPictureHeaderSize);
        message_.picture = rest.first(std::min(size, rest.size()));
        return true;
    }

    void TakeText()
    {
        const std::uint8_t byte = bytes_[at_++];
        switch (byte) {
        case kReturn:
            // A return and a line feed make one line break.
            if (at_ < end_ && bytes_[at_] == kLineFeed)
                ++at_;
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
        if (message_.runs.empty() || message_.runs.back().font != font_ || message_.runs.back().colour != colour_)
            message_.runs.push_back({std::string(), font_, colour_});
        message_.runs.back().text += character;
    }

    std::span<const std::uint8_t> bytes_;
    std::size_t end_;
    std::size_t at_;
    std::uint8_t font_ = kDefaultFontCode;
    Rgb colour_ = ColourOfCode(kDefaultColourCode);
    Message message_;
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

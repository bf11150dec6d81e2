// Writes NMG messages, from text and from pictures.
#include "content/nmg.h"

#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"

#include <vxsign/content.h>
#include <vxsign/result.h>

#include <algorithm>
#include <array>
#include <string_view>

namespace vxsign::nmg {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kTransmissionIntro = "\x01Z00\x02\x41\x41"sv;
constexpr std::string_view kFileIntro = "QZ00SAX"sv;
constexpr std::uint8_t kTextEnd = 0x04;

// The groups of a picture behind its stay time: constants of the format around the size of the picture file.
constexpr std::string_view kBeforeSize = "\x14@0\x04RC\x01\0\x01\x30\0\0"sv;
constexpr std::string_view kBehindSize = "\x28\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"sv;
static_assert(kBeforeSize.size() == 12 && kBehindSize.size() == 28);

constexpr std::uint8_t kDefaultFont = '1';
constexpr std::uint32_t kFirstFont = '0';
constexpr std::uint32_t kLastFont = 169;
constexpr std::uint8_t kDefaultColour = '1';
constexpr std::uint32_t kFirstColour = '0';
constexpr std::uint8_t kColourBytes = '/'; // announces three bytes of colour
constexpr std::uint8_t kDefaultMode = '0';
constexpr std::uint32_t kFirstMode = '/';

// The font and the colour of a picture in the file form.
constexpr std::uint32_t kPictureFont = '1';
constexpr std::uint32_t kPictureColour = 0xFFFFFF00 | kColourBytes;

struct Header
{
    std::vector<std::uint8_t> bytes;

    explicit Header(Form form) { Append(form == Form::kFile ? kFileIntro : kTransmissionIntro); }

    void Append(std::string_view text) { bytes.insert(bytes.end(), text.begin(), text.end()); }

    void AppendNumber(std::uint32_t number)
    {
        std::array<std::uint8_t, 4> field{};
        Store32(field.data(), number);
        bytes.insert(bytes.end(), field.begin(), field.end());
    }

    void AppendFont(std::uint32_t font)
    {
        Append("\x1A");
        bytes.push_back(font >= kFirstFont && font <= kLastFont ? static_cast<std::uint8_t>(font) : kDefaultFont);
    }

    void AppendColour(std::uint32_t colour)
    {
        Append("\x1C");
        if ((colour & 0xFF) == kColourBytes)
            AppendNumber(colour);
        else
            bytes.push_back(colour >= kFirstColour ? static_cast<std::uint8_t>(colour) : kDefaultColour);
    }

    void AppendModeAndStay(std::uint32_t mode, std::uint32_t staySec)
    {
        const std::uint8_t code = mode >= kFirstMode ? static_cast<std::uint8_t>(mode) : kDefaultMode;
        Append("\nI");
        bytes.push_back(code);
        Append("\nO");
        bytes.push_back(code);
        Append("\x0E\x32");
        for (const std::uint32_t unit : {1000u, 100u, 10u, 1u})
            bytes.push_back(static_cast<std::uint8_t>('0' + staySec / unit % 10));
    }
};

bool WriteBytes(const File& file, std::span<const std::uint8_t> bytes)
{
    return WriteAll(file, bytes.data(), bytes.size());
}

std::uint32_t Finish(File& file, bool written)
{
    return CloseFile(file) && written ? VX_OK : VX_CALL;
}

bool CopyBytes(const File& from, const File& to, std::uint32_t size)
{
    std::array<std::uint8_t, 4096> block;
    while (size != 0) {
        const std::size_t got = ReadSome(from, block.data(), std::min<std::size_t>(size, block.size()));
        if (got == 0 || !WriteAll(to, block.data(), got))
            return false;
        size -= static_cast<std::uint32_t>(got);
    }
    return true;
}

// Wraps a picture file into a message file.
std::uint32_t Wrap(const char* picturePath, const char* path, Form form, const Attributes& attributes)
{
    const File picture = OpenFile(picturePath, "rb");
    if (!picture)
        return VX_OPEN_FILE;
    const auto size = SignFileSize(picture);
    if (!size)
        return VX_CALL;
    File file = OpenFile(path, "wb");
    if (!file)
        return VX_OPEN_FILE;
    return Finish(file, WriteBytes(file, PictureHeader(form, attributes, *size)) && CopyBytes(picture, file, *size));
}

} // namespace

std::vector<std::uint8_t> TextHeader(Form form, const Attributes& attributes)
{
    Header header(form);
    header.AppendFont(attributes.font);
    header.AppendColour(attributes.colour);
    header.AppendModeAndStay(attributes.mode, attributes.staySec);
    return header.bytes;
}

std::vector<std::uint8_t> PictureHeader(Form form, const Attributes& attributes, std::uint32_t pictureSize)
{
    Header header(form);
    if (form == Form::kFile) {
        header.AppendFont(kPictureFont);
        header.AppendColour(kPictureColour);
    }
    header.AppendModeAndStay(attributes.mode, attributes.staySec);
    header.Append(kBeforeSize);
    header.AppendNumber(pictureSize);
    header.Append(kBehindSize);
    return header.bytes;
}

std::uint32_t WriteText(const char* path, Form form, const Attributes& attributes, std::span<const std::uint8_t> text)
{
    File file = OpenFile(path, "wb");
    if (!file)
        return VX_OPEN_FILE;
    return Finish(file, WriteBytes(file, TextHeader(form, attributes)) && WriteBytes(file, text) &&
                            WriteAll(file, &kTextEnd, 1));
}

std::uint32_t WritePicture(const char* path, Form form, const Attributes& attributes,
                           std::span<const std::uint8_t> picture)
{
    File file = OpenFile(path, "wb");
    if (!file)
        return VX_OPEN_FILE;
    const auto size = static_cast<std::uint32_t>(picture.size());
    return Finish(file, WriteBytes(file, PictureHeader(form, attributes, size)) && WriteBytes(file, picture));
}

} // namespace vxsign::nmg

using namespace vxsign;

std::uint32_t vxShowMsgToNmg(const std::uint8_t* text, std::uint32_t size, const char* path, int font,
                             std::uint32_t colour, std::uint32_t mode, std::uint32_t staySec)
{
    if (text == nullptr || path == nullptr || size == 0)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        const nmg::Attributes attributes{mode, staySec, static_cast<std::uint32_t>(font), colour};
        return nmg::WriteText(path, nmg::Form::kFile, attributes, {text, size});
    });
}

std::uint32_t vxShowBmpToNmg(const char* bmpPath, const char* nmgPath, std::uint32_t mode, std::uint32_t staySec)
{
    if (bmpPath == nullptr || nmgPath == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        return nmg::Wrap(bmpPath, nmgPath, nmg::Form::kTransmission, {.mode = mode, .staySec = staySec});
    });
}

std::uint32_t vxBmp2Nmg(const char* bmpPath, const char* nmgPath, std::uint16_t staySec, std::uint8_t mode)
{
    if (bmpPath == nullptr || nmgPath == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(
        VX_CALL, [=] { return nmg::Wrap(bmpPath, nmgPath, nmg::Form::kFile, {.mode = mode, .staySec = staySec}); });
}

// Tells kinds of files by their contents, and decodes pictures.
#include "vxctl/show/pictures.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"

#include "sim/content/nmg.h"
#include "sim/content/picture.h"

#include <algorithm>
#include <string_view>

namespace vxctl {

namespace {

using namespace std::string_view_literals;

struct Kind
{
    std::size_t at;
    std::string_view mark;
    std::string_view name;
};

constexpr std::string_view kSvg = "a drawing (SVG): draw it into a PNG first";

constexpr Kind kKinds[] = {
    {0, "<svg", kSvg},
    {0, "%PDF", "a PDF: save the page as a PNG first"},
    {8, "WEBP", "a WebP picture: save it as a PNG first"},
    {4, "ftyp", "a film, or a picture such as HEIC or AVIF: save it as a PNG first"},
    {0, "II*\0"sv, "a TIFF picture: save it as a PNG first"},
    {0, "MM\0*"sv, "a TIFF picture: save it as a PNG first"},
    {0, "\0\0\1\0"sv, "an icon: save it as a PNG first"},
    {0, "PK\3\4", "an archive or office document"},
};

std::string_view TextOf(FileBytes bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

bool IsText(std::string_view text)
{
    return std::ranges::none_of(text.substr(0, 512), [](unsigned char c) { return c < ' ' && !std::isspace(c); });
}

// What a file is that is no picture; "" when that is not known.
std::string_view NameOf(std::string_view text)
{
    const auto* const kind = std::ranges::find_if(
        kKinds, [&](const Kind& row) { return text.size() >= row.at && text.substr(row.at).starts_with(row.mark); });
    if (kind != std::end(kKinds))
        return kind->name;
    if (text.starts_with("<?xml") && text.find("<svg") != std::string_view::npos)
        return kSvg;
    return IsText(text) ? "a text" : "";
}

// A decoder takes what is missing of a BMP for black, and of a JPEG for grey.
bool IsCut(FileBytes bytes)
{
    constexpr std::uint32_t kBitFields = 3;
    const std::string_view text = TextOf(bytes);
    if (text.starts_with("BM")) {
        const std::uint32_t packing = Load32(bytes, 30);
        const std::uint64_t row = (std::uint64_t{Load32(bytes, 18)} * Load16(bytes, 28) + 31) / 32 * 4;
        const std::int64_t height = static_cast<std::int32_t>(Load32(bytes, 22)); // below 0 from the top down
        const auto rows = static_cast<std::uint64_t>(height < 0 ? -height : height);
        const bool isPlain = packing == 0 || packing == kBitFields;
        return isPlain && Load32(bytes, 14) >= 40 && Load32(bytes, 10) + row * rows > bytes.size();
    }
    if (!text.starts_with("\xFF\xD8\xFF"))
        return false;
    const std::size_t scan = text.rfind("\xFF\xDA");
    return scan == std::string_view::npos || text.find("\xFF\xD9", scan) == std::string_view::npos;
}

} // namespace

std::vector<Frame> DecodeFrames(FileBytes bytes)
{
    if (TextOf(bytes).starts_with("GIF8"))
        return DecodeGif(bytes);
    if (!vxsim::IsPicture(bytes)) {
        const std::string name(NameOf(TextOf(bytes)));
        throw UsageError("no picture (BMP, PNG, JPEG or GIF)" + (name.empty() ? name : ", but " + name));
    }
    if (IsCut(bytes))
        throw UsageError("a picture of which the end is missing");
    auto picture = vxsim::DecodeWholePicture(bytes);
    if (!picture)
        throw UsageError("a picture that is damaged, or too large to be read");
    return {{std::move(*picture)}};
}

std::string WhyNotShown(FileBytes bytes)
{
    const auto message = vxsim::ParseNmg(bytes);
    if (message && !message->picture)
        return "";
    const FileBytes picture = message ? *message->picture : bytes;
    if (TextOf(picture).starts_with("GIF8"))
        return "a GIF, which signs do not play: \"vxctl picture\" sends its frames";
    try {
        DecodeFrames(picture);
        return "";
    } catch (const UsageError& error) {
        return error.what();
    }
}

} // namespace vxctl

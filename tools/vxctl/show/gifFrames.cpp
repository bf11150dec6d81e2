// Reads the frames of GIF files one after the other, so that a small file cannot claim much memory.
#include "vxctl/show/pictures.h"

#include "vxctl/cli/failure.h"

#include "sim/face/stb.h"

#include <gif_lib.h>

#include <algorithm>
#include <memory>

namespace vxctl {

namespace {

constexpr std::size_t kMostFrames = 128;
constexpr std::size_t kMostPixelsOfAll = std::size_t{64} * 1024 * 1024;

struct CloseGif
{
    void operator()(GifFileType* file) const { DGifCloseFile(file, nullptr); }
};

int Read(GifFileType* file, GifByteType* out, int count)
{
    auto& rest = *static_cast<FileBytes*>(file->UserData);
    const std::size_t size = std::min(rest.size(), static_cast<std::size_t>(count));
    std::copy_n(rest.begin(), size, out);
    rest = rest.subspan(size);
    return static_cast<int>(size);
}

class Reader
{
public:
    explicit Reader(FileBytes bytes) : rest(bytes), file(DGifOpen(&rest, Read, nullptr))
    {
        if (!file)
            throw UsageError("a GIF that is damaged");
        if (file->SWidth < 1 || file->SHeight < 1 || file->SWidth > vxsim::Canvas::kMostPixelsPerSide ||
            file->SHeight > vxsim::Canvas::kMostPixelsPerSide || PixelsOfOne() > vxsim::kMostPicturePixels)
            throw UsageError("a GIF that is too large to be read");
    }

    std::vector<Frame> TakeAll()
    {
        vxsim::Canvas shown(file->SWidth, file->SHeight);
        std::vector<Frame> frames;
        for (GifRecordType type = TakeType(); type != TERMINATE_RECORD_TYPE; type = TakeType()) {
            if (type == EXTENSION_RECORD_TYPE) {
                TakeExtension();
            } else if (type == IMAGE_DESC_RECORD_TYPE) {
                if (frames.size() == kMostFrames || (frames.size() + 1) * PixelsOfOne() > kMostPixelsOfAll)
                    throw UsageError("a GIF with too many frames for a list of the sign");
                TakeImage(shown, frames);
            }
        }
        if (frames.empty())
            throw UsageError("a GIF without a picture");
        return frames;
    }

private:
    std::size_t PixelsOfOne() const
    {
        return static_cast<std::size_t>(file->SWidth) * static_cast<std::size_t>(file->SHeight);
    }

    static void Need(int status)
    {
        if (status != GIF_OK)
            throw UsageError("a GIF that is damaged, or of which the end is missing");
    }

    GifRecordType TakeType()
    {
        GifRecordType type = UNDEFINED_RECORD_TYPE;
        Need(DGifGetRecordType(file.get(), &type));
        return type;
    }

    void TakeExtension()
    {
        int code = 0;
        GifByteType* block = nullptr;
        Need(DGifGetExtension(file.get(), &code, &block));
        while (block != nullptr) {
            if (code == GRAPHICS_EXT_FUNC_CODE && block[0] >= 4)
                DGifExtensionToGCB(block[0], block + 1, &control);
            Need(DGifGetExtensionNext(file.get(), &block));
        }
    }

    // What the frame before left is under it; afterwards the frame stays, or goes in one of two ways.
    void TakeImage(vxsim::Canvas& shown, std::vector<Frame>& frames)
    {
        Need(DGifGetImageDesc(file.get()));
        const GifImageDesc& place = file->Image;
        if (place.Width < 1 || place.Height < 1 || place.Width > file->SWidth || place.Height > file->SHeight)
            throw UsageError("a GIF that is damaged");
        const vxsim::Canvas before = shown;
        constexpr int kOffsets[] = {0, 4, 2, 1};
        constexpr int kSteps[] = {8, 8, 4, 2};
        for (int pass = 0; pass < (place.Interlace ? 4 : 1); ++pass)
            for (int y = place.Interlace ? kOffsets[pass] : 0; y < place.Height;
                 y += place.Interlace ? kSteps[pass] : 1)
                TakeLine(shown, place, y);
        frames.push_back({shown, static_cast<std::uint32_t>(control.DelayTime) * 10});
        if (control.DisposalMode == DISPOSE_PREVIOUS)
            shown = before;
        else if (control.DisposalMode == DISPOSE_BACKGROUND)
            shown.Put(vxsim::Canvas(place.Width, place.Height), place.Left, place.Top);
        control = {DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
    }

    void TakeLine(vxsim::Canvas& shown, const GifImageDesc& place, int y)
    {
        const ColorMapObject* const colours = place.ColorMap != nullptr ? place.ColorMap : file->SColorMap;
        std::vector<GifPixelType> line(static_cast<std::size_t>(place.Width));
        Need(DGifGetLine(file.get(), line.data(), place.Width));
        for (int x = 0; x < place.Width; ++x) {
            const int index = line[static_cast<std::size_t>(x)];
            if (index == control.TransparentColor || colours == nullptr || index >= colours->ColorCount)
                continue;
            const GifColorType& colour = colours->Colors[index];
            shown.Set(place.Left + x, place.Top + y, {colour.Red, colour.Green, colour.Blue});
        }
    }

    FileBytes rest;
    std::unique_ptr<GifFileType, CloseGif> file;
    GraphicsControlBlock control{DISPOSAL_UNSPECIFIED, false, 0, NO_TRANSPARENT_COLOR};
};

} // namespace

std::vector<Frame> DecodeGif(FileBytes bytes)
{
    return Reader(bytes).TakeAll();
}

} // namespace vxctl

// Writes an animation.
#include "vxctl/playlist/gif.h"

#include "vxctl/cli/failure.h"

#include <vxsign/local.h>

#include <gif_lib.h>

#include <array>
#include <memory>
#include <utility>
#include <vector>

namespace vxctl {

namespace {

constexpr int kPitch = 4;
constexpr int kLamp = 3; // of the pitch

// The colours: a cube, then the unlit lamp and the panel.
constexpr int kReds = 6;
constexpr int kGreens = 7;
constexpr int kBlues = 6;
constexpr int kUnlit = kReds * kGreens * kBlues;
constexpr int kPanel = kUnlit + 1;
constexpr int kColours = 256;

int Level(int value, int levels)
{
    return (value * (levels - 1) + 127) / 255;
}

GifByteType Value(int level, int levels)
{
    return static_cast<GifByteType>(level * 255 / (levels - 1));
}

GifPixelType Index(vxsim::Rgb colour)
{
    const int index =
        (Level(colour.red, kReds) * kGreens + Level(colour.green, kGreens)) * kBlues + Level(colour.blue, kBlues);
    return static_cast<GifPixelType>(index == 0 ? kUnlit : index); // black light is none
}

std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)> MakeColours()
{
    std::array<GifColorType, kColours> colours{};
    for (int i = 0; i < kUnlit; ++i)
        colours[static_cast<std::size_t>(i)] = {Value(i / (kGreens * kBlues), kReds),
                                                Value(i / kBlues % kGreens, kGreens), Value(i % kBlues, kBlues)};
    colours[kUnlit] = {28, 28, 30};
    colours[kPanel] = {10, 10, 11};
    return {GifMakeMapObject(kColours, colours.data()), GifFreeMapObject};
}

int WriteBytes(GifFileType* gif, const GifByteType* bytes, int count)
{
    return static_cast<int>(std::fwrite(bytes, 1, static_cast<std::size_t>(count), static_cast<FILE*>(gif->UserData)));
}

void CheckGif(int status)
{
    if (status != GIF_OK)
        throw SignFailure(VX_OPEN_FILE);
}

} // namespace

Gif::Gif(const std::string& path, int faceWidth, int faceHeight)
    : out(vxFOpen(path.c_str(), "wb"), std::fclose), file(out ? EGifOpen(out.get(), WriteBytes, nullptr) : nullptr),
      width(faceWidth * kPitch), height(faceHeight * kPitch)
{
    if (file == nullptr)
        throw SignFailure(VX_OPEN_FILE);
    const auto colours = MakeColours();
    EGifSetGifVersion(file, true);
    const GifByteType forEver[] = {1, 0, 0};
    const bool begun = EGifPutScreenDesc(file, width, height, 8, kPanel, colours.get()) == GIF_OK &&
                       EGifPutExtensionLeader(file, APPLICATION_EXT_FUNC_CODE) == GIF_OK &&
                       EGifPutExtensionBlock(file, 11, "NETSCAPE2.0") == GIF_OK &&
                       EGifPutExtensionBlock(file, sizeof forEver, forEver) == GIF_OK &&
                       EGifPutExtensionTrailer(file) == GIF_OK;
    if (!begun) {
        EGifCloseFile(file, nullptr);
        throw SignFailure(VX_OPEN_FILE);
    }
}

Gif::~Gif()
{
    if (file != nullptr)
        EGifCloseFile(file, nullptr);
}

void Gif::Add(const vxsim::Canvas& face, std::uint32_t milliseconds)
{
    const std::uint32_t hundredths = milliseconds / 10;
    const GifByteType control[] = {0, static_cast<GifByteType>(hundredths), static_cast<GifByteType>(hundredths >> 8),
                                   0};
    CheckGif(EGifPutExtension(file, GRAPHICS_EXT_FUNC_CODE, sizeof control, control));
    CheckGif(EGifPutImageDesc(file, 0, 0, width, height, false, nullptr));
    std::vector<GifPixelType> line(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool lamp = x % kPitch < kLamp && y % kPitch < kLamp;
            line[static_cast<std::size_t>(x)] =
                lamp ? Index(face.At(x / kPitch, y / kPitch)) : static_cast<GifPixelType>(kPanel);
        }
        CheckGif(EGifPutLine(file, line.data(), width));
    }
}

void Gif::Close()
{
    CheckGif(EGifCloseFile(std::exchange(file, nullptr), nullptr));
    if (std::fclose(out.release()) != 0)
        throw SignFailure(VX_OPEN_FILE);
}

} // namespace vxctl

// Writes an animation.
#include "vxctl/playlist/gif.h"

#include "vxctl/cli/failure.h"

#include <vxsign/local.h>

#include <gif_lib.h>

#include <array>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vxctl {

namespace {

constexpr int kPitch = 4;
constexpr int kLamp = 3; // of the pitch

constexpr int kColours = 256; // of a frame: those of the lamps, then the unlit lamp and the panel
constexpr int kUnlit = kColours - 2;
constexpr int kPanel = kUnlit + 1;

// A cube, for a face with more colours than a frame has.
constexpr int kReds = 6;
constexpr int kGreens = 7;
constexpr int kBlues = 6;

int Level(int value, int levels)
{
    return (value * (levels - 1) + 127) / 255;
}

std::uint8_t Value(int level, int levels)
{
    return static_cast<std::uint8_t>(level * 255 / (levels - 1));
}

vxsim::Rgb InCube(vxsim::Rgb colour)
{
    return {Value(Level(colour.red, kReds), kReds), Value(Level(colour.green, kGreens), kGreens),
            Value(Level(colour.blue, kBlues), kBlues)};
}

int NumberOf(vxsim::Rgb colour)
{
    return colour.red << 16 | colour.green << 8 | colour.blue;
}

// The colours of a face, as they are or as the cube has them.
class Palette
{
public:
    explicit Palette(const vxsim::Canvas& face) : isExact(Collect(face, true))
    {
        if (!isExact)
            Collect(face, false);
    }

    GifPixelType Index(vxsim::Rgb colour) const
    {
        return static_cast<GifPixelType>(places.at(NumberOf(isExact ? colour : InCube(colour))));
    }

    std::unique_ptr<ColorMapObject, decltype(&GifFreeMapObject)> Map() const
    {
        std::array<GifColorType, kColours> colours{};
        for (const auto& [number, place] : places)
            colours[static_cast<std::size_t>(place)] = {static_cast<GifByteType>(number >> 16),
                                                        static_cast<GifByteType>(number >> 8),
                                                        static_cast<GifByteType>(number)};
        colours[kUnlit] = {28, 28, 30};
        colours[kPanel] = {10, 10, 11};
        return {GifMakeMapObject(kColours, colours.data()), GifFreeMapObject};
    }

private:
    // False when there are too many.
    bool Collect(const vxsim::Canvas& face, bool exactly)
    {
        places = {{0, kUnlit}}; // black light is none
        for (int y = 0; y < face.Height(); ++y)
            for (int x = 0; x < face.Width(); ++x) {
                const vxsim::Rgb colour = face.At(x, y);
                places.emplace(NumberOf(exactly ? colour : InCube(colour)), static_cast<int>(places.size()) - 1);
                if (places.size() > kUnlit + 1)
                    return false;
            }
        return true;
    }

    std::unordered_map<int, int> places;
    bool isExact;
};

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
    const auto colours = Palette(vxsim::Canvas(1, 1)).Map();
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
    const Palette palette(face);
    CheckGif(EGifPutImageDesc(file, 0, 0, width, height, false, palette.Map().get()));
    std::vector<GifPixelType> line(static_cast<std::size_t>(width));
    for (int y = 0; y < height; ++y) {
        for (int x = 0; x < width; ++x) {
            const bool lamp = x % kPitch < kLamp && y % kPitch < kLamp;
            line[static_cast<std::size_t>(x)] =
                lamp ? palette.Index(face.At(x / kPitch, y / kPitch)) : static_cast<GifPixelType>(kPanel);
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

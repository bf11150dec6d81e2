#include "sim/content/picture.h"

#include "sim/face/stb.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <limits>
#include <memory>

namespace vxsim {

namespace {

constexpr std::array<std::uint8_t, 2> kBmpStart{'B', 'M'};
constexpr std::array<std::uint8_t, 3> kJpegStart{0xFF, 0xD8, 0xFF};
constexpr std::array<std::uint8_t, 8> kPngStart{0x89, 'P', 'N', 'G', 0x0D, 0x0A, 0x1A, 0x0A};

// A scan of a JPEG file can be a few bytes long and still make the decoder visit every pixel. Progressive files as
// they are made have about ten.
constexpr std::size_t kMostJpegScans = 64;

// What a sign shows it unpacks while its hosts wait.
constexpr std::size_t kMostShownPixels = kMostPicturePixels / 2;
constexpr std::size_t kMostVisitedPixels = 4 * kMostShownPixels; // by the scans of a JPEG

constexpr int kChannels = 4; // red, green, blue, opacity

struct FreePixels
{
    void operator()(stbi_uc* pixels) const { stbi_image_free(pixels); }
};

struct Pixels
{
    int width = 0;
    int height = 0;
    std::unique_ptr<stbi_uc, FreePixels> bytes;
};

template <std::size_t kSize>
bool StartsWith(std::span<const std::uint8_t> bytes, const std::array<std::uint8_t, kSize>& start)
{
    return bytes.size() >= kSize && std::equal(start.begin(), start.end(), bytes.begin());
}

// 0 but for a JPEG.
std::size_t CountScans(std::span<const std::uint8_t> bytes)
{
    std::size_t scans = 0;
    if (!StartsWith(bytes, kJpegStart))
        return scans;
    for (std::size_t i = 1; i < bytes.size() && scans <= kMostJpegScans; ++i)
        scans += bytes[i - 1] == 0xFF && bytes[i] == 0xDA ? 1 : 0;
    return scans;
}

// The size is looked at before anything is decoded.
std::optional<Pixels> Decode(std::span<const std::uint8_t> bytes, std::size_t mostPixels, std::size_t mostVisited)
{
    const std::size_t scans = CountScans(bytes);
    if (!IsPicture(bytes) || bytes.size() > static_cast<std::size_t>(std::numeric_limits<int>::max()) ||
        scans > kMostJpegScans)
        return std::nullopt;
    const int size = static_cast<int>(bytes.size());

    Pixels pixels;
    int channels = 0;
    if (stbi_info_from_memory(bytes.data(), size, &pixels.width, &pixels.height, &channels) == 0)
        return std::nullopt;
    if (pixels.width < 1 || pixels.height < 1 || pixels.width > kMostPictureSide || pixels.height > kMostPictureSide)
        return std::nullopt;
    const std::size_t area = static_cast<std::size_t>(pixels.width) * static_cast<std::size_t>(pixels.height);
    if (area > mostPixels || area * scans > mostVisited)
        return std::nullopt;

    pixels.bytes.reset(stbi_load_from_memory(bytes.data(), size, &pixels.width, &pixels.height, &channels, kChannels));
    if (!pixels.bytes)
        return std::nullopt;
    return pixels;
}

// The average of a rectangle of the picture, on black.
Rgb Average(const Pixels& pixels, int left, int top, int right, int bottom)
{
    std::array<std::uint64_t, 3> sums{};
    for (int y = top; y < bottom; ++y) {
        const stbi_uc* pixel =
            pixels.bytes.get() +
            (static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.width) + static_cast<std::size_t>(left)) *
                kChannels;
        for (int x = left; x < right; ++x, pixel += kChannels) {
            for (std::size_t channel = 0; channel < sums.size(); ++channel)
                sums[channel] += std::uint64_t{pixel[channel]} * pixel[3];
        }
    }
    const std::uint64_t full =
        255 * static_cast<std::uint64_t>(right - left) * static_cast<std::uint64_t>(bottom - top);
    const auto mean = [full](std::uint64_t sum) { return static_cast<std::uint8_t>((sum + full / 2) / full); };
    return {mean(sums[0]), mean(sums[1]), mean(sums[2])};
}

// a * b / c, rounded down, at least 1.
int Scaled(int a, int b, int c)
{
    return std::max(1, static_cast<int>(std::int64_t{a} * b / c));
}

Canvas Fit(const Pixels& pixels, int width, int height)
{
    Canvas face(width, height);
    int fitWidth = pixels.width;
    int fitHeight = pixels.height;
    if (fitWidth > face.Width()) {
        fitHeight = Scaled(pixels.height, face.Width(), pixels.width);
        fitWidth = face.Width();
    }
    if (fitHeight > face.Height()) {
        fitWidth = std::min(Scaled(pixels.width, face.Height(), pixels.height), face.Width());
        fitHeight = face.Height();
    }

    const int left = (face.Width() - fitWidth) / 2;
    const int top = (face.Height() - fitHeight) / 2;
    const auto edge = [](int index, int from, int to) { return static_cast<int>(std::int64_t{index} * from / to); };
    for (int y = 0; y < fitHeight; ++y) {
        const int sourceTop = edge(y, pixels.height, fitHeight);
        const int sourceBottom = edge(y + 1, pixels.height, fitHeight);
        for (int x = 0; x < fitWidth; ++x) {
            const int sourceLeft = edge(x, pixels.width, fitWidth);
            const int sourceRight = edge(x + 1, pixels.width, fitWidth);
            face.Set(left + x, top + y, Average(pixels, sourceLeft, sourceTop, sourceRight, sourceBottom));
        }
    }
    return face;
}

} // namespace

bool IsPicture(std::span<const std::uint8_t> bytes)
{
    return StartsWith(bytes, kBmpStart) || StartsWith(bytes, kJpegStart) || StartsWith(bytes, kPngStart);
}

std::optional<Canvas> DecodePicture(std::span<const std::uint8_t> bytes, int width, int height)
{
    const std::optional<Pixels> pixels = Decode(bytes, kMostShownPixels, kMostVisitedPixels);
    if (!pixels)
        return std::nullopt;
    return Fit(*pixels, width, height);
}

std::optional<Canvas> DecodeWholePicture(std::span<const std::uint8_t> bytes)
{
    const std::optional<Pixels> pixels = Decode(bytes, kMostPicturePixels, kMostJpegScans * kMostPicturePixels);
    if (!pixels)
        return std::nullopt;
    const int longest = std::max(pixels->width, pixels->height);
    const int shown = std::min(longest, Canvas::kMostPixelsPerSide);
    return Fit(*pixels, Scaled(pixels->width, shown, longest), Scaled(pixels->height, shown, longest));
}

} // namespace vxsim

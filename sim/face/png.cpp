#include "sim/face/png.h"

#include "sim/face/stb.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <fstream>
#include <system_error>

namespace vxsim {

namespace {

constexpr int kChannels = 3;
constexpr int kSmallestPitch = 4;
constexpr int kLargestPitch = 32;
constexpr std::int64_t kMostPngPixels = std::int64_t{8} * 1024 * 1024;

// Light adds up linearly; the picture's bytes don't.
constexpr double kGamma = 2.2;

// All in units of the pitch.
constexpr double kLampRadius = 0.40;
constexpr double kGlowReach = 2.0;
constexpr double kBezelWidth = 1.5;

// Linear brightness.
constexpr float kPanel = 0.0015F;
constexpr float kUnlitLamp = 0.0085F;
constexpr float kBezel = 0.014F;
constexpr float kBezelEdge = 0.045F;
constexpr float kGlow = 0.10F;
constexpr float kCore = 0.45F;
constexpr float kWhitening = 0.5F; // of what is too bright

struct Light
{
    float red = 0;
    float green = 0;
    float blue = 0;
};

// What one lamp does to the pixels around it, as squares of side * side centred on the lamp.
class Lamp
{
public:
    explicit Lamp(int pitch)
        : margin(static_cast<int>(std::ceil(kGlowReach * pitch))), side(pitch + 2 * margin),
          body(static_cast<std::size_t>(side) * static_cast<std::size_t>(side)), glow(body.size()), core(body.size())
    {
        const double middle = (side - 1) / 2.0;
        for (int y = 0; y < side; ++y) {
            for (int x = 0; x < side; ++x) {
                const double distance = std::hypot(x - middle, y - middle) / pitch;
                const std::size_t at = Index(x, y);
                const double edge = (kLampRadius - distance) * pitch + 0.5;
                body[at] = static_cast<float>(std::clamp(edge, 0.0, 1.0));
                const double fade = std::max(0.0, 1.0 - distance / kGlowReach);
                glow[at] = static_cast<float>(fade * fade * std::exp(-1.6 * distance));
                core[at] = static_cast<float>(std::exp(-std::pow(distance / (kLampRadius * 0.55), 2)));
            }
        }
    }

    int Margin() const { return margin; }
    int Side() const { return side; }
    float Body(int x, int y) const { return body[Index(x, y)]; } // how much of the pixel the lamp covers
    float Glow(int x, int y) const { return glow[Index(x, y)]; } // light thrown on the surroundings
    float Core(int x, int y) const { return core[Index(x, y)]; } // the bright spot of the chip

private:
    std::size_t Index(int x, int y) const
    {
        return static_cast<std::size_t>(y) * static_cast<std::size_t>(side) + static_cast<std::size_t>(x);
    }

    int margin;
    int side;
    std::vector<float> body;
    std::vector<float> glow;
    std::vector<float> core;
};

float Linear(std::uint8_t value)
{
    return static_cast<float>(std::pow(value / 255.0, kGamma));
}

std::uint8_t Encoded(float light)
{
    return static_cast<std::uint8_t>(std::lround(255.0 * std::pow(std::clamp(light, 0.0F, 1.0F), 1.0 / kGamma)));
}

// The picture under work: the panel of lamps with the bezel around it.
class Panel
{
public:
    Panel(const Canvas& face, int lampPitch)
        : pitch(lampPitch), bezel(static_cast<int>(std::lround(kBezelWidth * pitch))),
          width(face.Width() * pitch + 2 * bezel), height(face.Height() * pitch + 2 * bezel), lamp(pitch),
          pixels(static_cast<std::size_t>(width) * static_cast<std::size_t>(height))
    {
        for (std::size_t i = 0; i < linear.size(); ++i)
            linear[i] = Linear(static_cast<std::uint8_t>(i));
        DrawBezel();
        for (int y = 0; y < face.Height(); ++y) {
            for (int x = 0; x < face.Width(); ++x)
                DrawUnlit(x, y);
        }
        for (int y = 0; y < face.Height(); ++y) {
            for (int x = 0; x < face.Width(); ++x) {
                if (face.At(x, y) != Rgb{})
                    DrawLit(x, y, face.At(x, y));
            }
        }
    }

    int Width() const { return width; }
    int Height() const { return height; }

    std::vector<std::uint8_t> Bytes() const
    {
        // Encoding by a table: the eye doesn't see steps of 1/4096, and the power function is slow.
        std::array<std::uint8_t, 4097> encoded{};
        for (std::size_t i = 0; i < encoded.size(); ++i)
            encoded[i] = Encoded(static_cast<float>(i) / 4096.0F);
        const auto byteOf = [&](float light) {
            return encoded[static_cast<std::size_t>(std::clamp(light, 0.0F, 1.0F) * 4096.0F)];
        };

        std::vector<std::uint8_t> bytes;
        bytes.reserve(pixels.size() * kChannels);
        for (const Light& light : pixels) {
            // What is brighter than a channel can show turns whitish, and keeps its hue.
            const float peak = std::max({1.0F, light.red, light.green, light.blue});
            const float white = std::min(1.0F, (peak - 1.0F) * kWhitening);
            for (const float channel : {light.red, light.green, light.blue})
                bytes.push_back(byteOf(channel / peak + (1.0F - channel / peak) * white));
        }
        return bytes;
    }

private:
    Light& PixelAt(int x, int y)
    {
        return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) + static_cast<std::size_t>(x)];
    }

    void DrawBezel()
    {
        const int edge = std::max(1, pitch / 4);
        for (int y = 0; y < height; ++y) {
            for (int x = 0; x < width; ++x) {
                const int depth = std::min({x, y, width - 1 - x, height - 1 - y});
                float light = kPanel;
                if (depth < edge)
                    light = kBezelEdge;
                else if (depth < bezel - edge)
                    light = kBezel;
                PixelAt(x, y) = {light, light, light * 1.1F};
            }
        }
    }

    void DrawUnlit(int column, int row)
    {
        for (int y = 0; y < pitch; ++y) {
            for (int x = 0; x < pitch; ++x) {
                const float body = lamp.Body(lamp.Margin() + x, lamp.Margin() + y);
                const float light = kPanel + (kUnlitLamp - kPanel) * body;
                PixelAt(bezel + column * pitch + x, bezel + row * pitch + y) = {light, light, light * 1.1F};
            }
        }
    }

    void DrawLit(int column, int row, Rgb colour)
    {
        const Light light{linear[colour.red], linear[colour.green], linear[colour.blue]};
        const int left = bezel + column * pitch - lamp.Margin();
        const int top = bezel + row * pitch - lamp.Margin();
        for (int y = std::max(0, -top); y < lamp.Side() && top + y < height; ++y) {
            for (int x = std::max(0, -left); x < lamp.Side() && left + x < width; ++x) {
                const float body = lamp.Body(x, y);
                const float strength = body * (0.85F + kCore * lamp.Core(x, y)) + kGlow * lamp.Glow(x, y);
                Light& pixel = PixelAt(left + x, top + y);
                pixel.red += light.red * strength;
                pixel.green += light.green * strength;
                pixel.blue += light.blue * strength;
            }
        }
    }

    int pitch;
    int bezel;
    int width;
    int height;
    Lamp lamp;
    std::vector<Light> pixels;
    std::array<float, 256> linear{};
};

// The largest pitch up to the wanted one that keeps the picture within the limits.
int FittingPitch(const Canvas& face, int wanted)
{
    int pitch = std::clamp(wanted, kSmallestPitch, kLargestPitch);
    const auto fits = [&] {
        const std::int64_t width = std::int64_t{face.Width() + 3} * pitch;
        const std::int64_t height = std::int64_t{face.Height() + 3} * pitch;
        return width * height <= kMostPngPixels;
    };
    while (pitch > 1 && !fits())
        --pitch;
    return pitch;
}

} // namespace

std::vector<std::uint8_t> PngFace(const Canvas& face, int pitch)
{
    const Panel panel(face, FittingPitch(face, pitch));
    const std::vector<std::uint8_t> pixels = panel.Bytes();
    std::vector<std::uint8_t> png;
    const int stride = panel.Width() * kChannels;
    if (stbi_write_png_to_func(AppendBytes, &png, panel.Width(), panel.Height(), kChannels, pixels.data(), stride) == 0)
        png.clear();
    return png;
}

bool WritePngFace(const Canvas& face, const std::filesystem::path& path, int pitch)
{
    const std::vector<std::uint8_t> png = PngFace(face, pitch);
    if (png.empty())
        return false;
    std::filesystem::path part = path;
    part += ".part";
    std::ofstream file(part, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(png.data()), static_cast<std::streamsize>(png.size()));
    file.close();
    std::error_code error;
    if (file.good())
        std::filesystem::rename(part, path, error);
    else
        error = std::make_error_code(std::errc::io_error);
    if (!error)
        return true;
    std::error_code ignored;
    std::filesystem::remove(part, ignored);
    return false;
}

} // namespace vxsim

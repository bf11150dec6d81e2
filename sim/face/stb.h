// The stb libraries as this sign uses them: pictures from memory only, and only of the three kinds it shows.
#pragma once

#include <cstddef>

#define STBI_ONLY_BMP
#define STBI_ONLY_JPEG
#define STBI_ONLY_PNG
#define STBI_NO_STDIO
#define STBI_NO_FAILURE_STRINGS
#define STBI_WRITE_NO_STDIO

namespace vxsim {

// Pictures beyond this are refused, in either direction.
inline constexpr int kMostPictureSide = 8192;
inline constexpr std::size_t kMostPicturePixels = std::size_t{16} * 1024 * 1024;

// No single block of a decoder is larger. A small file can claim, and even unpack to, far more than any picture
// within the limits above needs.
inline constexpr std::size_t kMostDecoderBlock = 6 * kMostPicturePixels;

// For the writers of stb: appends what they give to a std::vector<std::uint8_t>.
void AppendBytes(void* vector, void* data, int size);

} // namespace vxsim

#include <stb_image.h>
#include <stb_image_resize.h>
#include <stb_image_write.h>

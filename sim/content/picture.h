// BMP, JPEG and PNG files on the face.
#pragma once

#include "sim/face/canvas.h"

#include <cstdint>
#include <optional>
#include <span>

namespace vxsim {

// Whether the bytes start like a BMP, JPEG or PNG file.
bool IsPicture(std::span<const std::uint8_t> bytes);

// The picture in the middle of a face of that size. A larger one is scaled down, keeping its proportions, by averaging
// areas; a smaller one keeps its size. What is transparent is unlit. nullopt for bytes that are no picture, that the
// decoder refuses, or that are too large: more than 8192 pixels wide or high, or 16 million in all.
std::optional<Canvas> DecodePicture(std::span<const std::uint8_t> bytes, int width, int height);

// The same as large as it is, or scaled down to what a canvas holds.
std::optional<Canvas> DecodeWholePicture(std::span<const std::uint8_t> bytes);

} // namespace vxsim

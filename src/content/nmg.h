// NMG messages: an intro, groups of attributes, then the text or the picture file as it is.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace vxsign::nmg {

/// How a message begins. A sign plays both forms alike; what follows the intro is the same in both, but for the font
/// and the colour that a picture has in the file form alone.
enum class Form
{
    kTransmission,
    kFile
};

/// As the caller gives them; the headers hold what the sign takes (see content.h). Pictures use mode and stay time.
struct Attributes
{
    std::uint32_t mode = 0;
    std::uint32_t staySec = 0;
    std::uint32_t font = 0;
    std::uint32_t colour = 0;
};

/// What stands ahead of a text: 23 bytes, or 26 with three colour bytes.
std::vector<std::uint8_t> TextHeader(Form form, const Attributes& attributes);

/// What stands ahead of a picture file of this size: 63 bytes, or 70 in the file form.
std::vector<std::uint8_t> PictureHeader(Form form, const Attributes& attributes, std::uint32_t pictureSize);

/// Make a message file. VX_OK, VX_OPEN_FILE when it cannot be made, VX_CALL when it could not be written in full; what
/// was written of it stays. May throw std::bad_alloc.
std::uint32_t WriteText(const char* path, Form form, const Attributes& attributes, std::span<const std::uint8_t> text);
std::uint32_t WritePicture(const char* path, Form form, const Attributes& attributes,
                           std::span<const std::uint8_t> picture);

} // namespace vxsign::nmg

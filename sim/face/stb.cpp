// The one place where the stb libraries are compiled.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <vector>

namespace {

// Within the limit that stb.h states; a block beyond it is refused as if memory had run out.
void* AllocateBlock(std::size_t size);
void* ReallocateBlock(void* block, std::size_t size);

} // namespace

#define STBI_MALLOC(size) AllocateBlock(size)
#define STBI_REALLOC(block, size) ReallocateBlock(block, size)
#define STBI_FREE(block) std::free(block)
#define STBI_MAX_DIMENSIONS 8192
#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_RESIZE_IMPLEMENTATION
#define STB_IMAGE_WRITE_IMPLEMENTATION
#include "sim/face/stb.h"

namespace {

static_assert(STBI_MAX_DIMENSIONS == vxsim::kMostPictureSide);

void* AllocateBlock(std::size_t size)
{
    return size <= vxsim::kMostDecoderBlock ? std::malloc(size) : nullptr;
}

void* ReallocateBlock(void* block, std::size_t size)
{
    return size <= vxsim::kMostDecoderBlock ? std::realloc(block, size) : nullptr;
}

} // namespace

void vxsim::AppendBytes(void* vector, void* data, int size)
{
    const auto* bytes = static_cast<const std::uint8_t*>(data);
    auto* out = static_cast<std::vector<std::uint8_t>*>(vector);
    out->insert(out->end(), bytes, bytes + size);
}

// Request fields that are put together at run time.
#pragma once

#include "vxBaseCMD/fields.h"
#include "vxBaseCMD/vxBaseCMD.h"

#include <array>

namespace vxsign {

/// Blocks one behind the other, as one. Refused when one of them is, or when they are longer than any request.
class Joined
{
public:
    template <class... Blocks>
    explicit Joined(const Blocks&... blocks)
    {
        (Append(blocks), ...);
    }

    operator Block() const { return {{bytes.data(), size}, refused}; }

private:
    void Append(const Block& block)
    {
        refused |= block.refused || block.bytes.size() > bytes.size() - size;
        if (refused)
            return;
        std::copy(block.bytes.begin(), block.bytes.end(), bytes.data() + size);
        size += block.bytes.size();
    }

    std::array<std::uint8_t, kRequestSize> bytes; // only the first `size` of them are ever looked at
    std::size_t size = 0;
    bool refused = false;
};

} // namespace vxsign

#include "sim/protocol/frameFinder.h"

#include <algorithm>

namespace vxsim {

void FrameFinder::Append(std::span<const std::uint8_t> more)
{
    bytes.erase(bytes.begin(), bytes.begin() + static_cast<std::ptrdiff_t>(start));
    start = 0;
    bytes.insert(bytes.end(), more.begin(), more.end());
}

void FrameFinder::Clear()
{
    bytes.clear();
    kept.clear();
    start = 0;
}

void FrameFinder::Skip(std::size_t count)
{
    const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(start);
    if (keepsSkipped)
        kept.insert(kept.end(), begin, begin + static_cast<std::ptrdiff_t>(count));
    start += count;
}

// Brings `start` to a sync pair, or to a last byte that may be the first half of one.
bool FrameFinder::SeekSync()
{
    while (start != bytes.size()) {
        const auto begin = bytes.begin() + static_cast<std::ptrdiff_t>(start);
        Skip(static_cast<std::size_t>(std::find(begin, bytes.end(), kSync) - begin));
        if (bytes.size() - start < 2)
            return false;
        if (IsRequestSync(bytes[start + 1]))
            return true;
        Skip(1);
    }
    return false;
}

std::optional<Frame> FrameFinder::Next()
{
    while (SeekSync()) {
        const auto rest = std::span<const std::uint8_t>(bytes).subspan(start);
        if (rest.size() < kHeaderSize)
            return std::nullopt;
        if (LooksLikeRequest(rest)) {
            const std::size_t length = DeclaredLength(rest);
            if (rest.size() < length)
                return std::nullopt;
            if (auto frame = ParseFrame(rest.first(length))) {
                start += length;
                return frame;
            }
        }
        // A damaged length may have swallowed the request behind it, so the search goes on right after the sync.
        Skip(2);
    }
    return std::nullopt;
}

void FrameFinder::GiveUp()
{
    if (IsWaiting())
        Skip(1);
}

} // namespace vxsim

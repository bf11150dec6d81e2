// What all fuzz targets share: the bytes of a run, a folder that it may fill, and time that never waits.
#pragma once

#include "support/fakeClock.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace vxsign::fuzz {

using Bytes = std::vector<std::uint8_t>;
using View = std::span<const std::uint8_t>;

/// The bytes of one run, read from the front; zeros behind their end.
class Input
{
public:
    Input(const std::uint8_t* bytes, std::size_t size) : left(bytes, size) {}
    explicit Input(View bytes) : left(bytes) {}

    bool IsOver() const { return left.empty(); }
    std::uint8_t U8()
    {
        const View one = Some(1);
        return one.empty() ? std::uint8_t{0} : one[0];
    }
    std::uint16_t U16()
    {
        const unsigned low = U8();
        return static_cast<std::uint16_t>(low | U8() * 256U);
    }
    std::uint32_t U32()
    {
        const std::uint32_t low = U16();
        return low | std::uint32_t{U16()} << 16;
    }

    /// As many as there are.
    View Some(std::size_t most)
    {
        const View taken = left.first(std::min(most, left.size()));
        left = left.subspan(taken.size());
        return taken;
    }
    View Rest() { return Some(left.size()); }

    /// Exactly so many, zeros where there are none.
    Bytes Whole(std::size_t size)
    {
        const View taken = Some(size);
        Bytes whole(taken.begin(), taken.end());
        whole.resize(size);
        return whole;
    }

    /// A text up to its NUL, and never longer.
    std::string Text(std::size_t most = 255)
    {
        std::string text;
        while (!left.empty() && text.size() < most)
            if (const std::uint8_t next = U8(); next != 0)
                text += static_cast<char>(next);
            else
                break;
        return text;
    }
    /// Bytes with their number ahead.
    View Block() { return Some(U16()); }

private:
    View left;
};

/// The same bytes as text.
inline std::string_view TextOf(View bytes)
{
    return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
}

/// The current folder of this process from here on, also for temporary files: made on first use below TMPDIR, and
/// emptied by each call. Ends the program when it runs as root, since names of files come out of thin air here, and
/// when a run has put something beside the folder.
const std::string& EmptyFolder();

/// Writes a file of the current folder.
void WriteFile(const std::string& name, View bytes);

/// What must hold, told with its text where it does not.
void Require(bool holds, const char* what);

} // namespace vxsign::fuzz

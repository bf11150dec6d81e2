#include "sim/files/fileLayouts.h"

#include "sim/files/fileRecord.h"

#include <algorithm>
#include <span>

namespace vxsim {
namespace {

// minor, minimum, drive, name, path, file size, chunk size, total, number, number size, folder
constexpr FileLayout kWriteLayouts[] = {
    {2, 24, kNoField, 0, kNoField, 12, 16, 18, 20, kShortNumber, ""},
    {3, 24, kNoField, 0, kNoField, 12, 16, 18, 20, kShortNumber, "FONT"},
    {4, 24, 0, 2, kNoField, 14, 18, 20, 22, kShortNumber, "T"},
    {5, 24, 0, 2, kNoField, 14, 18, 20, 22, kShortNumber, "S"},
    {6, 24, 0, 2, kNoField, 14, 18, 20, 22, kShortNumber, "P"},
    {7, 24, 0, 2, kNoField, 14, 18, 20, 22, kShortNumber, "A"},
    {8, 12, kNoField, kNoField, 10, 0, 4, 6, 8, kShortNumber, ""},
    {13, 16, kNoField, kNoField, 14, 0, 4, 6, 10, kLongNumber, ""},
    {19, 16, kNoField, kNoField, kNoField, 0, 4, 6, 10, kLongNumber, ""},
};

// Reading has three bytes behind the drive letter where writing has one, and announces no sizes.
constexpr FileLayout kReadLayouts[] = {
    {2, 16, kNoField, 0, kNoField, kNoField, 12, kNoField, 14, kShortNumber, ""},
    {3, 16, kNoField, 0, kNoField, kNoField, 12, kNoField, 14, kShortNumber, "FONT"},
    {4, 20, 0, 4, kNoField, kNoField, 16, kNoField, 18, kShortNumber, "T"},
    {5, 20, 0, 4, kNoField, kNoField, 16, kNoField, 18, kShortNumber, "S"},
    {6, 20, 0, 4, kNoField, kNoField, 16, kNoField, 18, kShortNumber, "P"},
    {7, 20, 0, 4, kNoField, kNoField, 16, kNoField, 18, kShortNumber, "A"},
    {8, 8, kNoField, kNoField, 4, kNoField, 0, kNoField, 2, kShortNumber, ""},
    {9, 4, kNoField, kNoField, kNoField, kNoField, 0, kNoField, 2, kShortNumber, ""},
    {17, 12, kNoField, kNoField, 8, kNoField, 0, kNoField, 4, kLongNumber, ""},
    {29, 8, kNoField, kNoField, kNoField, kNoField, 0, kNoField, 4, kLongNumber, ""},
    {31, 12, kNoField, kNoField, 8, kNoField, 0, kNoField, 4, kLongNumber, ""},
};

const FileLayout* Find(std::span<const FileLayout> layouts, std::uint8_t minor)
{
    const auto layout = std::ranges::find(layouts, minor, &FileLayout::minor);
    return layout == layouts.end() ? nullptr : &*layout;
}

} // namespace

const FileLayout* WriteLayout(std::uint8_t minor)
{
    return Find(kWriteLayouts, minor);
}

const FileLayout* ReadLayout(std::uint8_t minor)
{
    return Find(kReadLayouts, minor);
}

} // namespace vxsim

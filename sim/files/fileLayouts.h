// Where the fields of the records stand that move files, by command.
#pragma once

#include "sim/files/fileRecord.h"

#include <cstddef>

namespace vxsim {

inline constexpr std::size_t kNoField = 255;
inline constexpr std::size_t kNameSize = 12;

// A record names its file by a bare name of twelve bytes, by a path that runs to its terminator or to the end of the
// payload, or not at all: it is a file of the sign's own then.
struct FileLayout
{
    std::size_t drive = kNoField; // without one a bare name is on C
    std::size_t name = kNoField;
    std::size_t path = kNoField;
    std::size_t fileSize = kNoField;
    std::size_t chunkSize = 0;
    std::size_t total = kNoField; // as wide as the packet number
    std::size_t number = 0;
    std::size_t numberSize = kShortNumber;
    bool anyOrder = false; // of packets: the host may have several on the way
    bool isFlash = false;  // the data flash
};

inline constexpr FileLayout kNamedWrite{.name = 0, .fileSize = 12, .chunkSize = 16, .total = 18, .number = 20};
inline constexpr FileLayout kOnDriveWrite{
    .drive = 0, .name = 2, .fileSize = 14, .chunkSize = 18, .total = 20, .number = 22};
inline constexpr FileLayout kPathWrite{.path = 10, .fileSize = 0, .chunkSize = 4, .total = 6, .number = 8};
inline constexpr FileLayout kWindowWrite{
    .path = 14, .fileSize = 0, .chunkSize = 4, .total = 6, .number = 10, .numberSize = kLongNumber, .anyOrder = true};
inline constexpr FileLayout kFlashWrite{
    .fileSize = 0, .chunkSize = 4, .total = 6, .number = 10, .numberSize = kLongNumber, .isFlash = true};

// Reading has three bytes behind the drive letter where writing has one, and announces no sizes.
inline constexpr FileLayout kNamedRead{.name = 0, .chunkSize = 12, .number = 14};
inline constexpr FileLayout kOnDriveRead{.drive = 0, .name = 4, .chunkSize = 16, .number = 18};
inline constexpr FileLayout kPathRead{.path = 4, .chunkSize = 0, .number = 2};
inline constexpr FileLayout kLongPathRead{.path = 8, .chunkSize = 0, .number = 4, .numberSize = kLongNumber};
inline constexpr FileLayout kPlayLogRead{.chunkSize = 0, .number = 2};
inline constexpr FileLayout kFlashRead{.chunkSize = 0, .number = 4, .numberSize = kLongNumber, .isFlash = true};

} // namespace vxsim

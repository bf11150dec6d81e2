// What the quick show functions share: reaching the sign, its drive and its style.
#pragma once

#include "thread/connection.h"
#include "thread/threadRecords.h"

#include <array>
#include <cstdint>
#include <optional>

namespace vxsign::quickShow {

/// Places in the display style.
namespace style {
constexpr std::size_t kContentSource = 2; // 'E' when the content plays from drive E, else 'C'
constexpr std::size_t kEntryMode = 11;
constexpr std::size_t kExitMode = 12;
constexpr std::size_t kShortStay = 14; // seconds
constexpr std::size_t kStay = 16;      // seconds in 32 bits, when the short stay time is 255
constexpr std::uint8_t kLongStay = 255;
} // namespace style

/// The sign that content goes to.
struct Target
{
    char drive;
    std::uint8_t contentSource;
    std::array<std::uint8_t, vxApiState::kStyleSize> style;
};

/// Installs the connection, reads the sign's properties and chooses the drive: E if asked for, else F if the sign has
/// one, else D. Without a record of the sign there is no target: nothing is to be sent, and the result is 0 all the
/// same.
std::uint32_t Reach(const Connection& connection, std::uint32_t toE, std::optional<Target>& target);

} // namespace vxsign::quickShow

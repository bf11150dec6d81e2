#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace vxsim {

// The text in a payload from `at` to its terminator or, without one, to the end. Empty if `at` lies beyond the end.
inline std::string_view TextAt(std::span<const std::uint8_t> payload, std::size_t at)
{
    const auto text = payload.subspan(std::min(at, payload.size()));
    const auto end = std::ranges::find(text, std::uint8_t{0});
    return {reinterpret_cast<const char*>(text.data()), static_cast<std::size_t>(end - text.begin())};
}

} // namespace vxsim

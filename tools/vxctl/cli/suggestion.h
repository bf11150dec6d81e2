// What may have been meant by a word that nothing has for its name.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vxctl {

// How many characters are missing, too many, other, or swapped with their neighbour.
std::size_t EditDistance(std::string_view a, std::string_view b);

// The words that are as near to the typed one as the nearest, or begin with it; none when none is near.
std::vector<std::string_view> Nearest(std::string_view typed, const std::vector<std::string_view>& words);

// " (did you mean WORD or WORD?)"; empty for none, and of many the first.
std::string DidYouMean(std::vector<std::string_view> words);

} // namespace vxctl

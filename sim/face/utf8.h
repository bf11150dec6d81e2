// Reading UTF-8 from bytes nobody checked.
#pragma once

#include <string_view>

namespace vxsim {

// Shown in place of what can't be shown.
inline constexpr char32_t kReplacementCharacter = U'\uFFFD';

// Takes one character off the front of the text, which must not be empty. A byte that starts no well-formed
// character is taken off alone and gives kReplacementCharacter; so do the halves of surrogates and over-long forms.
char32_t TakeCharacter(std::string_view& text);

} // namespace vxsim

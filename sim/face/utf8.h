// UTF-8: reading it from bytes nobody checked, and writing it.
#pragma once

#include <string>
#include <string_view>

namespace vxsim {

// Shown in place of what can't be shown.
inline constexpr char32_t kReplacementCharacter = U'\uFFFD';

// Takes one character off the front of the text, which must not be empty. A byte that starts no well-formed
// character is taken off alone and gives kReplacementCharacter; so do the halves of surrogates and over-long forms.
char32_t TakeCharacter(std::string_view& text);

// Puts a character of Unicode at the end of the text.
void AppendCharacter(char32_t character, std::string& text);

} // namespace vxsim

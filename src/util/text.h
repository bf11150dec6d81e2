// Texts in fixed fields, and numbers in texts.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

namespace vxsign {

/// The text in a field of `size` bytes, which ends at its first NUL or fills the field.
inline std::string_view FieldText(const char* field, std::size_t size)
{
    return {field, ::strnlen(field, size)};
}

/// Copies a text into a field of `size` bytes: cut to the field, zero padded, without terminator when it is full.
inline void CopyToField(void* field, std::size_t size, std::string_view text)
{
    const std::size_t length = text.copy(static_cast<char*>(field), size);
    std::memset(static_cast<char*>(field) + length, 0, size - length);
}

/// Copies a text into a buffer of `size` bytes as a C string: cut so that its terminator fits. A size of 0 gets
/// nothing.
inline void CopyToText(char* buffer, std::size_t size, std::string_view text)
{
    if (size == 0)
        return;
    CopyToField(buffer, size - 1, text);
    buffer[size - 1] = '\0';
}

/// The decimal number that a text begins with, behind blanks; 0 when it begins with none.
inline std::int32_t NumberOf(std::string_view text)
{
    return static_cast<std::int32_t>(std::strtoll(std::string(text).c_str(), nullptr, 10));
}

} // namespace vxsign

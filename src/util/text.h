// Texts in fixed fields.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
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
    const std::size_t length = std::min(size, text.size());
    std::memcpy(field, text.data(), length);
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

} // namespace vxsign

// Texts in the records that the library hands over.
#pragma once

#include <cstddef>
#include <cstring>
#include <string>

namespace vxctl {

// The text in a field, which ends at its first NUL or fills the field.
template <std::size_t size>
std::string FieldText(const char (&field)[size])
{
    return {field, ::strnlen(field, size)};
}

} // namespace vxctl

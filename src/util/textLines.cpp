// Printing into buffers, and reading line by line.
#include "platform/files.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <algorithm>
#include <cstdarg>
#include <cstdint>
#include <cstdio>

using namespace vxsign;

std::uint32_t vxPrintBuf(char* out, std::uint32_t outLength, const char* format, ...)
{
    if (format == nullptr)
        return VX_ARGUMENTS;
    if (out == nullptr || outLength == 0)
        return VX_OK;
    out[0] = '\0'; // a format that fails prints nothing
    std::va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(out, outLength, format, arguments);
    va_end(arguments);
    out[outLength - 1] = '\0';
    return VX_OK;
}

std::uint32_t vxReadFileLine(FILE* stream, std::uint8_t* buffer, std::uint32_t size)
{
    if (stream == nullptr || buffer == nullptr || size == 0)
        return 0;
    const std::int64_t start = platform::TellStream(stream);
    const std::size_t got = std::fread(buffer, 1, size, stream);
    std::uint8_t* const end = std::find(buffer, buffer + got, '\n');
    if (end == buffer + got)
        return static_cast<std::uint32_t>(got);
    const auto length = end + 1 - buffer;
    std::fill(buffer + length, buffer + size, std::uint8_t{0});
    // One more byte behind the line feed is passed over by rule, whatever it holds.
    if (start >= 0)
        platform::SeekStream(stream, start + length + 1, SEEK_SET);
    return static_cast<std::uint32_t>(length);
}

// Reads lines and blocks of text files.
#include "util/textFile.h"

#include <algorithm>
#include <cstdio>

namespace vxsign {
namespace {

int ReadCharacter(const File& file)
{
    const int character = std::getc(file.get());
    if (character != '\r')
        return character;
    const int next = std::getc(file.get());
    if (next == '\n')
        return next;
    std::ungetc(next, file.get());
    return character;
}

} // namespace

std::size_t ReadText(const File& file, char* buffer, std::size_t size)
{
    std::size_t got = 0;
    while (got < size) {
        const int character = ReadCharacter(file);
        if (character == EOF)
            break;
        buffer[got++] = static_cast<char>(character);
    }
    return got;
}

std::size_t ReadSteppedLine(const File& file, char* buffer, std::size_t size)
{
    const auto start = Position(file);
    const std::size_t got = ReadText(file, buffer, size);
    char* const end = std::find(buffer, buffer + got, '\n');
    if (end == buffer + got) {
        std::fill(end, buffer + size, '\0');
        return got;
    }
    std::fill(end + 1, buffer + size, '\0');
    const auto length = static_cast<std::size_t>(end + 1 - buffer);
    if (start)
        Seek(file, *start + length + 1);
    return length;
}

bool ReadWholeLine(const File& file, char* buffer, std::size_t size)
{
    std::size_t got = 0;
    while (got + 1 < size && ReadText(file, buffer + got, 1) == 1)
        if (buffer[got++] == '\n')
            break;
    buffer[got] = '\0';
    return std::feof(file.get()) == 0 && std::ferror(file.get()) == 0;
}

} // namespace vxsign

#include "sim/face/textConversion.h"

#include "sim/face/utf8.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <stdexcept>

#ifdef VXSIGN_HAS_ICONV
#include <iconv.h>
#endif

namespace vxsim {
namespace {

[[noreturn]] void RefuseName(const std::string& name)
{
    throw std::invalid_argument("'" + name + "' is no encoding that this PC knows");
}

#ifdef VXSIGN_HAS_ICONV

// What follows a slash would tell iconv to put something else in place of what an encoding lacks.
bool IsName(std::string_view name)
{
    const auto isPart = [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') ||
               std::string_view("-_.:+()").find(c) != std::string_view::npos;
    };
    return !name.empty() && std::ranges::all_of(name, isPart);
}

void* Open(const std::string& from, const std::string& to)
{
    const std::string& other = IsUtf8Name(from) ? to : from;
    if (!IsName(from) || !IsName(to))
        RefuseName(other);
    const iconv_t opened = ::iconv_open(to.c_str(), from.c_str());
    if (reinterpret_cast<std::intptr_t>(opened) == -1)
        RefuseName(other);
    return opened;
}

void Close(void* conversion)
{
    ::iconv_close(conversion);
}

#else

void* Open(const std::string& from, const std::string& to)
{
    RefuseName(IsUtf8Name(from) ? to : from);
}

void Close(void* /*conversion*/)
{
}

#endif

} // namespace

bool IsUtf8Name(std::string_view encoding)
{
    std::string name;
    for (const char c : encoding) {
        if (c != '-' && c != '_')
            name += c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    }
    return name == "UTF8";
}

void CheckEncoding(const std::string& encoding)
{
    if (IsUtf8Name(encoding))
        return;
    std::string plain;
    for (char c = '\0'; c < '\x7F'; ++c) {
        if (c <= ' ' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'))
            plain += c;
    }
    if (ToUtf8(plain, encoding) != plain)
        throw std::invalid_argument("'" + encoding + "' is no encoding for a sign: its ASCII is none");
}

TextConversion::TextConversion(const std::string& from, const std::string& to) : conversion(Open(from, to), Close)
{
}

void TextConversion::Take(std::string_view& text, std::string& converted)
{
    auto* from = const_cast<char*>(text.data()); // NOLINT(*-const-cast): iconv only reads
    std::size_t left = text.size();
    while (left > 0 && Run(&from, &left, converted)) {
    }
    text.remove_prefix(text.size() - left);
}

void TextConversion::Finish(std::string& converted)
{
    while (Run(nullptr, nullptr, converted)) {
    }
}

// True when there is more to come.
bool TextConversion::Run(char** from, std::size_t* left, std::string& converted)
{
#ifdef VXSIGN_HAS_ICONV
    std::array<char, 1024> room{};
    char* to = room.data();
    std::size_t free = room.size();
    const bool isAll = ::iconv(conversion.get(), from, left, &to, &free) != static_cast<std::size_t>(-1);
    const bool isFull = !isAll && errno == E2BIG;
    converted.append(room.data(), to);
    return isFull;
#else
    static_cast<void>(from), static_cast<void>(left), static_cast<void>(converted);
    return false;
#endif
}

std::string ToUtf8(std::string_view text, const std::string& encoding)
{
    TextConversion conversion(encoding, "UTF-8");
    std::string utf8;
    while (!text.empty()) {
        conversion.Take(text, utf8);
        if (text.empty())
            break;
        AppendCharacter(kReplacementCharacter, utf8);
        text.remove_prefix(1);
    }
    conversion.Finish(utf8);
    return utf8;
}

} // namespace vxsim

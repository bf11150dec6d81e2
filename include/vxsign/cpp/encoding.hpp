// Texts of the program, which are UTF-8, in the encoding of a sign, and back.
#ifndef VXSIGN_CPP_ENCODING_HPP
#define VXSIGN_CPP_ENCODING_HPP

#include <vxsign/cpp/bytes.hpp>
#include <vxsign/cpp/result.hpp>

#if __has_include(<iconv.h>)
#include <iconv.h>
#define VXSIGN_HAS_ICONV
#endif

namespace vxsign::detail {

inline bool IsUtf8(std::string_view encoding)
{
    const std::string name = Upper(encoding);
    return name.empty() || name == "UTF-8" || name == "UTF8";
}

// The character at the beginning of the text, as a message shows it; empty when the text begins with none.
inline std::string FirstCharacter(std::string_view text)
{
    const auto first = static_cast<std::uint8_t>(text[0]);
    const std::size_t size = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    if (size == 0 || size > text.size())
        return {};
    std::uint32_t point = size == 1 ? first : first & (0x7FU >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if ((text[i] & 0xC0) != 0x80)
            return {};
        point = point << 6 | (static_cast<std::uint8_t>(text[i]) & 0x3FU);
    }
    char code[16] = {};
    std::snprintf(code, sizeof code, " (U+%04X)", static_cast<unsigned>(point));
    return "'" + std::string(text.substr(0, size)) + "'" + code;
}

#ifdef VXSIGN_HAS_ICONV

// A conversion between two encodings.
class Conversion
{
public:
    Conversion(const std::string& to, const std::string& from) : handle(::iconv_open(to.c_str(), from.c_str())) {}
    ~Conversion()
    {
        if (IsKnown())
            ::iconv_close(handle);
    }
    Conversion(const Conversion&) = delete;
    Conversion& operator=(const Conversion&) = delete;

    bool IsKnown() const { return reinterpret_cast<std::intptr_t>(handle) != -1; }

    // Converts as much as it can, and gives the rest.
    std::string_view Run(std::string_view text, std::string& converted) const
    {
        constexpr std::size_t kMostForOne = 16; // bytes that a character becomes, or ends a shift
        converted.assign(text.size() * 4 + kMostForOne, '\0');
        char* in = const_cast<char*>(text.data());
        char* out = converted.data();
        std::size_t left = text.size();
        std::size_t room = converted.size();
        if (::iconv(handle, &in, &left, &out, &room) != kFailed)
            ::iconv(handle, nullptr, nullptr, &out, &room);
        converted.resize(converted.size() - room);
        return text.substr(text.size() - left);
    }

private:
    static constexpr std::size_t kFailed = static_cast<std::size_t>(-1);

    iconv_t handle;
};

#else

// UTF-8 is all there is.
class Conversion
{
public:
    Conversion(const std::string& /*to*/, const std::string& /*from*/) {}
    bool IsKnown() const { return false; }
    std::string_view Run(std::string_view text, std::string& /*converted*/) const { return text; }
};

#endif

// The encoding of one sign.
class Encoding
{
public:
    explicit Encoding(std::string encoding) : name(std::move(encoding))
    {
        if (name.find('\0') != std::string::npos || name.find('/') != std::string::npos ||
            (!IsUtf8(name) && !Conversion(name, "UTF-8").IsKnown()))
            Refuse("'" + name + "' is no encoding that is known here");
    }

    // Refuses, with the character, what the encoding lacks.
    std::string Encode(std::string_view text) const
    {
        if (text.find('\0') != std::string_view::npos)
            Refuse("a text for the sign has no NUL");
        std::string bytes(text);
        if (!IsUtf8(name))
            if (const std::string_view rest = Conversion(name, "UTF-8").Run(text, bytes); !rest.empty())
                RefuseRest(rest);
        if (bytes.find('\0') != std::string::npos)
            Refuse(name + " has NUL bytes, which end a text of the sign");
        return bytes;
    }

    // Bytes that are no text in the encoding stay as they are.
    std::string Decode(std::string_view bytes) const
    {
        std::string text;
        if (IsUtf8(name) || !Conversion("UTF-8", name).Run(bytes, text).empty())
            return std::string(bytes);
        return text;
    }

private:
    [[noreturn]] void RefuseRest(std::string_view rest) const
    {
        const std::string character = FirstCharacter(rest);
        Refuse(character.empty() ? "the text is no UTF-8" : name + " has no character " + character);
    }

    std::string name;
};

} // namespace vxsign::detail

#endif

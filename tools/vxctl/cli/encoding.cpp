// Encodes texts for signs.
#include "vxctl/cli/encoding.h"

#include "vxctl/cli/failure.h"

#include "sim/face/textConversion.h"
#include "sim/face/utf8.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <stdexcept>

namespace vxctl {

namespace {

bool IsLineEnd(char c)
{
    return c == '\r' || c == '\n';
}

std::string Hexadecimal(const char* format, unsigned number)
{
    std::array<char, 16> text{};
    std::snprintf(text.data(), text.size(), format, number);
    return text.data();
}

[[noreturn]] void RefuseCharacter(std::string_view bytes, char32_t character, const std::string& place,
                                  const std::string& encoding)
{
    if (character == vxsim::kReplacementCharacter && bytes.size() == 1)
        throw UsageError("the text is no UTF-8" + place + ": a byte " +
                         Hexadecimal("0x%02X", static_cast<unsigned char>(bytes.front())));
    throw UsageError(encoding + " has no '" + std::string(bytes) + "' (" +
                     Hexadecimal("U+%04X", static_cast<unsigned>(character)) + ")," + place);
}

} // namespace

void CheckedEncoding(const std::string& name)
{
    try {
        vxsim::CheckEncoding(name);
    } catch (const std::invalid_argument& error) {
        throw UsageError(error.what());
    }
}

std::string EncodingFor(const Session& session, const Args& args)
{
    const std::string& ofSign = session.options.encoding;
    return args.Has("--encoding") || ofSign.empty() ? args.Text("--encoding") : ofSign;
}

std::string Encoded(std::string_view text, const std::string& encoding)
{
    if (vxsim::IsUtf8Name(encoding))
        return std::string(text);
    vxsim::TextConversion conversion("UTF-8", encoding);
    std::string encoded;
    for (std::string_view rest = text; !rest.empty();) {
        const std::string_view before = rest;
        const char32_t character = vxsim::TakeCharacter(rest);
        const std::string_view bytes = before.substr(0, before.size() - rest.size());
        std::string_view left = bytes;
        conversion.Take(left, encoded);
        if (!left.empty())
            RefuseCharacter(bytes, character, PlaceBehind(text.substr(0, text.size() - before.size())), encoding);
    }
    conversion.Finish(encoded);
    return encoded;
}

std::string PlaceBehind(std::string_view before)
{
    const auto line = std::ranges::count_if(before, IsLineEnd) + 1;
    const std::string_view ahead = before.substr(before.find_last_of("\r\n") + 1); // behind none: all
    const auto column = std::ranges::count_if(ahead, [](unsigned char c) { return (c & 0xC0U) != 0x80; }) + 1;
    return (line > 1 ? " in line " + std::to_string(line) : "") + " at character " + std::to_string(column);
}

} // namespace vxctl

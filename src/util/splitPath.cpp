// The export that takes a path apart.
#include "util/pathText.h"
#include "util/text.h"

#include <vxsign/local.h>

#include <array>

using namespace vxsign;

namespace {

// Results as the C library numbers them.
constexpr int kInvalid = 22;
constexpr int kTooLong = 34;

struct Part
{
    char* buffer;
    std::uint8_t size;
    std::string_view text;
};

int Fail(const std::array<Part, 4>& parts, int result)
{
    for (const Part& part : parts)
        if (part.buffer != nullptr && part.size != 0)
            part.buffer[0] = '\0';
    return result;
}

} // namespace

int vxStr_splitpath(const char* path, char* drive, std::uint8_t driveSize, char* folder, std::uint8_t folderSize,
                    char* name, std::uint8_t nameSize, char* extension, std::uint8_t extensionSize)
{
    std::string_view rest = path != nullptr ? path : "";
    const auto take = [&rest](std::size_t length) {
        const std::string_view taken = rest.substr(0, length);
        rest.remove_prefix(taken.size());
        return taken;
    };
    const std::string_view driveText = take(rest.size() > 1 && rest[1] == ':' ? 2 : 0);
    const std::string_view folderText = take(LastOf(rest, "/\\") + 1);
    const std::string_view nameText = take(rest.find_last_of('.'));
    const std::array<Part, 4> parts{{{drive, driveSize, driveText},
                                     {folder, folderSize, folderText},
                                     {name, nameSize, nameText},
                                     {extension, extensionSize, rest}}};

    if (path == nullptr)
        return Fail(parts, kInvalid);
    for (const Part& part : parts)
        if ((part.buffer == nullptr) != (part.size == 0))
            return Fail(parts, kInvalid);
    for (const Part& part : parts)
        if (part.buffer != nullptr && part.text.size() >= part.size)
            return Fail(parts, kTooLong);
    for (const Part& part : parts)
        CopyToText(part.buffer, part.size, part.text);
    return 0;
}

// The names that local files get on the sign.
#include "platform/paths.h"
#include "util/file.h"
#include "util/localCall.h"
#include "util/text.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <algorithm>
#include <array>
#include <cctype>

using namespace vxsign;

namespace {

constexpr std::size_t kShortNameSize = 12; // 8.3
constexpr std::uint32_t kSignPathSize = 20;
constexpr std::size_t kHeadSize = 10;

bool EndsInNmg(std::string_view path)
{
    const std::string_view end = path.substr(path.size() - std::min<std::size_t>(path.size(), 3));
    constexpr std::string_view kNmg = "NMG";
    return std::equal(end.begin(), end.end(), kNmg.begin(), kNmg.end(),
                      [](unsigned char letter, char wanted) { return std::toupper(letter) == wanted; });
}

// The folder on the sign, by what the file begins with.
std::uint8_t TypeLetter(const std::array<char, kHeadSize>& head, std::string_view path)
{
    const std::string_view bytes(head.data(), head.size());
    if (bytes.starts_with("BM") || bytes.substr(6) == "JFIF")
        return 'P';
    if (bytes.substr(1, 3) == "QST")
        return 'Q';
    if (bytes.starts_with("QS"))
        return 'F';
    if (bytes.substr(1, 3) == "Z00" && bytes[5] == 'A')
        return 'T';
    if (bytes.substr(1, 3) == "Z00" && bytes[5] == 'C')
        return 'A';
    if (bytes.starts_with("NG"))
        return EndsInNmg(path) ? 'T' : 'A';
    return 'F';
}

} // namespace

std::uint32_t vxGetShortFileName(const char* path, char* out, std::uint32_t outLength)
{
    if (path == nullptr)
        return 0;
    return LocalCall<std::uint32_t>(0, [=] {
        const std::string name = platform::ShortFileName(path);
        if (out != nullptr)
            std::copy_n(name.data(), std::min<std::size_t>(outLength, name.size()), out);
        return static_cast<std::uint32_t>(name.size());
    });
}

std::uint32_t vxMakeSignPath(const char* localPath, char* out, std::uint32_t outLength, std::uint8_t drive,
                             std::uint8_t* typeLetter, char* shortName)
{
    if (localPath == nullptr || out == nullptr || outLength < kSignPathSize)
        return VX_ARGUMENTS;
    if (shortName != nullptr)
        std::fill_n(shortName, kShortNameSize, '\0');
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        const File file = OpenFile(localPath, "rb");
        if (!file)
            return VX_OPEN_FILE;
        std::array<char, kHeadSize> head{};
        ReadSome(file, head.data(), head.size());
        const std::uint8_t letter = TypeLetter(head, localPath);
        const std::string name = platform::ShortFileName(localPath).substr(0, kShortNameSize);

        std::snprintf(out, outLength, "%c:\\%c\\%s", drive, letter, name.c_str());
        if (typeLetter != nullptr)
            *typeLetter = letter;
        if (shortName != nullptr)
            CopyToField(shortName, kShortNameSize, name);
        return VX_OK;
    });
}

// Values of INI files.
#include "platform/paths.h"
#include "util/file.h"
#include "util/iniText.h"
#include "util/localCall.h"
#include "util/replaceFile.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <algorithm>
#include <filesystem>

using namespace vxsign;
namespace fs = std::filesystem;

namespace {

constexpr std::size_t kLongestValue = 63;

// Nothing for a file that is not there or cannot be read.
std::optional<std::string> Contents(const char* path)
{
    const File file = OpenFile(path, "rb");
    const std::optional<std::uint32_t> size = file ? SignFileSize(file) : std::nullopt;
    if (!size)
        return {};
    std::string text(*size, '\0');
    text.resize(ReadSome(file, text.data(), text.size()));
    if (std::ferror(file.get()) != 0)
        return {};
    return text;
}

} // namespace

std::uint32_t vxGetINIWithString(const char* section, const char* key, const char* defaultValue, const char* iniPath,
                                 char* out)
{
    if (section == nullptr || key == nullptr || defaultValue == nullptr || iniPath == nullptr)
        return VX_ARGUMENTS;
    if (out == nullptr)
        return VX_OK;
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        const std::string text = Contents(iniPath).value_or("");
        const std::string value = ini::Find(text, section, key).value_or(defaultValue);
        std::copy_n(value.data(), std::min(value.size(), kLongestValue), out);
        return VX_OK;
    });
}

std::uint32_t vxGetINIWithInt(const char* section, const char* key, std::uint32_t defaultValue, const char* iniPath,
                              std::uint32_t* out)
{
    if (section == nullptr || key == nullptr || iniPath == nullptr)
        return VX_ARGUMENTS;
    if (out == nullptr)
        return VX_OK;
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        const std::string text = Contents(iniPath).value_or("");
        const std::optional<std::string> value = ini::Find(text, section, key);
        *out = value ? ini::Number(*value) : defaultValue;
        return VX_OK;
    });
}

std::uint32_t vxSetINIWithString(const char* section, const char* key, const char* value, const char* iniPath)
{
    if (section == nullptr || key == nullptr || value == nullptr || iniPath == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=] {
        const std::optional<std::string> before = Contents(iniPath);
        std::error_code error;
        // A file that is there but does not give its contents is not overwritten.
        if (before || fs::symlink_status(platform::NativePath(iniPath), error).type() == fs::file_type::not_found) {
            std::string text = before.value_or("");
            ini::Set(text, section, key, value);
            ReplaceFile(iniPath, text);
        }
        return VX_OK;
    });
}

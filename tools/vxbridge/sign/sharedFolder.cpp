#include "vxbridge/sign/sharedFolder.h"

#include "vxctl/cli/failure.h"

#include <algorithm>
#include <cctype>
#include <string_view>
#include <system_error>

namespace vxbridge {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kScheme = "file://";

// "%20" is a blank. What is no such triple stays.
std::string Unescape(std::string_view text)
{
    std::string plain;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string code(text.substr(std::min(i + 1, text.size()), 2));
        const bool isCode = text[i] == '%' && code.size() == 2 &&
                            std::ranges::all_of(code, [](unsigned char digit) { return std::isxdigit(digit) != 0; });
        plain += isCode ? static_cast<char>(std::stoi(code, nullptr, 16)) : text[i];
        i += isCode ? 2 : 0;
    }
    return plain;
}

} // namespace

SharedFolder::SharedFolder(const std::string& path)
{
    std::error_code error;
    folder = fs::canonical(path, error);
    if (error || !fs::is_directory(folder))
        throw vxctl::UsageError("'" + path + "' is no folder");
}

std::string SharedFolder::Find(const std::string& url) const
{
    if (folder.empty())
        throw vxctl::UsageError("this bridge has no folder of files");
    const bool isUrl = url.starts_with(kScheme);
    const std::string name = isUrl ? Unescape(std::string_view(url).substr(kScheme.size())) : url;
    if (!isUrl && name.find("://") != std::string::npos)
        throw vxctl::UsageError("'" + url + "' is no file: file:///FOLDER/NAME, or NAME alone");
    std::error_code error;
    const fs::path file = name.find('\0') == std::string::npos ? fs::canonical(folder / name, error) : fs::path();
    if (error || std::ranges::mismatch(folder, file).in1 != folder.end() || !fs::is_regular_file(file, error))
        throw vxctl::UsageError("'" + url + "' is no file below the folder of this bridge");
    return file.string();
}

} // namespace vxbridge

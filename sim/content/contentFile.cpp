#include "sim/content/contentFile.h"

#include <cstddef>
#include <fstream>
#include <system_error>

namespace vxsim {

std::vector<std::uint8_t> ReadWholeFile(const std::filesystem::path& path, std::uintmax_t mostBytes)
{
    std::error_code error;
    if (!std::filesystem::is_regular_file(path, error))
        return {};
    const std::uintmax_t size = std::filesystem::file_size(path, error);
    if (error || size > mostBytes)
        return {};
    std::vector<std::uint8_t> bytes(static_cast<std::size_t>(size));
    std::ifstream file(path, std::ios::binary);
    file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    bytes.resize(static_cast<std::size_t>(file.gcount()));
    return bytes;
}

} // namespace vxsim

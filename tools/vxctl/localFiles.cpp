#include "vxctl/localFiles.h"

#include "vxctl/failure.h"

#include <vxsign/local.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <system_error>

namespace vxctl {

namespace fs = std::filesystem;

std::vector<std::uint8_t> ReadWhole(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    const std::unique_ptr<FILE, int (*)(FILE*)> file(vxFOpen(path.c_str(), "rb"), std::fclose);
    if (!file)
        throw SignFailure(VX_OPEN_FILE);
    std::array<std::uint8_t, 65536> block{};
    while (const std::size_t count = std::fread(block.data(), 1, block.size(), file.get()))
        bytes.insert(bytes.end(), block.data(), block.data() + count);
    if (std::ferror(file.get()) != 0)
        throw SignFailure(VX_OPEN_FILE);
    if (bytes.empty())
        throw SignFailure(VX_EMPTY_FILE);
    return bytes;
}

LocalTarget::LocalTarget(const std::string& local, const std::string& nameInFolder) : final(local), temporary(local)
{
    std::error_code error;
    if (fs::is_directory(final, error)) {
        final /= nameInFolder;
        temporary = final;
    }
    const fs::file_status status = fs::status(final, error);
    if (!fs::exists(status) || fs::is_regular_file(status))
        temporary += ".part";
}

LocalTarget::~LocalTarget()
{
    std::error_code error;
    if (temporary != final)
        fs::remove(temporary, error);
}

void LocalTarget::Keep() const
{
    std::error_code error;
    if (temporary != final)
        fs::rename(temporary, final, error);
    if (error)
        throw SignFailure(VX_OPEN_FILE);
}

TemporaryFolder::TemporaryFolder()
{
    std::error_code error;
    path = (fs::temp_directory_path(error) / "vxctl-XXXXXX").string();
    if (error || ::mkdtemp(path.data()) == nullptr)
        throw SignFailure(VX_OPEN_FILE);
    path += '/';
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code error;
    fs::remove_all(path, error);
}

} // namespace vxctl

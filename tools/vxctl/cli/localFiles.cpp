// Files and folders of this PC.
#include "vxctl/cli/localFiles.h"

#include "vxctl/cli/failure.h"
#include "vxctl/platform/localFiles.h"

#include <vxsign/local.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <system_error>

namespace vxctl {

namespace fs = std::filesystem;

namespace {

using OpenFile = std::unique_ptr<FILE, int (*)(FILE*)>;

// Otherwise errno tells why.
bool TakesMore(const OpenFile& file)
{
    static constexpr std::array<char, 65536> kMore{};
    return file && std::fwrite(kMore.data(), 1, kMore.size(), file.get()) == kMore.size() &&
           std::fflush(file.get()) == 0;
}

} // namespace

std::vector<std::uint8_t> ReadWhole(const std::string& path)
{
    std::vector<std::uint8_t> bytes;
    const OpenFile file(vxFOpen(path.c_str(), "rb"), std::fclose);
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

std::optional<std::uint64_t> LocalTarget::Size() const
{
    std::error_code error;
    const std::uint64_t size = fs::is_regular_file(temporary, error) ? fs::file_size(temporary, error) : 0;
    return temporary == final || error ? std::nullopt : std::optional(size);
}

std::string LocalTarget::WhyFull() const
{
    if (!Size())
        return "it takes no more";
    errno = 0;
    return TakesMore({vxFOpen(temporary.string().c_str(), "ab"), std::fclose}) ? "it took no more"
                                                                               : std::generic_category().message(errno);
}

std::string FolderFault(const fs::path& folder)
{
    const fs::path place = folder.empty() ? "." : folder;
    std::string name = (place / "vxctl-XXXXXX").string();
    OpenFile file(platform::MakeFile(name), std::fclose);
    const bool isMade = file != nullptr;
    const bool isWritten = TakesMore(file);
    const int error = errno;
    file.reset();
    if (isMade)
        std::remove(name.c_str());
    return isWritten ? "" : "cannot write in " + place.string() + ": " + std::generic_category().message(error);
}

void LocalTarget::Keep() const
{
    std::error_code error;
    if (temporary != final)
        fs::rename(temporary, final, error);
    if (error)
        throw SignFailure(VX_OPEN_FILE);
}

void ReplaceText(const std::string& local, const std::string& nameInFolder, const std::string& text)
{
    const LocalTarget target(local, nameInFolder);
    std::ofstream stream(target.Temporary(), std::ios::binary);
    stream << text;
    stream.close();
    if (!stream)
        throw SignFailure(VX_OPEN_FILE);
    target.Keep();
}

TemporaryFolder::TemporaryFolder()
{
    std::error_code error;
    path = (fs::temp_directory_path(error) / "vxctl-XXXXXX").string();
    if (error || !platform::MakeFolder(path))
        throw SignFailure(VX_OPEN_FILE);
    path += '/';
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code error;
    fs::remove_all(path, error);
}

LinkedFile::LinkedFile(const std::string& file, Linked what) : path(folder.Path() + fs::path(file).filename().string())
{
    std::error_code error;
    const fs::path whole = fs::absolute(file, error);
    platform::Link(whole, path, error);
    if (what == Linked::kFolder) {
        for (const fs::directory_entry& entry : fs::directory_iterator(whole.parent_path(), error)) {
            std::error_code isThere; // the file itself
            const fs::path name = entry.path().filename();
            if (name != "SEQ_PC.SYS" && name.extension() != ".tmp") // which the library writes
                platform::Link(entry.path(), folder.Path() + name.string(), isThere);
        }
    }
    if (error)
        throw SignFailure(VX_OPEN_FILE);
}

} // namespace vxctl

#include "sim/web/fileShelf.h"

#include "sim/web/refusal.h"

#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace vxsim {
namespace {

namespace fs = std::filesystem;

constexpr int kBadRequest = 400;
constexpr int kMissing = 404;

} // namespace

NewFile::NewFile(const fs::path& folder, fs::path wanted)
    : target(std::move(wanted)), temporary(folder / "page-XXXXXX.tmp"),
      file(::mkostemps(temporary.data(), static_cast<int>(std::string_view(".tmp").size()), O_CLOEXEC))
{
    if (!file)
        throw Refusal(kBadRequest, "the file cannot be made");
    ::fchmod(file.Get(), S_IRUSR | S_IWUSR | S_IRGRP | S_IROTH);
}

NewFile::~NewFile()
{
    if (!temporary.empty())
        ::unlink(temporary.c_str());
}

bool NewFile::Write(std::string_view bytes)
{
    while (written && !bytes.empty()) {
        const ssize_t count = ::write(file.Get(), bytes.data(), bytes.size());
        written = count > 0;
        bytes.remove_prefix(written ? static_cast<std::size_t>(count) : 0);
    }
    return written;
}

void NewFile::Place()
{
    std::error_code error;
    fs::create_directories(target.parent_path(), error);
    if (::rename(temporary.c_str(), target.c_str()) != 0)
        throw Refusal(kBadRequest, "the file cannot take its place");
    temporary.clear();
}

fs::path FileShelf::Resolve(const std::string& path) const
{
    const auto resolved = drives.Resolve(path);
    if (!resolved)
        throw Refusal(kBadRequest, "this is no path on a drive of the sign");
    return *resolved;
}

std::vector<FolderEntry> FileShelf::List(const std::string& path) const
{
    if (!path.empty()) {
        auto entries = ReadFolder(Resolve(path));
        if (!entries)
            throw Refusal(kMissing, "there is no such folder");
        return std::move(*entries);
    }
    std::vector<FolderEntry> letters;
    for (const char letter : drives.Letters())
        letters.push_back({.name = {letter, ':'}, .isFolder = true});
    return letters;
}

OpenFile FileShelf::Open(const std::string& path) const
{
    OpenFile file{Resolve(path), {}, 0};
    file.descriptor = Descriptor(::open(file.path.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    struct stat status = {};
    if (!file.descriptor || ::fstat(file.descriptor.Get(), &status) != 0 || !S_ISREG(status.st_mode))
        throw Refusal(kMissing, "there is no such file");
    file.size = static_cast<std::size_t>(status.st_size);
    return file;
}

NewFile FileShelf::Make(const std::string& path) const
{
    const fs::path target = Resolve(path);
    std::error_code error;
    if (drives.IsStandardFolder(target) || fs::is_directory(target, error) || path.back() == '/' || path.back() == '\\')
        throw Refusal(kBadRequest, "this is the path of a folder");
    return {temporary, target};
}

fs::path FileShelf::Delete(const std::string& path) const
{
    fs::path target = Resolve(path);
    std::error_code error;
    const bool isDrive = target.parent_path() == temporary.parent_path();
    if (!fs::exists(fs::symlink_status(target, error)))
        throw Refusal(kMissing, "there is no such file");
    if (isDrive || !fs::remove(target, error))
        throw Refusal(kBadRequest, "this cannot be deleted; a folder must be empty");
    return target;
}

} // namespace vxsim

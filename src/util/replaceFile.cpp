// Writes beside the old file, then takes its place.
#include "util/replaceFile.h"

#include "platform/files.h"
#include "platform/paths.h"
#include "util/file.h"
#include "util/tempStamp.h"

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <filesystem>

namespace vxsign {
namespace {

namespace fs = std::filesystem;

enum class Outcome : std::uint8_t
{
    kDone,
    kFailed,  // the old file stays as it is
    kNotHere, // no other file can take its place
};

// Whether there is no place for another file here. Where there is no room for it, writing in place would lose the old
// one.
bool IsNoPlace(int code)
{
    return code == EACCES || code == EPERM || code == ENAMETOOLONG || code == EBUSY || code == EXDEV;
}

// Removes a file on the way out; one that was renamed is gone already.
struct Removal
{
    const std::string& name;
    ~Removal() { platform::RemoveFile(name.c_str()); }
};

bool WriteInPlace(const std::string& path, std::string_view contents)
{
    File file = OpenFile(path.c_str(), "wb");
    const bool written = file && WriteAll(file, contents.data(), contents.size());
    return CloseFile(file) && written;
}

// `there`: the target is, and the new file is to be like it.
Outcome WriteBeside(const std::string& target, bool there, std::string_view contents)
{
    const std::string name =
        target + '.' + std::to_string(platform::ProcessId()) + '.' + std::to_string(NextTempStamp());
    File file = OpenFile(name.c_str(), "wbx");
    if (!file)
        return IsNoPlace(errno) ? Outcome::kNotHere : Outcome::kFailed;
    const Removal removal{name};
    if (there && !platform::CopyAttributes(target.c_str(), file.get()))
        return Outcome::kNotHere;
    const bool written = WriteAll(file, contents.data(), contents.size()) && platform::Sync(file.get());
    if (!CloseFile(file) || !written)
        return Outcome::kFailed;
    std::error_code error;
    fs::rename(platform::NativePath(name), platform::NativePath(target), error);
    if (!error)
        return Outcome::kDone;
    return IsNoPlace(error.value()) ? Outcome::kNotHere : Outcome::kFailed;
}

} // namespace

bool ReplaceFile(const std::string& path, std::string_view contents)
{
    std::error_code error;
    const fs::path linked = fs::canonical(platform::NativePath(path), error);
    const std::string target = error ? path : platform::PathText(linked);
    const fs::file_type type = fs::symlink_status(platform::NativePath(target), error).type();
    const bool there = type == fs::file_type::regular;
    if (!there && type != fs::file_type::not_found)
        return WriteInPlace(path, contents);
    if (there && !OpenFile(target.c_str(), "ab"))
        return false; // one that must not be written is not replaced either
    const Outcome outcome = WriteBeside(target, there, contents);
    return outcome == Outcome::kNotHere ? WriteInPlace(target, contents) : outcome == Outcome::kDone;
}

} // namespace vxsign

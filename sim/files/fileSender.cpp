#include "sim/files/fileSender.h"

#include "sim/files/limits.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>

namespace vxsim {
namespace {

constexpr std::size_t kMaxOpen = 8;

} // namespace

FileSender::OpenFile* FileSender::Find(const FileRecord& request)
{
    const auto file = std::ranges::find_if(open, [&](const OpenFile& f) { return request.NamesSame(f.record); });
    return file == open.end() ? nullptr : &*file;
}

FileSender::Piece FileSender::Give(const FileRecord& request, const Locate& locate)
{
    if (!IsChunkSize(request.chunkSize))
        return {Code::kBadPacketSize, 0, {}};
    if (request.number == 0)
        return {Code::kBadPacketNumber, 0, {}};
    OpenFile* file = Find(request);
    if (file == nullptr || request.number == 1) {
        if (const Code code = Open(request, locate); code != Code::kOk)
            return {code, 0, {}};
        file = &open.back();
    }
    // The short records count packets in 16 bits.
    if (request.numberSize == kShortNumber &&
        PacketCount(file->size, request.chunkSize) > std::numeric_limits<std::uint16_t>::max())
        return {Code::kNeedsExtendedRead, 0, {}};
    const std::uint64_t at = std::uint64_t{request.number - 1} * request.chunkSize;
    if (at >= file->size && request.number > 1)
        return {Code::kEndOfFile, 0, {}};

    Piece piece{Code::kOk, file->size, {}};
    piece.data.resize(static_cast<std::size_t>(std::min<std::uint64_t>(request.chunkSize, file->size - at)));
    std::size_t got = 0;
    while (got < piece.data.size()) {
        const ssize_t count =
            ::pread(file->file.Get(), piece.data.data() + got, piece.data.size() - got, static_cast<off_t>(at + got));
        if (count < 0 && errno == EINTR)
            continue;
        if (count <= 0)
            break; // someone cut the file meanwhile
        got += static_cast<std::size_t>(count);
    }
    piece.data.resize(got);
    return piece;
}

// Opens the file afresh, in front of its first packet or when it was forgotten.
Code FileSender::Open(const FileRecord& request, const Locate& locate)
{
    std::erase_if(open, [&](const OpenFile& f) { return request.NamesSame(f.record); });
    const auto path = locate();
    if (!path)
        return Code::kOpenFailed;
    OpenFile file;
    // Not to wait for a writer if the entry is a pipe.
    file.file = Descriptor(::open(path->c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (!file.file)
        return errno == ENOENT || errno == ENOTDIR ? Code::kFileMissing : Code::kOpenFailed;
    struct stat status = {};
    if (::fstat(file.file.Get(), &status) != 0 || !S_ISREG(status.st_mode))
        return Code::kOpenFailed;
    if (status.st_size > std::numeric_limits<std::uint32_t>::max())
        return Code::kOversizeRead;
    file.record = request.Keep();
    file.size = static_cast<std::uint32_t>(status.st_size);
    if (open.size() == kMaxOpen)
        open.erase(open.begin());
    open.push_back(std::move(file));
    return Code::kOk;
}

} // namespace vxsim

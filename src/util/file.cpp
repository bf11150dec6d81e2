// Reading, writing and measuring local files.
#include "util/file.h"

#include "platform/files.h"

#include <utility>

namespace vxsign {

File OpenFile(const char* path, const char* mode)
{
    return File(path != nullptr && mode != nullptr ? platform::OpenStream(path, mode) : nullptr);
}

std::size_t ReadSome(const File& file, void* buffer, std::size_t size)
{
    return std::fread(buffer, 1, size, file.get());
}

bool WriteAll(const File& file, const void* data, std::size_t size)
{
    return size == 0 || std::fwrite(data, 1, size, file.get()) == size;
}

bool Seek(const File& file, std::uint64_t position)
{
    return std::in_range<std::int64_t>(position) &&
           platform::SeekStream(file.get(), static_cast<std::int64_t>(position), SEEK_SET);
}

std::optional<std::uint64_t> Position(const File& file)
{
    const std::int64_t position = platform::TellStream(file.get());
    return position >= 0 ? std::optional(static_cast<std::uint64_t>(position)) : std::nullopt;
}

std::optional<std::uint64_t> FileSize(const File& file)
{
    if (!platform::SeekStream(file.get(), 0, SEEK_END))
        return {};
    const auto size = Position(file);
    return Seek(file, 0) ? size : std::nullopt;
}

std::optional<std::uint32_t> SignFileSize(const File& file)
{
    const auto size = FileSize(file);
    return size && std::in_range<std::uint32_t>(*size) ? std::optional(static_cast<std::uint32_t>(*size))
                                                       : std::nullopt;
}

bool CloseFile(File& file)
{
    std::FILE* const stream = file.release();
    return stream != nullptr && std::fclose(stream) == 0;
}

} // namespace vxsign

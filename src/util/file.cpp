#include "util/file.h"

#include "platform/files.h"

#include <limits>

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

std::optional<std::uint32_t> FileSize(const File& file)
{
    if (std::fseek(file.get(), 0, SEEK_END) != 0)
        return {};
    const long size = std::ftell(file.get());
    if (std::fseek(file.get(), 0, SEEK_SET) != 0 || size < 0 ||
        static_cast<unsigned long>(size) > std::numeric_limits<std::uint32_t>::max())
        return {};
    return static_cast<std::uint32_t>(size);
}

bool CloseFile(File& file)
{
    std::FILE* const stream = file.release();
    return stream != nullptr && std::fclose(stream) == 0;
}

} // namespace vxsign

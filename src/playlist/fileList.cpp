// Reads, changes and writes FILELSTI.LST.
#include "playlist/fileList.h"

#include "util/file.h"
#include "util/littleEndian.h"

#include <vxsign/result.h>

#include <algorithm>

namespace vxsign::playlist {
namespace {

constexpr std::size_t kCount = 2; // bytes 0, 1 and 4 to 7 stay as the sign gave them
constexpr std::size_t kEntries = 8;
constexpr std::size_t kWindow = 2048;

std::uint16_t Crc(const void* data, std::size_t size)
{
    return static_cast<std::uint16_t>(vxChkSum(data, 0, static_cast<std::uint32_t>(size), 1));
}

} // namespace

FileListCode CodeOfLocalFile(const std::string& path, std::string_view name)
{
    const File file = OpenFile(path.c_str(), "rb");
    if (!file)
        return 0;
    // The second half of the window is meant for a long file's tail, but signs have zeros there.
    std::array<std::uint8_t, kWindow> window{};
    ReadSome(file, window.data(), FileSize(file).value_or(kWindow + 1) > kWindow ? kWindow / 2 : kWindow);
    const FileListCode content = Crc(window.data(), window.size());
    return content != 0 ? content << 16 | Crc(name.data(), name.size()) : 0;
}

FileList FileList::Load(const std::string& path)
{
    FileList list;
    if (const File file = OpenFile(path.c_str(), "rb"))
        ReadSome(file, list.bytes.data(), list.bytes.size());
    return list;
}

bool FileList::Save(const std::string& path) const
{
    File file = OpenFile(path.c_str(), "wb");
    const bool written = file && WriteAll(file, bytes.data(), bytes.size());
    return CloseFile(file) && written;
}

FileListCode FileList::Find(std::string_view name) const
{
    const std::size_t index = IndexOf(Crc(name.data(), name.size()));
    return index < Count() ? Load32(bytes.data() + kEntries + 4 * index) : 0;
}

void FileList::Store(FileListCode code)
{
    std::size_t index = IndexOf(static_cast<std::uint16_t>(code));
    if (index == Count()) {
        Store16(bytes.data() + kCount, static_cast<std::uint16_t>(std::min(index + 1, kMost)));
        index = Count() - 1;
    }
    Store32(bytes.data() + kEntries + 4 * index, code);
}

std::size_t FileList::Count() const
{
    return std::min<std::size_t>(Load16(bytes.data() + kCount), kMost);
}

std::size_t FileList::IndexOf(std::uint16_t nameCode) const
{
    const std::size_t count = Count();
    std::size_t index = 0;
    while (index < count && Load16(bytes.data() + kEntries + 4 * index) != nameCode)
        ++index;
    return index;
}

} // namespace vxsign::playlist

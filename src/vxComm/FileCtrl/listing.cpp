// Listings of whole folders, made of several commands.
#include "thread/tempFile.h"
#include "util/file.h"
#include "util/littleEndian.h"
#include "util/localCall.h"
#include "vxComm/shared/dirEntry.h"

#include <vxsign/filesystem.h>
#include <vxsign/result.h>

#include <algorithm>
#include <array>

using namespace vxsign;

namespace {

constexpr std::uint16_t kPageEntries = 20; // that one request asks for
constexpr std::size_t kListHeaderSize = 12;
constexpr std::size_t kLongHeaderSize = 16;
constexpr std::size_t kLongEntrySize = 276;

using Page = std::array<std::uint8_t, std::size_t{kPageEntries} * kDirEntrySize>;

std::uint32_t FetchPage(const char* signPath, std::uint32_t start, std::uint32_t& total, Page& page)
{
    page.fill(0); // entries that the sign leaves out
    return vxGetDirFileEx(signPath, static_cast<std::uint16_t>(start), kPageEntries, &total, page.data(), kPageEntries);
}

// Writes the entries of a folder. `total` becomes their number; it stays when the first request fails.
std::uint32_t ListEntries(const char* signPath, const File& file, std::uint32_t& total)
{
    Page page;
    std::uint32_t result = FetchPage(signPath, 0, total, page);
    for (std::uint32_t done = 0; result == VX_OK; done += kPageEntries) {
        const std::uint32_t count = std::min<std::uint32_t>(total - done, kPageEntries);
        if (!WriteAll(file, page.data(), std::size_t{count} * kDirEntrySize))
            return VX_CALL;
        if (total <= done + kPageEntries)
            break;
        // By rule the next request starts where this page did: the first page comes twice, and the end of the folder
        // is missing.
        std::uint32_t ignored = 0;
        result = FetchPage(signPath, done, ignored, page);
    }
    return result;
}

// What the header of a long listing says: the number of entries, nothing for a file that is no listing.
std::optional<std::uint32_t> LongEntryCount(const File& file)
{
    std::uint8_t header[kLongHeaderSize] = {};
    ReadSome(file, header, sizeof header);
    const std::uint32_t headerSize = Load16(header + 2);
    const std::uint32_t totalSize = Load32(header + 8);
    if (header[0] != 'L' || header[1] != 'D' || totalSize == 0 || totalSize <= headerSize)
        return {};
    return Load32(header + 4);
}

} // namespace

std::uint32_t vxLstFolder(const char* localFile, const char* signPath)
{
    if (localFile == nullptr || signPath == nullptr)
        return VX_ARGUMENTS;
    File file = OpenFile(localFile, "wb");
    if (!file)
        return VX_OPEN_FILE;
    std::uint8_t header[kListHeaderSize] = {};
    bool written = WriteAll(file, header, sizeof header);
    std::uint32_t total = 0;
    const std::uint32_t result = ListEntries(signPath, file, total);

    header[0] = 'F';
    header[1] = 'L';
    Store16(header + 2, static_cast<std::uint16_t>(total));
    Store32(header + 4, total * kDirEntrySize + static_cast<std::uint32_t>(kListHeaderSize));
    written = written && Seek(file, 0) && WriteAll(file, header, sizeof header);
    written = CloseFile(file) && written;
    return result != VX_OK || written ? result : static_cast<std::uint32_t>(VX_CALL);
}

std::uint32_t vxLstLongFolderCB(const char* signPath, vxOnFolderEntry callback, void* user)
{
    if (signPath == nullptr || callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [=]() -> std::uint32_t {
        TempFile temp("DLT");
        std::uint32_t result = vxGetDirLongFileEx(signPath, temp.Path());
        if (result != VX_OK)
            return result;
        const File file = OpenFile(temp.Path(), "rb");
        if (!file) {
            temp.Stay(true);
            return VX_OPEN_FILE;
        }
        const auto count = LongEntryCount(file);
        if (!count)
            return VX_FILE_FORMAT;
        for (std::uint32_t i = 0; i < *count; ++i) {
            std::uint8_t entry[kLongEntrySize] = {}; // a last one that is cut short ends in zeros
            if (ReadSome(file, entry, sizeof entry) == 0)
                break;
            result = callback(entry, user);
        }
        return result;
    });
}

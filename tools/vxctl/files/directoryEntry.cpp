// Reads the records of folders.
#include "vxctl/files/directoryEntry.h"

#include "vxctl/cli/bytes.h"

#include <algorithm>

namespace vxctl {

namespace {

enum : std::uint8_t
{
    kVolumeLabel = 0x08,
    kFolder = 0x10
};

// A first byte with a meaning of its own.
enum : std::uint8_t
{
    kEnd = 0,
    kStandsForE5 = 0x05,
    kDeleted = 0xE5
};

constexpr std::size_t kStemSize = 8;
constexpr std::size_t kExtensionSize = 3;
constexpr std::size_t kAttributeAt = 11;
constexpr std::size_t kTimeAt = 22;
constexpr std::size_t kDateAt = 24;
constexpr std::size_t kSizeAt = 28;

constexpr std::size_t kLongNameSize = 260;
constexpr std::size_t kLongSizeAt = 260;
constexpr std::size_t kLongDateAt = 264;
constexpr std::size_t kLongTimeAt = 266;
constexpr std::size_t kLongAttributeAt = 268;

using Bytes = std::span<const std::uint8_t>;

// The text up to its padding.
std::string Padded(Bytes bytes)
{
    std::string text(bytes.begin(), std::ranges::find(bytes, 0));
    text.erase(text.find_last_not_of(' ') + 1);
    return text;
}

// The folder itself and the one above it are in a listing of some signs.
bool IsSelfOrParent(const std::string& name)
{
    return name == "." || name == "..";
}

} // namespace

std::optional<DirectoryEntry> DecodeShortEntry(std::span<const std::uint8_t, kShortEntrySize> entry)
{
    if (IsEnd(entry) || entry[0] == kDeleted || (entry[kAttributeAt] & kVolumeLabel) != 0)
        return std::nullopt;
    DirectoryEntry found;
    found.name = Padded(entry.first<kStemSize>());
    if (entry[0] == kStandsForE5)
        found.name[0] = static_cast<char>(kDeleted);
    const std::string extension = Padded(entry.subspan<kStemSize, kExtensionSize>());
    if (!extension.empty())
        found.name += "." + extension;
    if (found.name.empty() || IsSelfOrParent(found.name))
        return std::nullopt;
    found.isFolder = (entry[kAttributeAt] & kFolder) != 0;
    found.size = Load32(entry, kSizeAt);
    found.changed = FolderTime(Load16(entry, kDateAt), Load16(entry, kTimeAt));
    return found;
}

bool IsEnd(std::span<const std::uint8_t, kShortEntrySize> entry)
{
    return entry[0] == kEnd;
}

std::optional<DirectoryEntry> DecodeLongEntry(std::span<const std::uint8_t, kLongEntrySize> entry)
{
    const auto name = entry.first<kLongNameSize>();
    DirectoryEntry found;
    found.name.assign(name.begin(), std::ranges::find(name, 0));
    if (found.name.empty() || IsSelfOrParent(found.name))
        return std::nullopt;
    found.isFolder = (entry[kLongAttributeAt] & kFolder) != 0;
    found.size = Load32(entry, kLongSizeAt);
    found.changed = FolderTime(Load16(entry, kLongDateAt), Load16(entry, kLongTimeAt));
    return found;
}

} // namespace vxctl

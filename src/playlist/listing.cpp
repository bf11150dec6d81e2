// Listings of the levels of a play list.
#include "playlist/levelCall.h"
#include "util/text.h"

#include <algorithm>
#include <limits>

using namespace vxsign;
using namespace vxsign::playlist;

namespace {

VXPLAYLIST_ITEM MakeEntry(std::uint8_t kind, std::string_view name)
{
    VXPLAYLIST_ITEM entry{};
    entry.kind = kind;
    CopyToField(entry.name, sizeof entry.name, name);
    return entry;
}

VXPLAYLIST_ITEM Describe(const VXPLAYLIST_FILE_INFO& file)
{
    return MakeEntry(VX_ENTRY_FILE, FileName(file));
}

template <class Node>
VXPLAYLIST_ITEM Describe(const Node& node)
{
    if (node.itemType != kFile)
        return MakeEntry(VX_ENTRY_GROUP, node.groupName);
    const VXPLAYLIST_FILE_INFO* const file = FirstFile(node);
    return file == nullptr ? MakeEntry(VX_ENTRY_FILE, "") : Describe(*file);
}

} // namespace

std::uint32_t vxPLGetItems(char* path, std::uint16_t* count, VXPLAYLIST_ITEM* list)
{
    if (count == nullptr || list == nullptr)
        return VX_ARGUMENTS;
    return LevelCall(path, [=](Items& items) {
        const Level level = FindLevel(items, path);
        std::uint32_t result = VX_OK;
        VisitEntries(items, level, [&](const auto& entries) {
            // What the count cannot tell of is not written either.
            const std::size_t size = std::min<std::size_t>(entries.size(), std::numeric_limits<std::uint16_t>::max());
            const bool isTooSmall = level.kind == Level::Kind::kRoot && *count < size;
            *count = static_cast<std::uint16_t>(size);
            if (isTooSmall)
                result = VX_ARGUMENTS;
            else
                std::transform(entries.begin(), entries.begin() + static_cast<std::ptrdiff_t>(size), list,
                               [](const auto& entry) { return Describe(*entry); });
        });
        return result;
    });
}

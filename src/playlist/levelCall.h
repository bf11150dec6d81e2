// The frame of the functions that take a level path.
#pragma once

#include "playlist/paths.h"
#include "thread/threadRecords.h"
#include "util/localCall.h"

#include <vxsign/result.h>

namespace vxsign::playlist {

/// Runs body(items) on the thread's list. A path that cannot name a level, or a null one, gives VX_ARGUMENTS.
template <class Body>
std::uint32_t LevelCall(const char* path, Body&& body) noexcept
{
    if (path == nullptr || !IsLevelPath(path))
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&]() -> std::uint32_t {
        vxPlaylistState* const state = ThreadPlaylist();
        if (state == nullptr)
            return VX_CALL;
        return body(state->items);
    });
}

/// Calls visit with what a level holds: items, children of a group, or files of a sub-group. Nothing for a level that
/// is missing.
template <class Visit>
void VisitEntries(Items& items, const Level& level, Visit&& visit)
{
    switch (level.kind) {
    case Level::Kind::kRoot:
        visit(items);
        break;
    case Level::Kind::kGroup:
        visit(level.item->children);
        break;
    case Level::Kind::kSubGroup:
        visit(level.node->children);
        break;
    case Level::Kind::kMissing:
        break;
    }
}

} // namespace vxsign::playlist

// The three records of each thread: made on demand, zeroed, freed when the thread ends.
#pragma once

#include <vxsign/api.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

/// What the thread knows of its sign.
struct vxApiState
{
    static constexpr std::size_t kStyleSize = 52;
    static constexpr std::size_t kConfigSize = 300;

    std::uint8_t loaded = 0; // 1 when the two blocks hold what the sign gave
    std::uint8_t reserved[15] = {};
    std::uint8_t displayStyle[kStyleSize] = {}; // the sign's default display style
    std::uint8_t configCopy[kConfigSize] = {};  // the beginning of the sign's "CONFIG.SYS"
};
static_assert(sizeof(vxApiState) == 16 + vxApiState::kStyleSize + vxApiState::kConfigSize);

struct VXPLAYLIST_PC_STRUCTNew;

/// The thread's play list.
struct vxPlaylistState
{
    std::string playlistDir;
    std::string playlistFile;
    std::vector<std::shared_ptr<VXPLAYLIST_PC_STRUCTNew>> items;
};

namespace vxsign {

/// The calling thread's record; null only when memory runs out.
vxApiConfig* ThreadConfig() noexcept;
vxApiState* ThreadState() noexcept;
vxPlaylistState* ThreadPlaylist() noexcept;

} // namespace vxsign

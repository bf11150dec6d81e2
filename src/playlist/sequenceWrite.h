// The thread's list as the sign's sequence file.
#pragma once

#include "thread/threadRecords.h"

namespace vxsign::playlist {

/// Write the list in the flat and in the tree form. A file that is not in the play list directory is written all the
/// same. 1 when the file cannot be made.
std::uint32_t WriteFlatForm(const vxPlaylistState& list, const std::string& path, char drive);
std::uint32_t WriteTreeForm(const vxPlaylistState& list, const std::string& path, char drive);

} // namespace vxsign::playlist

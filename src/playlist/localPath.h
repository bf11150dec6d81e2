// Local files that a play list, a package or a sign names.
#pragma once

#include <string>
#include <string_view>

namespace vxsign::playlist {

/// Whether a name stays in the directory that it is put behind: it is not empty, and no part of it between slashes or
/// backslashes is "..".
/// Names come from signs and from files that others made, and must not reach what lies elsewhere.
bool StaysInside(std::string_view name);

/// <directory>/<name>; empty, which no file is, for a name that leaves the directory, and without a directory.
std::string LocalPath(std::string_view directory, std::string_view name);

} // namespace vxsign::playlist

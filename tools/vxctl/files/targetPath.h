// Where a file of this PC goes on the sign.
#pragma once

#include <string>

namespace vxctl {

// A path that is a folder of the sign, by its end or because the sign lists one there, takes the file under its own
// name, as cp does; any other path is the file's. Throws SignFailure when the sign cannot be asked.
std::string TargetPath(const std::string& path, const std::string& local);

} // namespace vxctl

#include "platform/files.h"

#include <string>
#include <sys/stat.h>

namespace vxsign::platform {

std::FILE* OpenStream(const char* path, const char* mode)
{
    std::string closeOnExec = mode;
    if (closeOnExec.empty())
        return nullptr;
    // Behind the first letter it is a flag wherever the other flags stand; at the end it could fall into a ",ccs=".
    closeOnExec.insert(1, 1, 'e');
    std::FILE* const stream = std::fopen(path, closeOnExec.c_str());
    if (stream == nullptr)
        return nullptr;
    // A folder opens for reading, and then has no bytes and a size without meaning.
    struct stat status = {};
    if (::fstat(fileno(stream), &status) != 0 || S_ISDIR(status.st_mode)) {
        std::fclose(stream);
        return nullptr;
    }
    return stream;
}

} // namespace vxsign::platform

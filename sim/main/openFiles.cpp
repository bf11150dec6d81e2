#include "sim/main/openFiles.h"

#include <sys/resource.h>

namespace vxsim {

std::size_t RaiseOpenFiles()
{
    rlimit limit = {};
    ::getrlimit(RLIMIT_NOFILE, &limit);
    const rlimit wanted{limit.rlim_max, limit.rlim_max};
    return ::setrlimit(RLIMIT_NOFILE, &wanted) == 0 ? wanted.rlim_cur : limit.rlim_cur;
}

} // namespace vxsim

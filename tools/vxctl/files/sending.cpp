// Sends a file, and knows what is there when it is stopped.
#include "vxctl/files/sending.h"

#include "vxctl/cli/progressBar.h"

#include <vxsign/result.h>

namespace vxctl {

std::string PartOf(const std::string& path)
{
    return path + " did not arrive whole: send it again";
}

std::uint32_t SendFile(Session& session, const std::string& path, const std::string& local, SendOf send)
{
    const ProgressBar bar(path, session.report.IsForPrograms());
    session.leftOver = PartOf(path);
    const std::uint32_t result = send(path.c_str(), local.c_str());
    if (result == VX_OK)
        session.leftOver.clear();
    return result;
}

} // namespace vxctl

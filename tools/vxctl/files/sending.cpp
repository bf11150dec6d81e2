// Sends a file, and knows what is there when it is stopped.
#include "vxctl/files/sending.h"

#include "vxctl/cli/progressBar.h"

#include <vxsign/result.h>

#include <array>
#include <fstream>

namespace vxctl {

std::string PartOf(const std::string& path)
{
    return path + " did not arrive whole: send it again";
}

Unshared::Unshared(const Session& session, const std::string& local) : path(local)
{
    std::ifstream file(local, std::ios::binary);
    std::array<char, 2> head{};
    if (session.isOneOfMany && file.read(head.data(), head.size()) && head == std::array{'N', 'G'})
        linked.emplace(local, Linked::kFile);
}

std::uint32_t SendFile(Session& session, const std::string& path, const std::string& local, SendOf send)
{
    const ProgressBar bar(path, session.report.IsForPrograms());
    session.leftOver = PartOf(path);
    const Unshared unshared(session, local);
    const std::uint32_t result = send(path.c_str(), unshared.Path().c_str());
    if (result == VX_OK)
        session.leftOver.clear();
    return result;
}

} // namespace vxctl

// What the library says of steps that its calls pass over.
#include "vxctl/cli/session.h"

#include <string_view>
#include <vxsign/local.h>
#include <vxsign/result.h>

namespace vxctl {

namespace {

// The callback brings nothing along that could name a place for it.
thread_local std::string failed;

void TakeFailure(vxApiConfig* /*config*/, const char* /*source*/, std::uint32_t /*line*/, std::uint32_t level,
                 const char* message)
{
    constexpr std::uint32_t kFailedCommand = 3;
    if (level == kFailedCommand && std::string_view(message) != vxErrorDesc(VX_FILE_NOT_EXISTS))
        failed = message;
}

} // namespace

void Session::ConnectListening() const
{
    failed.clear();
    Connect(ProgressBar::OnProgress, TakeFailure);
}

const std::string& Session::Failed()
{
    return failed;
}

} // namespace vxctl

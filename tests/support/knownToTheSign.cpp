// The virtual sign as a second witness of golden requests.
#include "sim/virtualSign.h"
#include "support/flatRows.h"
#include "support/tempFolder.h"

namespace vxsign::test {

bool IsKnownToTheSign(const Packet& request)
{
    constexpr int kUnknownMajor = 36868;
    constexpr int kUnknownMinor = 36869;
    constexpr int kBadLength = 36870;
    bool isKnown = false;
    for (const bool controller : {false, true}) {
        const TempFolder folder;
        vxsim::SignSettings settings;
        settings.folder = folder.Path();
        settings.controller = controller;
        const Packet reply{vxsim::VirtualSign(settings).Answer(request.bytes)};
        const int code = reply.bytes.at(15) == 0 ? 0 : reply.Word(16);
        isKnown = isKnown || (code != kUnknownMajor && code != kUnknownMinor && code != kBadLength);
    }
    return isKnown;
}

} // namespace vxsign::test

// How quick show reaches its sign and finds out where its content plays from.
#include "content/quickShow.h"

#include <vxsign/properties.h>
#include <vxsign/result.h>

#include <algorithm>

namespace vxsign::quickShow {

std::uint32_t Reach(const Connection& connection, std::uint32_t toE, std::optional<Target>& target)
{
    std::uint32_t result = connection.Install();
    if (result == VX_OK)
        result = vxInitProperty();
    const vxApiState* const state = ThreadState();
    if (result != VX_OK || state == nullptr || state->loaded == 0)
        return result;

    std::uint32_t hasDriveF = 0;
    vxGetProperty(reinterpret_cast<std::uint8_t*>(&hasDriveF), sizeof hasDriveF, VX_PROPERTY_HAS_DRIVE_F);
    target.emplace();
    target->drive = toE != 0 ? 'E' : hasDriveF != 0 ? 'F' : 'D';
    target->contentSource = toE != 0 ? 'E' : 'C';
    std::copy_n(state->displayStyle, target->style.size(), target->style.begin());
    return VX_OK;
}

} // namespace vxsign::quickShow

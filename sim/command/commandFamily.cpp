#include "sim/command/commandFamily.h"

#include <algorithm>

namespace vxsim {

Reply CommandFamily::Execute(const Call& call)
{
    if (call.payload.size() < call.row.leastPayload || call.extended.size() < call.row.leastData)
        return Reply::WithCode(Code::kBadLength);
    return call.row.run(*this, call);
}

Command FindCommand(std::span<CommandFamily* const> families, const Frame& request)
{
    Command unfilled;
    for (CommandFamily* family : families) {
        for (const CommandRow& row : family->Commands()) {
            if (!row.IsFor(request))
                continue;
            if (request.payload.size() >= row.leastPayload)
                return {family, &row};
            unfilled = {family, &row};
        }
    }
    return unfilled;
}

Code UnknownCode(std::span<CommandFamily* const> families, const Frame& request)
{
    const bool known = std::ranges::any_of(families, [&](const CommandFamily* family) {
        return std::ranges::any_of(family->Commands(), [&](const CommandRow& row) { return row.IsOf(request); });
    });
    return known ? Code::kUnknownMinor : Code::kUnknownMajor;
}

} // namespace vxsim

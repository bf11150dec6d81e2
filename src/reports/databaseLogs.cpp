// The logs in the sign's database.
#include "platform/clock.h"
#include "reports/logTables.h"
#include "util/localCall.h"
#include "util/timeText.h"

#include <vxsign/log.h>
#include <vxsign/result.h>

using namespace vxsign;

namespace {

template <class Record>
std::uint32_t ReadLog(const Table& table, std::uint32_t user, int mode,
                      std::uint32_t (*callback)(std::uint32_t, const Record*), const Record& blank = {})
{
    if (mode != VX_LOG_READ)
        return VX_OK;
    if (callback == nullptr)
        return VX_ARGUMENTS;
    return LocalCall<std::uint32_t>(VX_CALL, [&] {
        return ReadRecords(table, blank, [=](const Record& record) { callback(user, &record); }).code;
    });
}

} // namespace

std::uint32_t vxReadPlayLogExt(std::uint64_t, std::uint32_t user, int mode, vxOnPlayLog callback)
{
    return ReadLog(kPlayLogTable, user, mode, callback);
}

std::uint32_t vxReadSignLog(std::uint64_t, std::uint32_t user, int mode, vxOnSignLog callback)
{
    return ReadLog(kSignLogTable, user, mode, callback);
}

std::uint32_t vxReadTempLog(std::uint64_t, std::uint32_t user, int mode, vxOnTempLog callback)
{
    return ReadLog(kTempLogTable, user, mode, callback);
}

std::uint32_t vxReadTileInfo(std::uint64_t, std::uint32_t user, int mode, vxOnTileInfo callback)
{
    TileInfoRecord blank{};
    PutTime(blank.ReadTime, platform::clock.localTime());
    return ReadLog(kTileInfoTable, user, mode, callback, blank);
}

std::uint32_t vxReadEventLog(std::uint64_t, std::uint32_t user, int mode, vxOnEventLog callback)
{
    return ReadLog(kEventLogTable, user, mode, callback);
}

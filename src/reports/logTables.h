// The tables of the database that are logs.
#pragma once

#include "reports/table.h"

namespace vxsign {

extern const Table kPlayLogTable;
extern const Table kSignLogTable;
extern const Table kTempLogTable;
extern const Table kTileInfoTable;
extern const Table kEventLogTable;

} // namespace vxsign

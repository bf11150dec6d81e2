// All commands, in the order of the help. A folder's table stands in the file of its commands.
#pragma once

#include "vxctl/cli/command.h"

#include <span>
#include <vector>

namespace vxctl {

extern const CommandTable kShowCommands;
extern const CommandTable kMessageCommands;
extern const CommandTable kPreviewCommands;
extern const CommandTable kPictureCommands;
extern const CommandTable kFileCommands;
extern const CommandTable kFolderCommands;
extern const CommandTable kDriveCommands;
extern const CommandTable kPlayCommands;
extern const CommandTable kPlayListCommands;
extern const CommandTable kPlayListTreeCommands;
extern const CommandTable kPlayListPreviewCommands;
extern const CommandTable kPlayListTransferCommands;
extern const CommandTable kSignCommands;
extern const CommandTable kRestoreCommands;
extern const CommandTable kAccessCommands;
extern const CommandTable kTestCommands;
extern const CommandTable kDivisionCommands;
extern const CommandTable kZoneCommands;
extern const CommandTable kProgramCommands;
extern const CommandTable kPlayerCommands;
extern const CommandTable kMpuCommands;
extern const CommandTable kVpuCommands;
extern const CommandTable kExtraCommands;
extern const CommandTable kWifiCommands;
extern const CommandTable kTileCommands;
extern const CommandTable kCalibrationCommands;
extern const CommandTable kTrafficCommands;
extern const CommandTable kTrafficLogCommands;
extern const CommandTable kInfoCommands;
extern const CommandTable kConditionCommands;
extern const CommandTable kWatchCommands;
extern const CommandTable kPixelCommands;
extern const CommandTable kDoctorCommands;
extern const CommandTable kLogCommands;
extern const CommandTable kModbusCommands;
extern const CommandTable kUpgradeCommands;
extern const CommandTable kLocalCommands;
extern const CommandTable kBookCommands;
extern const CommandTable kRawCommands;
extern const CommandTable kPingCommands;
extern const CommandTable kRecordCommands;
extern const CommandTable kToolCommands;

// The options that hold for every command.
std::span<const Argument> CommonArguments();

std::span<const CommandTable* const> AllTables();

// The rows ahead of a command that are its families, the outermost first; itself at the end.
std::vector<const Command*> PathOf(const Command& command);

// All that a command takes, the options of its families and those for every command with it; the latter alone for null.
std::vector<const Argument*> ArgumentsOf(const Command* command);

// The command of that name; null when there is none.
const Command* FindCommand(std::string_view name);

} // namespace vxctl

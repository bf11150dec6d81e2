// Adding commands to the command line.
#pragma once

#include "vxctl/cli/failure.h"
#include "vxctl/cli/session.h"

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace vxctl {

// What a command says of itself.
struct CommandText
{
    std::string group;
    std::string name;
    std::string description;
    std::string footer; // details and examples
};

// A command without its options and its body, which go to the result: add_option and callback. A body throws UsageError
// or SignFailure; one that returns has done its work, and what it put into the report is then printed.
CLI::App* AddCommand(CLI::App& app, const CommandText& text);

// An option or positional for a number within limits, decimal or with 0x.
CLI::Option* AddNumber(CLI::App& app, const std::string& name, std::uint32_t& target, std::uint32_t least,
                       std::uint32_t most, const std::string& description);

// A positional for a path on the sign. "D:/T/X.NMG" becomes "D:\T\X.NMG", since shells eat backslashes.
CLI::Option* AddSignPath(CLI::App& app, const std::string& name, std::string& target, const std::string& description);

// The bytes that an argument has in hexadecimal, `least` to `most` of them. Throws UsageError.
std::vector<std::uint8_t> HexArgument(const std::string& text, const std::string& name, std::size_t least,
                                      std::size_t most);

// Refuses a file on this PC that cannot be read.
CLI::Validator ReadableFile();

void AddShowCommands(CLI::App& app, Session& session);      // show, picture, files
void AddFileCommands(CLI::App& app, Session& session);      // put, get, rm
void AddFolderCommands(CLI::App& app, Session& session);    // ls, mkdir, mv
void AddDriveCommands(CLI::App& app, Session& session);     // format, df
void AddControlCommands(CLI::App& app, Session& session);   // blank, unblank
void AddSignCommands(CLI::App& app, Session& session);      // bright, power, reset, clock, beacon
void AddAccessCommands(CLI::App& app, Session& session);    // login, logout, passwd
void AddPlayCommands(CLI::App& app, Session& session);      // play, playing, screenshot, volume
void AddPlayListCommands(CLI::App& app, Session& session);  // playlist
void AddTrafficCommands(CLI::App& app, Session& session);   // traffic
void AddTestCommands(CLI::App& app, Session& session);      // test, ticker
void AddZoneCommands(CLI::App& app, Session& session);      // zone
void AddPlayerCommands(CLI::App& app, Session& session);    // player
void AddVideoCommands(CLI::App& app, Session& session);     // video
void AddExtraCommands(CLI::App& app, Session& session);     // extra
void AddTileCommands(CLI::App& app, Session& session);      // tile
void AddInfoCommands(CLI::App& app, Session& session);      // info
void AddConditionCommands(CLI::App& app, Session& session); // status, warnings
void AddPixelCommands(CLI::App& app, Session& session);     // pixels
void AddDoctorCommand(CLI::App& app, Session& session);     // doctor
void AddLogCommands(CLI::App& app, Session& session);       // log
void AddModbusCommand(CLI::App& app, Session& session);     // modbus
void AddUpgradeCommand(CLI::App& app, Session& session);    // upgrade
void AddLocalCommands(CLI::App& app, Session& session);     // ports, error
void AddRawCommand(CLI::App& app, Session& session);        // raw
void AddPingCommand(CLI::App& app, Session& session);       // ping

} // namespace vxctl

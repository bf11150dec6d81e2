// Adding commands to the command line.
#pragma once

#include "vxctl/context.h"
#include "vxctl/failure.h"

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

void AddShowCommands(CLI::App& app, Context& context);      // show, picture, files
void AddFileCommands(CLI::App& app, Context& context);      // put, get, rm
void AddFolderCommands(CLI::App& app, Context& context);    // ls, mkdir, mv
void AddDriveCommands(CLI::App& app, Context& context);     // format, df
void AddControlCommands(CLI::App& app, Context& context);   // blank, unblank
void AddSignCommands(CLI::App& app, Context& context);      // bright, power, reset, clock, beacon
void AddAccessCommands(CLI::App& app, Context& context);    // login, logout, passwd
void AddPlayCommands(CLI::App& app, Context& context);      // play, playing, screenshot, volume
void AddPlayListCommands(CLI::App& app, Context& context);  // playlist
void AddTrafficCommands(CLI::App& app, Context& context);   // traffic
void AddTestCommands(CLI::App& app, Context& context);      // test, ticker
void AddZoneCommands(CLI::App& app, Context& context);      // zone
void AddPlayerCommands(CLI::App& app, Context& context);    // player
void AddVideoCommands(CLI::App& app, Context& context);     // video
void AddExtraCommands(CLI::App& app, Context& context);     // extra
void AddTileCommands(CLI::App& app, Context& context);      // tile
void AddInfoCommands(CLI::App& app, Context& context);      // info
void AddConditionCommands(CLI::App& app, Context& context); // status, warnings
void AddPixelCommands(CLI::App& app, Context& context);     // pixels
void AddDoctorCommand(CLI::App& app, Context& context);     // doctor
void AddLogCommands(CLI::App& app, Context& context);       // log
void AddModbusCommand(CLI::App& app, Context& context);     // modbus
void AddUpgradeCommand(CLI::App& app, Context& context);    // upgrade
void AddLocalCommands(CLI::App& app, Context& context);     // ports, error
void AddRawCommand(CLI::App& app, Context& context);        // raw
void AddPingCommand(CLI::App& app, Context& context);       // ping

} // namespace vxctl

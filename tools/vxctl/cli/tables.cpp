// All commands of the tool.
#include "vxctl/cli/tables.h"

#include "vxctl/cli/signUrl.h"

#include <algorithm>

namespace vxctl {

namespace {

constexpr ArgumentType kPlainFile{"FILE", nullptr, true};

constexpr Argument kCommon[] = {
    Text("-s,--sign", "the sign: its URL, or in the book NAME, group:NAME or all; several times for many signs")
        .In("SIGN")
        .Default(kDefaultUrl)
        .From("VXSIGN")
        .Repeated(),
    Of(kPlainFile, "--book", "the book of signs; otherwise signs.toml in ~/.config/vxsign").From("VXBOOK"),
    Number("--timeout", 50, 60000, "milliseconds for each try").In("MS").Default("3000"),
    Number("--retries", 1, 100, "tries for each packet").In("N").Default("3"),
    Number("--chunk", 64, 1280, "bytes of a file in each packet").In("BYTES").Default("768"),
    Number("--destination", 0, 65535, "address in each packet, such as 257 or 0x0101").In("ADDR").Default("0"),
    Flag("--json", "one JSON object on standard output in place of text; for many signs one for each, on a line"),
    Number("--jobs", 1, 512, "many signs: how many at a time").In("N").Default("32"),
    Flag("--fail-fast", "many signs: begin no more when one has failed"),
    Of(kPlainFile, "--retry-failed",
       "many signs: FILE gets those that failed; what it names already takes the place of -s"),
#ifdef VXCTL_HAS_RECORDING
    Of(kPlainFile, "--record",
       "a capture that gets all that goes to the signs and back, behind what it has; \"vxctl help explain\" tells "
       "more"),
    Flag("--with-secrets", "passwords and Wi-Fi keys stay in the recording").Needs("--record"),
#endif
};

constexpr const CommandTable* kTables[] = {
    &kShowCommands,
    &kMessageCommands,
#ifdef VXCTL_HAS_PREVIEW
    &kPreviewCommands,
#endif
    &kPictureCommands,
    &kFileCommands,
    &kFolderCommands,
    &kDriveCommands,
    &kPlayCommands,
    &kPlayListCommands,
    &kPlayListTreeCommands,
#ifdef VXCTL_HAS_PREVIEW
    &kPlayListPreviewCommands,
#endif
    &kPlayListTransferCommands,
    &kSignCommands,
    &kRestoreCommands,
    &kAccessCommands,
    &kTestCommands,
    &kDivisionCommands,
    &kZoneCommands,
    &kProgramCommands,
    &kPlayerCommands,
    &kMpuCommands,
    &kVpuCommands,
    &kExtraCommands,
    &kWifiCommands,
    &kTileCommands,
    &kCalibrationCommands,
    &kTrafficCommands,
    &kTrafficLogCommands,
    &kInfoCommands,
    &kWatchCommands,
    &kConditionCommands,
    &kPixelCommands,
    &kDoctorCommands,
    &kLogCommands,
    &kModbusCommands,
    &kUpgradeCommands,
    &kLocalCommands,
    &kBookCommands,
    &kRawCommands,
    &kPingCommands,
    &kRecordCommands,
    &kToolCommands,
};

} // namespace

std::span<const Argument> CommonArguments()
{
    return kCommon;
}

std::span<const CommandTable* const> AllTables()
{
    return kTables;
}

std::vector<const Command*> PathOf(const Command& command)
{
    std::vector<const Command*> path;
    for (std::size_t end = command.name.find(' '); end != std::string_view::npos; end = command.name.find(' ', end + 1))
        path.push_back(FindCommand(command.name.substr(0, end)));
    path.push_back(&command);
    return path;
}

std::vector<const Argument*> ArgumentsOf(const Command* command)
{
    std::vector<const Argument*> all;
    for (const Argument& argument : kCommon)
        all.push_back(&argument);
    for (const Command* const row : command == nullptr ? std::vector<const Command*>() : PathOf(*command)) {
        for (const Argument& argument : row->arguments)
            all.push_back(&argument);
    }
    return all;
}

const Command* FindCommand(std::string_view name)
{
    for (const CommandTable* const table : AllTables()) {
        const auto found = std::ranges::find(table->commands, name, &Command::name);
        if (found != table->commands.end())
            return &*found;
    }
    return nullptr;
}

} // namespace vxctl

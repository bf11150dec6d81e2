// format, df: the drives of the sign.
#include "vxctl/cli/answer.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/signPaths.h"
#include "vxctl/state/condition.h"

#include <vxsign/filesystem.h>

#include <vector>

namespace vxctl {

namespace {

std::uint32_t Format(Session& session, const Args& args)
{
    const char drive = ParseDrive(args.Text("DRIVE"));
    const std::string name{drive, ':'};
    if (!args.Has("--yes")) {
        const std::string what = drive == 'C' ? "all its files, those of the sign itself too" : "all its files";
        const std::string answer =
            Ask("Format drive " + name + " of " + session.options.url + " and lose " + what + "? Type yes to go on: ",
                Echo::kOn);
        if (answer != "yes")
            throw UsageError("drive " + name + " stays as it is");
    }
    return vxFormatDrive(drive);
}

Report::Json ShowSpace(const Report& report, const DriveSpace& space)
{
    const std::uint64_t total = space.TotalBytes();
    const std::uint64_t free = space.FreeBytes();
    report.Line(std::string{space.drive, ':'} + "  " + FormatSize(static_cast<double>(free)) + " free of " +
                FormatSize(static_cast<double>(total)));
    return {{"drive", std::string(1, space.drive)},
            {"totalBytes", total},
            {"freeBytes", free},
            {"further", FormatHex(space.further.data(), space.further.size(), "")}};
}

// Of all the drives that a sign may have, those that this one lacks are left out.
std::uint32_t ShowDrives(Session& session, const Args& args)
{
    const std::vector<std::string>& names = args.List("DRIVE");
    std::string letters = names.empty() ? kDrives : "";
    for (const std::string& name : names)
        letters += ParseDrive(name);
    Report::Json drives = Report::Json::array();
    std::uint32_t failure = VX_OK;
    for (const char drive : letters) {
        DriveSpace space;
        const std::uint32_t result = ReadSpace(drive, space);
        if (result == VX_OK) {
            drives.push_back(ShowSpace(session.report, space));
            continue;
        }
        failure = result;
        if (!names.empty() || IsLineDown(result))
            break;
    }
    const bool isEnough = names.empty() && !drives.empty() && !IsLineDown(failure);
    session.report.Put("drives", std::move(drives));
    return isEnough ? static_cast<std::uint32_t>(VX_OK) : failure;
}

const Command kCommands[] = {
    {
        .name = "format",
        .help = "Delete all that is on a drive of the sign",
        .details = "Asks first: the answer is the word yes. A large drive may take longer than the usual --timeout.",
        .examples = R"(vxctl format E
vxctl --timeout 60000 --retries 1 format F --yes)",
        .arguments = {Of(kDriveLetter, "DRIVE", "the letter of the drive"), Flag("--yes", "do not ask")},
        .run = Format,
    },
    {
        .name = "df",
        .help = "Show the free space on the sign's drives",
        .details = "Without DRIVE those of C to G that the sign has.",
        .examples = R"(vxctl df
vxctl df D E)",
        .arguments = {Of(kDriveLetter, "DRIVE", "letters of drives").Optional().Repeated()},
        .signs = Signs::kMany,
        .run = ShowDrives,
    },
};

} // namespace

const CommandTable kDriveCommands{"Files", kCommands};

} // namespace vxctl

#include "vxctl/cli/answer.h"
#include "vxctl/cli/command.h"
#include "vxctl/cli/numbers.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/files/signPaths.h"
#include "vxctl/state/condition.h"

#include <vxsign/filesystem.h>

#include <memory>
#include <vector>

namespace vxctl {

namespace {

constexpr const char* kGroup = "Files";

void Format(const Session& session, char drive, bool sure)
{
    const std::string name{drive, ':'};
    if (!sure) {
        const std::string what = drive == 'C' ? "all its files, those of the sign itself too" : "all its files";
        const std::string answer =
            Ask("Format drive " + name + " of " + session.options.url + " and lose " + what + "? Type yes to go on: ",
                Echo::kOn);
        if (answer != "yes")
            throw UsageError("drive " + name + " stays as it is");
    }
    session.Connect();
    Check(vxFormatDrive(drive));
}

void AddFormat(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app, {kGroup, "format", "Delete all that is on a drive of the sign",
              R"(Asks first: the answer is the word yes. A large drive may take longer than the usual --timeout.

Examples:
  vxctl format E
  vxctl --timeout 60000 --retries 1 format F --yes)"});
    const auto drive = std::make_shared<std::string>();
    const auto sure = std::make_shared<bool>(false);
    command->add_option("DRIVE", *drive, "the letter of the drive")->type_name("LETTER")->required();
    command->add_flag("--yes", *sure, "do not ask");
    command->callback([&session, drive, sure] { Format(session, ParseDrive(*drive), *sure); });
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
void ShowDrives(Session& session, const std::vector<std::string>& names)
{
    std::string letters = names.empty() ? kDrives : "";
    for (const std::string& name : names)
        letters += ParseDrive(name);
    session.Connect();
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
        if (!names.empty() || result == VX_ABORTED || result == VX_COMMUNICATION)
            break;
    }
    const bool isLineDown = failure == VX_ABORTED || failure == VX_COMMUNICATION;
    const bool isEnough = names.empty() && !drives.empty() && !isLineDown;
    session.report.Put("drives", std::move(drives));
    if (!isEnough)
        Check(failure);
}

void AddSpace(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(app, {kGroup, "df", "Tell the free space on the sign's drives",
                                               R"(Without DRIVE those of C to G that the sign has.

Examples:
  vxctl df
  vxctl df D E)"});
    const auto names = std::make_shared<std::vector<std::string>>();
    command->add_option("DRIVE", *names, "letters of drives")->type_name("LETTER");
    command->callback([&session, names] { ShowDrives(session, *names); });
}

} // namespace

void AddDriveCommands(CLI::App& app, Session& session)
{
    AddFormat(app, session);
    AddSpace(app, session);
}

} // namespace vxctl

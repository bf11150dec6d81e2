// What all commands have in common: options, connection, report, exit status.
#include "vxctl/cli/runner.h"

#include "vxctl/cli/commandLine.h"
#include "vxctl/cli/complaint.h"
#include "vxctl/cli/completion.h"
#include "vxctl/cli/documents.h"
#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/lineFault.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/terminal.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <system_error>
#include <vector>

namespace vxctl {

namespace fs = std::filesystem;

namespace {

std::string NameOf(const Command* command)
{
    return command == nullptr ? "" : std::string(command->name);
}

// On Ctrl-C.
int Stop(const Session& session, const SignFailure& failure)
{
    session.report.Finish(VX_ABORTED, failure.code == VX_ABORTED ? failure.reason : "",
                          ProgressBar::HasMoved() ? session.leftOver : "");
    return kExitSignal + CaughtSignal();
}

// What keeps this PC from taking the files that a command makes: those that it was told, and temporary ones.
std::string LocalFault(const Args& args)
{
    std::error_code error;
    std::vector<fs::path> folders;
    for (const std::string& text : args.LocalFiles()) {
        const fs::path file = text;
        folders.push_back(fs::is_directory(file, error) ? file : file.parent_path());
    }
    folders.push_back(fs::temp_directory_path(error));
    for (const fs::path& folder : folders) {
        if (std::string fault = FolderFault(folder); !fault.empty())
            return fault;
    }
    return {};
}

// With the reason of a silence, or of a file that cannot be written, which no command knows.
int Fail(const Session& session, const SignFailure& failure, const CommandLine& line)
{
    LineFault fault{failure.reason, {}};
    if (failure.code == VX_COMMUNICATION && failure.reason.empty())
        fault = FindLineFault(session.options);
    if ((failure.code == VX_CALL || failure.code == VX_OPEN_FILE) && failure.reason.empty())
        fault.reason = LocalFault(line.ArgsOf(*line.Found()));
    session.report.Finish(failure.code, fault.reason, fault.advice);
    return session.exitStatus.value_or(kExitFailure);
}

int Refuse(Report& report, const Command* found, const std::string& complaint)
{
    const std::string name = NameOf(found);
    report.SetHead(name, {});
    report.Refuse(complaint, WhereToRead(name));
    return kExitUsage;
}

// Help and versions are no failure, but come the same way.
int EndOfParsing(Report& report, const CommandLine& line, const CLI::ParseError& error)
{
    if (error.get_exit_code() != 0)
        return Refuse(report, line.Found(), Complaint(line, error));
    std::ostringstream help;
    line.App().exit(error, help, help);
    report.SetHead(NameOf(line.Found()), {});
    report.Lines(help.str());
    report.Put("help", help.str());
    return report.Finish(VX_OK) ? EXIT_SUCCESS : kExitFailure;
}

// Whether a command line wants JSON, right or wrong as it may be.
bool WantsJson(const std::vector<std::string>& words)
{
    const auto end = std::ranges::find(words, "--");
    return std::find(words.begin(), end, "--json") != end;
}

// What the completion scripts and scripts/documents.sh ask for; no help names it.
bool PrintHidden(const std::vector<std::string>& words)
{
    const std::string_view what = words.empty() ? "" : std::string_view(words.front());
    if (what == "--complete")
        PrintLines(Stream::kOut, Complete({words.begin() + 1, words.end()}));
    else if (what == "--commands-table")
        PrintLines(Stream::kOut, MarkdownTables());
    else if (what == "--manual-sections")
        PrintLines(Stream::kOut, ManualSections());
    else
        return false;
    return true;
}

std::uint32_t Run(const CommandLine& line, const Command& command, Session& session)
{
    const Args args = line.ArgsOf(command);
    session.options = OptionsOf(args);
    session.report.UseJson(args.Has("--json"));
    session.report.SetHead(command.name, command.line == Line::kNone ? "" : session.options.url);
    if (command.line == Line::kReady)
        session.Connect();
    return command.run(session, args);
}

} // namespace

std::uint32_t Execute(Session& session, const std::vector<std::string>& words)
{
    CommandLine line;
    const Command& command = line.Parse(words);
    return Run(line, command, session);
}

std::string HelpOf(const std::string& name)
{
    const CommandLine line;
    const CLI::App& app = line.AppOf(name);
    const CLI::App* const family = app.get_parent();
    if (family == nullptr)
        return app.help();
    const std::size_t last = name.rfind(' ');
    return app.help(last == std::string::npos ? "vxctl" : "vxctl " + name.substr(0, last));
}

int RunTool(const std::vector<std::string>& words)
{
    if (PrintHidden(words))
        return EXIT_SUCCESS;
    CommandLine line;
    Session session;
    session.report.UseJson(WantsJson(words));
    try {
        const std::uint32_t result = Run(line, line.Parse(words), session);
        if (result != VX_OK || CaughtSignal() != 0)
            throw SignFailure(result);
        return session.report.Finish(VX_OK) ? session.exitStatus.value_or(EXIT_SUCCESS) : kExitFailure;
    } catch (const SignFailure& failure) {
        return CaughtSignal() != 0 ? Stop(session, failure) : Fail(session, failure, line);
    } catch (const UsageError& error) {
        return CaughtSignal() != 0 ? Stop(session, SignFailure(VX_ABORTED))
                                   : Refuse(session.report, line.Found(), error.what());
    } catch (const CLI::ParseError& error) {
        return EndOfParsing(session.report, line, error);
    }
}

} // namespace vxctl

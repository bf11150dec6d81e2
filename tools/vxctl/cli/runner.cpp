// What all commands have in common: options, connection, report, exit status.
#include "vxctl/cli/runner.h"

#include "vxctl/cli/commandLine.h"
#include "vxctl/cli/complaint.h"
#include "vxctl/cli/completion.h"
#include "vxctl/cli/documents.h"
#include "vxctl/cli/outcome.h"
#include "vxctl/cli/terminal.h"
#include "vxctl/many/manySigns.h"
#include "vxctl/many/targets.h"
#ifdef VXCTL_HAS_RECORDING
#include "vxctl/record/captureWriter.h"
#endif

#include <algorithm>
#include <cstdlib>
#include <sstream>

namespace vxctl {

namespace {

std::string NameOf(const Command* command)
{
    return command == nullptr ? "" : std::string(command->name);
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

// The words for the signs that it is about.
std::vector<std::string> WordsFor(const Command& command, const Args& args)
{
    if (command.signs != Signs::kOfBook)
        return args.List("--sign");
    return args.Has("SIGN") ? args.List("SIGN") : std::vector<std::string>{"all"};
}

Order OrderOf(const CommandLine& line, const Command& command, Session& session)
{
    Args args = line.ArgsOf(command);
    if (command.line != Line::kNone)
        session.signs = TargetsOf(args, WordsFor(command, args));
    session.options = session.signs.empty() ? OptionsOf(args) : session.signs.front().options;
    session.report.UseJson(args.Has("--json"));
    session.report.SetHead(command.name, command.line == Line::kNone ? "" : session.options.url);
    return {command, std::move(args)};
}

int Tell(const Report& report, const Outcome& outcome)
{
    if (outcome.isRefused)
        report.Refuse(outcome.reason, outcome.advice);
    else if (!report.Finish(outcome.result, outcome.reason, outcome.advice) && outcome.result == VX_OK)
        return kExitFailure;
    return outcome.status;
}

int RunOrder(const Order& order, Session& session)
{
    const bool areMany = session.signs.size() > 1 || order.What().signs == Signs::kOfBook ||
                         (order.With().Has("--retry-failed") && !session.signs.empty());
    if (areMany && order.What().signs != Signs::kTogether)
        return RunMany(order, session.signs);
    return Tell(session.report, Run(session, order));
}

#ifdef VXCTL_HAS_RECORDING
// With all that goes to the signs and back in a capture.
int RunRecorded(const Order& order, Session& session)
{
    if (order.What().line == Line::kNone)
        throw UsageError("asks no sign, so that there is nothing to record");
    Recording recording(order.With().Text("--record"), order.With().Has("--with-secrets"));
    const int status = RunOrder(order, session);
    const std::string fault = recording.Fault();
    if (!fault.empty())
        PrintLine(Stream::kError, "vxctl: " + fault);
    return status == EXIT_SUCCESS && !fault.empty() ? kExitFailure : status;
}
#endif

} // namespace

std::uint32_t Execute(Session& session, const std::vector<std::string>& words)
{
    CommandLine line;
    const Command& command = line.Parse(words);
    const Order order = OrderOf(line, command, session);
    if (command.line == Line::kReady)
        session.Connect();
    return command.run(session, order.With());
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
    session.heedsSignals = true;
    session.report.UseJson(WantsJson(words));
    try {
        const Order order = OrderOf(line, line.Parse(words), session);
#ifdef VXCTL_HAS_RECORDING
        if (order.With().Has("--record"))
            return RunRecorded(order, session);
#endif
        return RunOrder(order, session);
    } catch (const UsageError& error) {
        return Refuse(session.report, line.Found(), error.what());
    } catch (const CLI::ParseError& error) {
        return EndOfParsing(session.report, line, error);
    }
}

} // namespace vxctl

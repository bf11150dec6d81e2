// Runs commands, and finds out why they fail.
#include "vxctl/cli/outcome.h"

#include "vxctl/cli/commandLine.h"
#include "vxctl/cli/complaint.h"
#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/lineFault.h"
#include "vxctl/cli/localFiles.h"

#include <vxsign/api.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <mutex>
#include <system_error>

namespace vxctl {

namespace fs = std::filesystem;

namespace {

constexpr int kShortLookMs = 100; // at the line of one of many signs

// The thread may have had another sign, whose properties the library keeps until its record of them is unloaded.
void TurnToSign()
{
    if (auto* const isLoaded = static_cast<std::uint8_t*>(vxTLSGet(VX_RECORD_STATE)))
        *isLoaded = 0;
    ProgressBar::StartAnew();
}

// A turn on the line of a sign: several signs may share a serial one, which takes one at a time.
class Turn
{
public:
    explicit Turn(const SignUrl& sign)
    {
        if (sign.kind != VX_CHANNEL_SERIAL)
            return;
        line = std::unique_lock(LineOf(sign.serialName), std::defer_lock);
        while (!IsAborted() && !line.try_lock_for(std::chrono::milliseconds(50))) {
        }
    }

private:
    static std::timed_mutex& LineOf(const std::string& name)
    {
        static std::mutex mutex;
        static std::map<std::string, std::timed_mutex> lines;
        const std::lock_guard lock(mutex);
        return lines[name];
    }

    std::unique_lock<std::timed_mutex> line;
};

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

// On Ctrl-C.
Outcome Stopped(const Session& session, const SignFailure& failure)
{
    return {.result = VX_ABORTED,
            .status = CaughtSignal() != 0 ? kExitSignal + CaughtSignal() : kExitFailure,
            .reason = failure.code == VX_ABORTED ? failure.reason : "",
            .advice = ProgressBar::HasMoved() ? session.leftOver : ""};
}

// With the reason of a silence, or of a file that cannot be written, which no command knows.
Outcome Failed(const Session& session, const SignFailure& failure, const Args& args)
{
    LineFault fault{failure.reason, {}};
    if (failure.code == VX_COMMUNICATION && failure.reason.empty())
        fault = FindLineFault(session.options, session.isOneOfMany ? kShortLookMs : kLookMs);
    if ((failure.code == VX_CALL || failure.code == VX_OPEN_FILE) && failure.reason.empty())
        fault.reason = LocalFault(args);
    return {.result = failure.code,
            .status = session.exitStatus.value_or(kExitFailure),
            .reason = fault.reason,
            .advice = fault.advice};
}

Outcome Refused(std::string_view command, const std::string& complaint)
{
    return {.result = VX_ARGUMENTS,
            .status = kExitUsage,
            .reason = complaint,
            .advice = WhereToRead(std::string(command)),
            .isRefused = true};
}

Outcome Try(Session& session, const Order& order)
{
    try {
        if (order.What().line == Line::kReady)
            session.Connect();
        const std::uint32_t result = order.What().run(session, order.With());
        if (result != VX_OK || IsAborted())
            throw SignFailure(result);
        return {.status = session.exitStatus.value_or(EXIT_SUCCESS)};
    } catch (const SignFailure& failure) {
        session.HangUp();
        return IsAborted() ? Stopped(session, failure) : Failed(session, failure, order.With());
    } catch (const UsageError& error) {
        return IsAborted() ? Stopped(session, SignFailure(VX_ABORTED)) : Refused(order.What().name, error.what());
    }
}

} // namespace

Order::Order(const std::vector<std::string>& words) : command(nullptr)
{
    CommandLine line;
    try {
        command = &line.Parse(words);
    } catch (const CLI::ParseError& error) {
        throw UsageError(error.get_exit_code() == 0 ? "no command, but a question about vxctl"
                                                    : Complaint(line, error));
    }
    if (command->signs != Signs::kMany)
        throw UsageError(std::string(command->name) + " takes one sign at a time");
    args = line.ArgsOf(*command);
}

Outcome Run(Session& session, const Order& order)
{
    TurnToSign();
    Outcome outcome = Try(session, order);
    session.HangUp();
    if (outcome.reason.empty() && outcome.advice.empty())
        outcome.advice = AdviceFor(outcome.result);
    return outcome;
}

Outcome RunOn(const Options& sign, const Order& order)
{
    const Colourless plain;
    Session session;
    std::string lines;
    session.options = sign;
    session.isOneOfMany = true;
    session.report.KeepLines(lines);
    Outcome outcome;
    try {
        const Turn turn(ParseSignUrl(sign.url));
        outcome = Run(session, order);
    } catch (const UsageError& error) {
        outcome = Refused(order.What().name, error.what());
    } catch (const std::exception& error) {
        outcome = {.result = VX_CALL, .status = kExitFailure, .reason = error.what()};
    }
    outcome.values = session.report.Values();
    outcome.lines = std::move(lines);
    return outcome;
}

Outcome RunOn(const Options& sign, const std::vector<std::string>& words)
{
    try {
        return RunOn(sign, Order(words));
    } catch (const std::exception& error) {
        Outcome outcome = Refused("", error.what());
        outcome.values = Report::Json::object();
        return outcome;
    }
}

} // namespace vxctl

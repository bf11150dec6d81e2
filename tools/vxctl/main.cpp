#include "vxctl/cli/command.h"
#include "vxctl/cli/interrupt.h"
#include "vxctl/cli/terminal.h"

#include <cstdlib>
#include <exception>
#include <sstream>
#include <string>

namespace {

using namespace vxctl;

constexpr const char* kFooter =
    R"(The sign is one URL: udp://HOST:PORT, tcp://HOST:PORT or serial:NAME@BAUD. Without -s it is that of the
environment variable VXSIGN. Paths on the sign look like D:/T/NAME.NMG.

Exit status: 0 done, 1 the sign or the line failed, 2 the command line is wrong.

Examples:
  vxctl show "HELLO 42"
  vxctl -s tcp://192.168.1.50:9520 put hello.nmg D:/T/HELLO.NMG
  vxctl -s serial:/dev/ttyUSB0@115200 info
  vxctl get --help)";

void AddOptions(CLI::App& app, Session& session)
{
    Options& options = session.options;
    app.add_option("-s,--sign", options.url, "the sign")->envname("VXSIGN")->type_name("URL")->capture_default_str();
    AddNumber(app, "--timeout", options.timeoutMs, 50, 60000, "milliseconds for each try")->default_str("3000");
    AddNumber(app, "--retries", options.retries, 1, 100, "tries for each packet")->default_str("3");
    AddNumber(app, "--chunk", options.chunk, 64, 1280, "bytes of a file in each packet")->default_str("768");
    AddNumber(app, "--destination", options.destination, 0, 65535, "address in each packet")->default_str("0");
    app.add_flag_function(
        "--json", [&session](std::int64_t) { session.report.UseJson(true); }, "one JSON object in place of text");
    app.set_version_flag("--version", std::string("vxctl, with libvxsign ") + vxAPIVersion());
}

int Run(int argc, char** argv)
{
    Session session;
    CLI::App app{"vxctl, the command line for LED variable-message signs", "vxctl"};
    app.footer(kFooter);
    app.require_subcommand(1);
    app.fallthrough(); // the options above may stand behind the command too
    AddOptions(app, session);
    AddShowCommands(app, session);
    AddFileCommands(app, session);
    AddFolderCommands(app, session);
    AddDriveCommands(app, session);
    AddPlayCommands(app, session);
    AddPlayListCommands(app, session);
    AddControlCommands(app, session);
    AddSignCommands(app, session);
    AddAccessCommands(app, session);
    AddTestCommands(app, session);
    AddZoneCommands(app, session);
    AddPlayerCommands(app, session);
    AddVideoCommands(app, session);
    AddExtraCommands(app, session);
    AddTileCommands(app, session);
    AddTrafficCommands(app, session);
    AddInfoCommands(app, session);
    AddConditionCommands(app, session);
    AddPixelCommands(app, session);
    AddDoctorCommand(app, session);
    AddLogCommands(app, session);
    AddModbusCommand(app, session);
    AddUpgradeCommand(app, session);
    AddLocalCommands(app, session);
    AddRawCommand(app, session);
    AddPingCommand(app, session);

    AbortOnInterrupt();
    try {
        app.parse(argc, argv);
        return session.report.Finish(VX_OK) ? EXIT_SUCCESS : kExitFailure;
    } catch (const SignFailure& failure) {
        session.report.Finish(failure.code, failure.reason);
        return kExitFailure;
    } catch (const UsageError& error) {
        PrintLine(Stream::kError, std::string("vxctl: ") + error.what());
        return kExitUsage;
    } catch (const CLI::ParseError& error) {
        std::ostringstream help;
        std::ostringstream complaint; // which repeats arguments
        const int status = app.exit(error, help, complaint);
        PrintLines(Stream::kOut, help.str());
        PrintLines(Stream::kError, complaint.str());
        return status == 0 ? EXIT_SUCCESS : kExitUsage;
    }
}

} // namespace

int main(int argc, char** argv)
{
    try {
        return Run(argc, argv);
    } catch (const std::exception& error) {
        PrintLine(Stream::kError, std::string("vxctl: ") + error.what());
        return kExitFailure;
    }
}

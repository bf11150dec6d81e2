#include "sim/main/program.h"

#include "sim/main/commandTable.h"
#include "sim/main/companions.h"
#include "sim/main/conditionOptions.h"
#include "sim/main/signFolder.h"
#include "sim/main/webOptions.h"
#include "sim/platform/terminal.h"
#include "sim/server/endpoints.h"
#include "sim/server/faults.h"
#include "sim/server/server.h"
#include "sim/stage/facePainter.h"
#include "sim/stage/stage.h"
#include "sim/virtualSign.h"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <charconv>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <exception>
#include <filesystem>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>
#include <utility>
#include <vector>

namespace {

namespace fs = std::filesystem;

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;
constexpr int kLargestSide = 2048;
constexpr std::chrono::milliseconds kFrame{40};
constexpr std::chrono::milliseconds kUnseenStep{500}; // of a list that plays without a face

struct Options
{
    std::string folder;
    std::string size = "128x32";
    std::string drives = "CDEF";
    std::string faults;
    std::string face = "none";
    std::string png;
    std::vector<std::string> logins;
    bool verbose = false;
    bool commands = false;
    bool controller = false;
    unsigned delay = 0;
    vxsim::ListenSettings listen;
    vxsim::CompanionOptions companions;
    vxsim::ConditionOptions condition;
    vxsim::WebOptions web;
};

constexpr const char* kFooter = R"(Each line on standard output names one thing to use: "dir FOLDER", "udp HOST:PORT",
"tcp HOST:PORT", "serial DEVICE", "modbus HOST:PORT", "modbus-tcp HOST:PORT", "web URL". SIGINT and SIGTERM end the
sign.

Faults: drop, truncate, wrongid and badsum are probabilities from 0 to 1 for each reply, noise is a number of
random bytes ahead of each reply, seed makes a run repeatable.

Examples:
  vxsim                                     a sign on UDP and TCP port 9520 of this machine
  vxsim --dir mysign --drives CDE           keeps its files in mysign, has no drive F
  vxsim --port 0 --serial                   any free port, and a serial line
  vxsim --face ansi --png face.png          shows the face in the terminal and as a picture
  vxsim --web                               shows it in the browser, with all that can be done to it
  vxsim --dir mysign --bad 3,4,red          begins with a bad pixel
  vxsim pixel --dir mysign --good 3,4       mends it while the sign runs
  vxsim tile --dir mysign --error 3,bus     lets tile 3 fail; --good 3 mends it
  vxsim --controller --face ansi            a traffic signal controller, whose signals the terminal shows
  vxsim --login admin:1234 --verbose        asks hosts to log in, and tells what they do
  vxsim --modbus --serial --devices         Modbus devices too, the last register on the face
  vxsim --modbus --modbus-tcp               Modbus devices for hosts of Modbus TCP as well
  vxsim --bootloader --face ansi            takes firmware by XMODEM on the serial line
  vxsim --delay 200 --fault drop=0.1,noise=4,seed=7)";

// "128x32" as width and height in pixels.
std::pair<int, int> ParseSize(std::string_view text)
{
    const auto number = [](std::string_view part) {
        int value = 0;
        const auto [end, error] = std::from_chars(part.data(), part.data() + part.size(), value);
        return error == std::errc() && end == part.data() + part.size() && value <= kLargestSide ? value : 0;
    };
    const std::size_t cross = std::min(text.find('x'), text.size());
    const std::pair size{number(text.substr(0, cross)), number(text.substr(std::min(cross + 1, text.size())))};
    if (size.first < 1 || size.second < 1)
        throw std::invalid_argument("'" + std::string(text) + "' is no size such as 128x32, each side from 1 to " +
                                    std::to_string(kLargestSide));
    return size;
}

// Each "USER:PASSWORD"; a password may hold colons and may be empty.
vxsim::Users ParseLogins(const std::vector<std::string>& texts)
{
    vxsim::Users users;
    for (const std::string& text : texts) {
        const std::size_t colon = text.find(':');
        const std::string user = text.substr(0, colon);
        if (colon == std::string::npos || user.empty() || user.size() > vxsim::kLongestUser ||
            text.size() - colon - 1 > vxsim::kLongestPassword)
            throw std::invalid_argument("'" + text +
                                        "' is no login such as USER:PASSWORD, with up to 13 and 6 characters");
        if (!users.emplace(user, text.substr(colon + 1)).second)
            throw std::invalid_argument("user '" + user + "' has two passwords");
    }
    return users;
}

// A line for each command, on standard error.
void ReportCommands(vxsim::VirtualSign& sign)
{
    vxsim::SignEvents events;
    events.answered = [](const vxsim::Exchange& exchange) {
        std::cerr << exchange.name << " (" << int{exchange.request.major} << ", " << int{exchange.request.minor} << ')';
        if (exchange.code != vxsim::Code::kOk)
            std::cerr << " refused, code " << static_cast<int>(exchange.code);
        if (!exchange.remark.empty())
            std::cerr << ' ' << exchange.remark;
        std::cerr << '\n';
    };
    events.heldBack = [](std::string_view name) { std::cerr << name << " without an answer, after wrong passwords\n"; };
    sign.Observe(std::move(events));
}

// Readable as soon as somebody wants the program to end.
vxsim::Descriptor CatchEndSignals()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGINT);
    ::sigaddset(&signals, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    vxsim::Descriptor end(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!end)
        throw std::system_error(errno, std::generic_category(), "cannot watch for signals");
    return end;
}

// The sign's clock begins at the local time of this machine.
std::int64_t LocalSecondsAtZero()
{
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    ::localtime_r(&now, &local);
    return std::int64_t{now} + local.tm_gmtoff - static_cast<std::int64_t>(vxsim::NowMs() / 1000);
}

// A line for each place where hosts reach the sign.
std::vector<std::string> Places(const vxsim::Endpoints& endpoints, const vxsim::Companions& companions)
{
    std::vector<std::string> places{"udp " + endpoints.Place(), "tcp " + endpoints.Place()};
    if (!endpoints.serialPath.empty())
        places.push_back("serial " + endpoints.serialPath);
    for (std::string& place : companions.Places())
        places.push_back(std::move(place));
    return places;
}

void Announce(const fs::path& folder, const std::vector<std::string>& places)
{
    std::cout << "dir " << folder.string() << '\n';
    for (const std::string& place : places)
        std::cout << place << '\n';
    std::cout.flush();
}

// A controller has those of any other sign too.
void PrintCommands()
{
    const vxsim::SignFolder folder("");
    vxsim::SignSettings settings;
    settings.folder = folder.Path();
    settings.controller = true;
    std::cout << vxsim::CommandTable(vxsim::VirtualSign(settings).Commands());
}

// The program with a page is another one, so that a sign without one loads nothing of what a page needs.
void GoOnWithPage(char** arguments)
{
    const fs::path other = fs::read_symlink("/proc/self/exe").replace_filename("vxsim-web");
    ::execv(other.c_str(), arguments);
    throw std::system_error(errno, std::generic_category(), "cannot start " + other.string());
}

void Serve(const Options& options, vxsim::MakeOnlooker makePage)
{
    const auto [width, height] = ParseSize(options.size);
    const vxsim::Users users = ParseLogins(options.logins);
    const vxsim::ServerSettings serverSettings{std::chrono::milliseconds(options.delay),
                                               options.faults.empty() ? vxsim::FaultSettings{}
                                                                      : vxsim::ParseFaults(options.faults)};
    options.condition.Check(width, height);
    const vxsim::Descriptor end = CatchEndSignals();
    vxsim::Endpoints endpoints(options.listen);
    const vxsim::SignFolder folder(options.folder);
    vxsim::SignSettings settings;
    settings.folder = folder.Path();
    settings.width = width;
    settings.height = height;
    settings.drives = options.drives;
    settings.address = endpoints.address;
    settings.port = endpoints.port;
    settings.users = users;
    settings.localSecondsAtZero = LocalSecondsAtZero();
    settings.controller = options.controller;
    vxsim::VirtualSign sign(settings);
    options.condition.Apply(folder.Path());
    vxsim::SignEvents troubles;
    troubles.failed = [](const std::string& what) { std::cerr << "vxsim: " << what << '\n'; };
    sign.Observe(std::move(troubles));
    vxsim::Stage stage(sign);
    vxsim::Companions companions(options.companions, folder.Path() / "sign", endpoints.host, options.verbose);
    companions.ShowOn(stage);
    if (options.verbose)
        ReportCommands(sign);
    vxsim::Server server(endpoints, sign, serverSettings, companions.Lines());
    std::vector<std::string> places = Places(endpoints, companions);
    const bool isPainted = options.face == "ansi" || !options.png.empty();
    const auto step = isPainted ? kFrame : kUnseenStep;
    std::unique_ptr<vxsim::Onlooker> page;
    if (options.web.IsWanted()) {
        page = makePage(options.web.Settings(), {sign, stage, server, companions.Devices()},
                        {VXSIM_VERSION, folder.Path().string(), places}, step);
        places.push_back("web " + page->Address());
    }
    Announce(folder.Path(), places);
    std::optional<vxsim::FacePainter> painter;
    if (isPainted)
        painter.emplace(stage, options.face == "ansi" ? &std::cout : nullptr, vxsim::TerminalColumns, options.png);
    server.OnTick(step, [&sign, &stage, &painter, &page] {
        const std::uint64_t nowMs = vxsim::NowMs();
        sign.KeepUp(nowMs);
        if (painter)
            painter->Paint(nowMs);
        else if (page && page->IsWatched())
            stage.Draw(nowMs);
        else
            stage.KeepUp(nowMs);
        if (page)
            page->Publish(nowMs);
    });
    server.Run(end.Get());
}

int ParseAndRun(int argc, char** argv, vxsim::MakeOnlooker makePage)
{
    Options options;
    CLI::App app{"vxsim, a virtual LED sign: answers what a host sends and keeps the files it is given"};
    app.footer(kFooter);
    app.set_version_flag("--version", "vxsim " VXSIM_VERSION);
    app.add_option("--dir", options.folder,
                   "folder of the sign, kept; without it a temporary one that goes at the end");
    app.add_option("--host", options.listen.host, "IPv4 address to listen on")->capture_default_str();
    app.add_option("--port", options.listen.port, "UDP and TCP port; 0 picks a free one")
        ->capture_default_str()
        ->check(CLI::Range(0U, 65535U));
    app.add_flag("--serial", options.listen.serial, "serve a pseudo-terminal as well");
    options.companions.AddTo(app);
    app.add_option("--size", options.size, "width and height of the face in pixels")->capture_default_str();
    app.add_option("--drives", options.drives, "letters of the drives; C must be among them")->capture_default_str();
    app.add_option("--face", options.face, "draws the face on standard output (ansi) or not (none)")
        ->capture_default_str()
        ->check(CLI::IsMember({"ansi", "none"}));
    app.add_option("--png", options.png, "file for a picture of the face, written when it changes");
    app.add_option("--login", options.logins, "a user of the sign, USER:PASSWORD; then every host has to log in")
        ->expected(1)
        ->take_all();
    app.add_flag("--controller", options.controller, "is a traffic signal controller; the face shows its signals");
    app.add_flag("--commands", options.commands, "prints the table of the commands, and nothing else");
    app.add_flag("--verbose", options.verbose, "names each command on standard error");
    app.add_option("--delay", options.delay, "milliseconds from a request to its reply")
        ->capture_default_str()
        ->check(CLI::Range(0U, 60000U));
    app.add_option("--fault", options.faults, "what happens to replies, such as drop=0.1,noise=4");
    options.web.AddTo(app);
    options.condition.AddTo(app);
    options.condition.AddCommandsTo(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : kExitUsage;
    }
    options.listen.serial = options.listen.serial || options.companions.bootLoader;
    try {
        if (options.commands)
            PrintCommands();
        else if (options.web.IsWanted() && makePage == nullptr)
            GoOnWithPage(argv);
        else if (app.get_subcommands().empty())
            Serve(options, makePage);
        else
            options.condition.ApplyToTarget();
    } catch (const std::invalid_argument& error) {
        std::cerr << "vxsim: " << error.what() << '\n';
        return kExitUsage;
    }
    return EXIT_SUCCESS;
}

} // namespace

namespace vxsim {

int RunProgram(int argc, char** argv, MakeOnlooker makePage)
{
    try {
        return ParseAndRun(argc, argv, makePage);
    } catch (const fs::filesystem_error& error) {
        std::cerr << "vxsim: cannot use " << error.path1().string() << ": " << error.code().message() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "vxsim: " << error.what() << '\n';
    }
    return kExitFailure;
}

} // namespace vxsim

#include "sim/main/options.h"

#include "sim/face/textConversion.h"
#include "sim/files/drives.h"
#include "sim/server/faults.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string_view>

namespace vxsim {
namespace {

constexpr int kLargestSide = 2048;

constexpr const char* kFooter = R"(Each line on standard output names one thing to use: "dir FOLDER", "udp HOST:PORT",
"tcp HOST:PORT", "serial DEVICE", "modbus HOST:PORT", "modbus-tcp HOST:PORT", "web URL"; of many signs "sign NAME
HOST:PORT" for each. SIGINT and SIGTERM end the sign.

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
  vxsim --count 200 --write-book signs.toml  200 signs on the ports from 9520 on, and the book of them for vxctl
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
Users ParseLogins(const std::vector<std::string>& texts)
{
    Users users;
    for (const std::string& text : texts) {
        const std::size_t colon = text.find(':');
        const std::string user = text.substr(0, colon);
        if (colon == std::string::npos || user.empty() || user.size() > kLongestUser ||
            text.size() - colon - 1 > kLongestPassword)
            throw std::invalid_argument("'" + text +
                                        "' is no login such as USER:PASSWORD, with up to 13 and 6 characters");
        if (!users.emplace(user, text.substr(colon + 1)).second)
            throw std::invalid_argument("user '" + user + "' has two passwords");
    }
    return users;
}

} // namespace

void Options::AddTo(CLI::App& app)
{
    app.footer(kFooter);
    app.set_version_flag("--version", "vxsim " VXSIM_VERSION);
    app.add_option("--dir", folder, "folder of the sign, kept; without it a temporary one that goes at the end");
    app.add_option("--count", count, "so many signs, on following ports, each with a folder of its own below --dir")
        ->capture_default_str()
        ->check(CLI::Range(std::size_t{1}, kMostSigns));
    app.add_option("--write-book", book, "file for the book of the signs, as vxctl reads it");
    app.add_option("--host", listen.host, "IPv4 address to listen on")->capture_default_str();
    app.add_option("--port", listen.port, "UDP and TCP port; 0 picks a free one")
        ->capture_default_str()
        ->check(CLI::Range(0U, 65535U));
    app.add_flag("--serial", listen.serial, "serve a pseudo-terminal as well");
    companions.AddTo(app);
    app.add_option("--size", size, "width and height of the face in pixels")->capture_default_str();
    app.add_option("--encoding", encoding, "how its texts are encoded, such as gbk or shift_jis")
        ->capture_default_str();
    app.add_option("--drives", drives, "letters of the drives; C must be among them")->capture_default_str();
    app.add_option("--face", face, "draws the face on standard output (ansi) or not (none)")
        ->capture_default_str()
        ->check(CLI::IsMember({"ansi", "none"}));
    app.add_option("--png", png, "file for a picture of the face, written when it changes");
    app.add_option("--login", logins, "a user of the sign, USER:PASSWORD; then every host has to log in")
        ->expected(1)
        ->take_all();
    app.add_flag("--controller", controller, "is a traffic signal controller; the face shows its signals");
    app.add_flag("--commands", commands, "prints the table of the commands, and nothing else");
    app.add_flag("--verbose", verbose, "names each command on standard error");
    app.add_option("--delay", delay, "milliseconds from a request to its reply")
        ->capture_default_str()
        ->check(CLI::Range(0U, 60000U));
    app.add_option("--fault", faults, "what happens to replies, such as drop=0.1,noise=4");
    web.AddTo(app);
    condition.AddTo(app);
    condition.AddCommandsTo(app);
}

std::pair<int, int> Options::Size() const
{
    return ParseSize(size);
}

Users Options::Logins() const
{
    return ParseLogins(logins);
}

ServerSettings Options::Lines() const
{
    return {std::chrono::milliseconds(delay), faults.empty() ? FaultSettings{} : ParseFaults(faults)};
}

void Options::Check() const
{
    CheckEncoding(encoding);
    const auto [width, height] = Size();
    condition.Check(width, height);
    if (IsMany())
        CheckMany();
}

void Options::CheckMany() const
{
    const std::pair<bool, const char*> ofOne[] = {
        {companions.bootLoader, "--bootloader"},
        {listen.serial, "--serial"},
        {face == "ansi", "--face ansi"},
        {!png.empty(), "--png"},
    };
    for (const auto& [isGiven, name] : ofOne) {
        if (isGiven)
            throw std::invalid_argument(std::string(name) + " is for one sign, not for --count " +
                                        std::to_string(count));
    }
    Drives::CheckLetters(drives);
    CheckPorts();
}

// As many ports as there are signs from each of the given ones on, and none of them twice.
void Options::CheckPorts() const
{
    std::vector<std::pair<std::uint16_t, const char*>> runs{{listen.port, "--port"}};
    if (companions.HasModbus())
        runs.emplace_back(companions.rtuPort, "--modbus");
    if (companions.HasModbusTcp())
        runs.emplace_back(companions.tcpPort, "--modbus-tcp");
    std::erase_if(runs, [](const auto& run) { return run.first == 0; });
    std::ranges::sort(runs);
    std::size_t next = 0;
    for (const auto& [first, name] : runs) {
        const std::string ports =
            std::string(name) + " " + std::to_string(first) + " with --count " + std::to_string(count);
        if (first + count - 1 > std::numeric_limits<std::uint16_t>::max())
            throw std::invalid_argument(ports + " goes beyond the last port, 65535");
        if (first < next)
            throw std::invalid_argument(ports + " begins among the ports up to " + std::to_string(next - 1) +
                                        ", which are taken; give it others, or 0");
        next = first + count;
    }
}

} // namespace vxsim

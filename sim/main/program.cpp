#include "sim/main/program.h"

#include "sim/main/commandTable.h"
#include "sim/main/fleet.h"
#include "sim/main/oneSign.h"
#include "sim/main/options.h"
#include "sim/main/signFolder.h"
#include "sim/platform/descriptor.h"
#include "sim/virtualSign.h"

#include <CLI/CLI.hpp>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>
#include <sys/signalfd.h>
#include <system_error>
#include <unistd.h>

namespace vxsim {
namespace {

namespace fs = std::filesystem;

constexpr int kExitFailure = 1;
constexpr int kExitUsage = 2;

// Readable as soon as somebody wants the program to end.
Descriptor CatchEndSignals()
{
    sigset_t signals;
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGINT);
    ::sigaddset(&signals, SIGTERM);
    ::sigprocmask(SIG_BLOCK, &signals, nullptr);
    Descriptor end(::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK));
    if (!end)
        throw std::system_error(errno, std::generic_category(), "cannot watch for signals");
    return end;
}

// A controller has those of any other sign too.
void PrintCommands()
{
    const SignFolder folder("");
    SignSettings settings;
    settings.folder = folder.Path();
    settings.controller = true;
    std::cout << CommandTable(VirtualSign(settings).Commands());
}

// The program with a page is another one, so that a sign without one loads nothing of what a page needs.
void GoOnWithPage(char** arguments)
{
    const fs::path other = fs::read_symlink("/proc/self/exe").replace_filename("vxsim-web");
    ::execv(other.c_str(), arguments);
    throw std::system_error(errno, std::generic_category(), "cannot start " + other.string());
}

void Serve(const Options& options, const PageMakers* pages)
{
    options.Check();
    const Descriptor end = CatchEndSignals();
    if (options.IsMany())
        ServeMany(options, pages, end.Get());
    else
        ServeOne(options, pages, end.Get());
}

int ParseAndRun(int argc, char** argv, const PageMakers* pages)
{
    Options options;
    CLI::App app{"vxsim, a virtual LED sign: answers what a host sends and keeps the files it is given"};
    options.AddTo(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        return app.exit(error) == 0 ? EXIT_SUCCESS : kExitUsage;
    }
    options.listen.serial = options.listen.serial || options.companions.bootLoader;
    try {
        if (options.commands)
            PrintCommands();
        else if (options.web.IsWanted() && pages == nullptr)
            GoOnWithPage(argv);
        else if (app.get_subcommands().empty())
            Serve(options, pages);
        else
            options.condition.ApplyToTarget();
    } catch (const std::invalid_argument& error) {
        std::cerr << "vxsim: " << error.what() << '\n';
        return kExitUsage;
    }
    return EXIT_SUCCESS;
}

} // namespace

int RunProgram(int argc, char** argv, const PageMakers* pages)
{
    try {
        return ParseAndRun(argc, argv, pages);
    } catch (const fs::filesystem_error& error) {
        std::cerr << "vxsim: cannot use " << error.path1().string() << ": " << error.code().message() << '\n';
    } catch (const std::exception& error) {
        std::cerr << "vxsim: " << error.what() << '\n';
    }
    return kExitFailure;
}

} // namespace vxsim

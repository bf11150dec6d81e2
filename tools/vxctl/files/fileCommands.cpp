#include "vxctl/cli/command.h"
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/files/announcedSize.h"

#include <vxsign/filesystem.h>
#include <vxsign/local.h>
#include <vxsign/read.h>
#include <vxsign/write.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <memory>
#include <system_error>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr const char* kGroup = "Files";
constexpr std::size_t kLongestSystemName = 12;

struct Transfer
{
    std::string local;
    std::string path; // on the sign
    bool system = false;
    bool window = false;
};

void CheckSystemName(const Transfer& transfer)
{
    if (transfer.system && transfer.path.size() > kLongestSystemName)
        throw UsageError("the name of a system file has " + std::to_string(kLongestSystemName) + " characters at most");
}

// Runs a transfer under a progress bar, and then tells how large the local file is and how long that took.
void Run(Session& session, const Transfer& transfer, const std::string& title,
         const std::function<std::uint32_t()>& move, const std::string& measured)
{
    double seconds = 0;
    {
        // The windowed transfer reports its start alone: a bar would stand at 0 until the end.
        const ProgressBar bar(title, session.report.IsJson() || transfer.window);
        session.Connect(ProgressBar::OnProgress);
        const std::uint32_t result = move();
        seconds = bar.Seconds();
        Check(result);
    }
    // What went into a device cannot be measured any more.
    std::error_code error;
    if (!fs::is_regular_file(measured, error))
        return session.report.Line(title + ": done");
    const double bytes = vxOSGetFileSize(measured.c_str());
    const double rate = seconds > 0 ? bytes / seconds : 0;
    session.report.Put("bytes", static_cast<std::uint32_t>(bytes));
    session.report.Put("seconds", seconds);
    session.report.Put("bytesPerSecond", static_cast<std::uint64_t>(rate));
    session.report.Line(title + ": " + FormatSize(bytes) + ", " + FormatSize(rate) + "/s");
}

// A window that packet id 0 falls into fails, and goes through at the second try, unless the file is so long that every
// window of it meets the id: then it takes the plain way.
bool FitsWindow(const Transfer& put, std::uint32_t chunkSize)
{
    constexpr std::uint32_t kMostPackets = 65000;
    return vxOSGetFileSize(put.local.c_str()) / chunkSize < kMostPackets;
}

std::uint32_t SendThroughWindow(const char* path, const char* local)
{
    const std::uint32_t result = vxWriteFileOptimize(path, local);
    return result == VX_COMMUNICATION ? vxWriteFileOptimize(path, local) : result;
}

void Put(Session& session, const Transfer& put)
{
    CheckSystemName(put);
    const bool window = put.window && FitsWindow(put, session.options.chunk);
    const auto send = [&put, window] {
        const char* const path = put.path.c_str();
        const char* const local = put.local.c_str();
        if (put.system)
            return vxWriteSystemFile(path, local);
        return window ? SendThroughWindow(path, local) : vxWriteSpecFileEx(path, local);
    };
    Run(session, put, "put " + put.path, send, put.local);
}

// The library takes a file for whole that is not as long as the sign has announced. One that grows meanwhile, as a log
// does, is whole with any length between two announcements.
std::uint32_t Receive(Session& session, const Transfer& get, const LocalTarget& target)
{
    const auto ask = [&](std::uint32_t& size) { return AskSize(get.path, get.system, session.options.chunk, size); };
    std::uint32_t before = 0;
    const std::uint32_t asked = ask(before);
    if (asked == VX_COMMUNICATION || asked == VX_ABORTED)
        return asked;
    const std::string local = target.Temporary().string();
    const std::uint32_t result = get.system ? vxReadSysFile(get.path.c_str(), local.c_str())
                                            : vxReadSpecPathFileEx(get.path.c_str(), local.c_str());
    if (result == VX_CALL)
        throw SignFailure(result, "cannot write " + local + ": " + target.WhyFull());
    const auto got = target.Size();
    if (result != VX_OK || asked != VX_OK || !got || *got == before)
        return result;
    std::uint32_t after = before;
    if (ask(after) == VX_OK && *got >= std::min(before, after) && *got <= std::max(before, after))
        return VX_OK;
    throw SignFailure(VX_FAILED_OPERATION,
                      "the sign announces " + std::to_string(after) + " bytes, but " + std::to_string(*got) + " came");
}

void Get(Session& session, const Transfer& get)
{
    CheckSystemName(get);
    const LocalTarget target(get.local, get.path.substr(get.path.find_last_of("\\/:") + 1));
    const auto receive = [&] { return Receive(session, get, target); };
    Run(session, get, "get " + get.path, receive, target.Temporary().string());
    target.Keep();
    session.report.Put("local", target.Final().string());
}

void AddPut(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "put", "Send a file to the sign",
         R"(A file that begins with "NG" holds a wrapped message: it is unwrapped into LOCAL.tmp, which stays, and that is sent.

Examples:
  vxctl put hello.nmg D:/T/HELLO.NMG
  vxctl --chunk 1280 put --window firmware.bin C:/FW.BIN    eight packets at a time
  vxctl put --system list.sys SEQUENT.SYS)"});
    const auto put = std::make_shared<Transfer>();
    command->add_option("LOCAL", put->local, "the file on this PC")
        ->type_name("FILE")
        ->required()
        ->check(ReadableFile());
    AddSignPath(*command, "PATH", put->path, "the path on the sign, or the name of a system file")->required();
    CLI::Option* const system =
        command->add_flag("--system", put->system, "PATH is the name of a system file, such as CONFIG.SYS");
    command->add_flag("--window", put->window, "up to 8 packets on their way at a time; once more if that fails")
        ->excludes(system);
    command->callback([&session, put] { Put(session, *put); });
}

void AddGet(CLI::App& app, Session& session)
{
    CLI::App* const command = AddCommand(
        app,
        {kGroup, "get", "Read a file from the sign",
         R"(LOCAL may be a folder. What arrives goes into LOCAL.part first, so that a failure leaves LOCAL as it was. A
file that is not as long as the sign announces is a failure too, unless it grows meanwhile. A pipe is written straight,
and is not measured.

Examples:
  vxctl get D:/T/HELLO.NMG hello.nmg
  vxctl get D:/T/HELLO.NMG .
  vxctl get --system CONFIG.SYS config.sys)"});
    const auto get = std::make_shared<Transfer>();
    AddSignPath(*command, "PATH", get->path, "the path on the sign, or the name of a system file")->required();
    command->add_option("LOCAL", get->local, "the file on this PC, or a folder")->type_name("FILE")->required();
    command->add_flag("--system", get->system, "PATH is the name of a system file, such as CONFIG.SYS");
    command->callback([&session, get] { Get(session, *get); });
}

void AddRemove(CLI::App& app, Session& session)
{
    CLI::App* const command =
        AddCommand(app, {kGroup, "rm", "Delete a file on the sign", "Example:\n  vxctl rm D:/T/HELLO.NMG"});
    const auto path = std::make_shared<std::string>();
    AddSignPath(*command, "PATH", *path, "the path on the sign")->required();
    command->callback([&session, path] {
        session.Connect();
        Check(vxDelete(path->c_str()));
    });
}

} // namespace

void AddFileCommands(CLI::App& app, Session& session)
{
    AddPut(app, session);
    AddGet(app, session);
    AddRemove(app, session);
}

} // namespace vxctl

// put, get, rm: files to and from the sign.
#include "vxctl/cli/localFiles.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"
#include "vxctl/files/announcedSize.h"
#include "vxctl/files/readBack.h"
#include "vxctl/files/sending.h"
#include "vxctl/files/targetPath.h"
#include "vxctl/files/windowed.h"

#include <vxsign/filesystem.h>
#include <vxsign/local.h>
#include <vxsign/read.h>
#include <vxsign/write.h>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <system_error>

namespace vxctl {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kLongestSystemName = 12;

void CheckSystemName(const Args& args)
{
    if (args.Has("--system") && args.Text("PATH").size() > kLongestSystemName)
        throw UsageError("the name of a system file has " + std::to_string(kLongestSystemName) + " characters at most");
}

// Runs a transfer under a progress bar, and then tells how large the local file is and how long that took.
void Transfer(Session& session, const std::string& title, bool silent, const std::function<std::uint32_t()>& move,
              const std::string& measured)
{
    double seconds = 0;
    {
        const ProgressBar bar(title, silent || session.report.IsForPrograms());
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

// A window that packet id 0 falls into fails, which every window of a long file does.
bool FitsWindow(const std::string& local, std::uint32_t chunkSize)
{
    constexpr std::uint32_t kMostPackets = 65000;
    return vxOSGetFileSize(local.c_str()) / chunkSize < kMostPackets;
}

std::uint32_t Put(Session& session, const Args& args)
{
    CheckSystemName(args);
    const Unshared unshared(session, args.Text("LOCAL"));
    const std::string& local = unshared.Path();
    const std::string path = args.Has("--system") ? args.Text("PATH") : TargetPath(args.Text("PATH"), local);
    const bool window = args.Has("--window") && FitsWindow(local, session.options.chunk);
    const auto send = [&] {
        if (args.Has("--system"))
            return vxWriteSystemFile(path.c_str(), local.c_str());
        return window ? SendWindowed(path.c_str(), local.c_str()) : vxWriteSpecFileEx(path.c_str(), local.c_str());
    };
    session.leftOver = PartOf(path);
    // A window reports its start alone: a bar would stand at 0 until the end.
    Transfer(session, "put " + path, args.Has("--window"), send, local);
    session.leftOver.clear();
    session.report.Put("path", path);
    if (args.Has("--verify"))
        Verify(session, {path, args.Has("--system")}, local);
    return VX_OK;
}

// The library takes a file for whole that is not as long as the sign has announced. One that grows meanwhile, as a log
// does, is whole with any length between two announcements.
std::uint32_t Receive(const Session& session, const Args& args, const LocalTarget& target)
{
    const std::string& path = args.Text("PATH");
    const bool system = args.Has("--system");
    const auto ask = [&](std::uint32_t& size) { return AskSize(path, system, session.options.chunk, size); };
    std::uint32_t before = 0;
    const std::uint32_t asked = ask(before);
    if (IsLineDown(asked))
        return asked;
    const std::string local = target.Temporary().string();
    const std::uint32_t result =
        system ? vxReadSysFile(path.c_str(), local.c_str()) : vxReadSpecPathFileEx(path.c_str(), local.c_str());
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

std::uint32_t Get(Session& session, const Args& args)
{
    CheckSystemName(args);
    const std::string& path = args.Text("PATH");
    const LocalTarget target(args.Text("LOCAL"), path.substr(path.find_last_of("\\/:") + 1));
    const auto receive = [&] { return Receive(session, args, target); };
    Transfer(session, "get " + path, false, receive, target.Temporary().string());
    target.Keep();
    session.report.Put("local", target.Final().string());
    return VX_OK;
}

constexpr Argument kPath = SignPath("PATH", "the path on the sign, or the name of a system file");
constexpr Argument kVerify = Flag("--verify", "read it back and compare");
constexpr Argument kSystem = Flag("--system", "PATH is the name of a system file, such as CONFIG.SYS");

const Command kCommands[] = {
    {
        .name = "put",
        .help = "Send a file to the sign",
        .details =
            R"(PATH may be a folder, which takes the file under its own name. A file that begins with "NG" holds a wrapped message:
it is unwrapped into LOCAL.tmp, which stays, and that is sent.)",
        .examples = R"(vxctl put hello.nmg D:/T/HELLO.NMG
vxctl put hello.nmg D:/T/
vxctl --chunk 1280 put --window firmware.bin C:/FW.BIN    eight packets at a time
vxctl put --system list.sys SEQUENT.SYS)",
        .arguments = {ReadFile("LOCAL", "the file on this PC"), kPath, kSystem,
                      Flag("--window", "up to 8 packets on their way at a time; plainly on a line with losses")
                          .Excludes("--system"),
                      kVerify},
        .signs = Signs::kMany,
        .run = Put,
    },
    {
        .name = "get",
        .help = "Read a file from the sign",
        .details =
            R"(LOCAL may be a folder. What arrives goes into LOCAL.part first, so that a failure leaves LOCAL as it was. A
file that is not as long as the sign announces is a failure too, unless it grows meanwhile. A pipe is written straight,
and is not measured.)",
        .examples = R"(vxctl get D:/T/HELLO.NMG hello.nmg
vxctl get D:/T/HELLO.NMG .
vxctl get --system CONFIG.SYS config.sys)",
        .arguments = {kPath, WriteFile("LOCAL", "the file on this PC, or a folder"), kSystem},
        .signs = Signs::kMany,
        .run = Get,
    },
    {
        .name = "rm",
        .help = "Delete a file on the sign",
        .examples = "vxctl rm D:/T/HELLO.NMG",
        .arguments = {SignPath("PATH", "the path on the sign")},
        .signs = Signs::kMany,
        .run = [](Session&, const Args& args) { return vxDelete(args.Text("PATH").c_str()); },
    },
};

} // namespace

const CommandTable kFileCommands{"Files", kCommands};

} // namespace vxctl

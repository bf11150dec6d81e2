// upgrade: firmware for a boot loader, by XMODEM.
#include "vxctl/cli/libraryOutput.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/cli/tables.h"

#include <vxsign/local.h>
#include <vxsign/xmodem.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

namespace vxctl {

namespace {

using SteadyClock = std::chrono::steady_clock;

// What the library takes for another ACK: no answer at all to any try. It shows in the time since the last block that
// was confirmed; a thread looks at that, and has the rest of the transfer left out.
class SilenceWatch
{
public:
    explicit SilenceWatch(const Options& options)
        : longest(options.retries * std::max<std::uint32_t>(100, options.timeoutMs / 100 * 100)),
          thread([this](const std::stop_token& stop) { Run(stop); })
    {
        current = this;
    }
    ~SilenceWatch() { current = nullptr; }
    SilenceWatch(const SilenceWatch&) = delete;
    SilenceWatch& operator=(const SilenceWatch&) = delete;

    static void OnProgress(vxApiConfig* config, std::uint32_t reserved, std::uint32_t percent)
    {
        ProgressBar::OnProgress(config, reserved, percent);
        if (current != nullptr)
            current->TakeAnswer();
    }

    bool IsSilent()
    {
        const std::lock_guard lock(mutex);
        return Look();
    }
    std::uint32_t Answered() // blocks
    {
        const std::lock_guard lock(mutex);
        return answered;
    }

private:
    // Since when it is silence: after as long as a block can wait, which is one step, since silence passes for the
    // former answer. Ahead of the first answer it takes twenty steps, twice those that the receiver has to ask.
    SteadyClock::time_point End() const
    {
        constexpr int kFirstSteps = 20;
        return last + (answered > 0 ? longest : longest * kFirstSteps);
    }

    // Once silent, always silent.
    bool Look()
    {
        if (!silent && SteadyClock::now() >= End()) {
            silent = true;
            std::atomic_ref(config.abortFlag).store(1);
        }
        return silent;
    }

    void TakeAnswer()
    {
        const std::lock_guard lock(mutex);
        if (Look())
            return;
        ++answered;
        last = SteadyClock::now();
    }

    void Run(const std::stop_token& stop)
    {
        std::unique_lock lock(mutex);
        while (!stop.stop_requested() && !Look())
            ended.wait_until(lock, stop, End(), [] { return false; });
    }

    static inline SilenceWatch* current = nullptr; // the callback brings nothing along that could name it

    vxApiConfig& config = *static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION)); // of the thread that sends
    const std::chrono::milliseconds longest;
    SteadyClock::time_point last = SteadyClock::now();
    std::uint32_t answered = 0;
    bool silent = false;
    std::mutex mutex;
    std::condition_variable_any ended;
    std::jthread thread;
};

struct Ending
{
    std::uint32_t code = VX_OK;
    std::string reason;
};

// The library's result alone does not tell: some transfers that failed give 0.
Ending Judge(std::uint32_t result, const std::string& steps, bool silent, bool aborted, std::uint32_t answered)
{
    const auto told = [&steps](const char* words) { return steps.find(words) != std::string::npos; };
    const std::string behind = " behind block " + std::to_string(answered);
    if (result != VX_OK && result != VX_UPGRADE_FAILED)
        return {result, ""};
    if (silent)
        return {VX_COMMUNICATION, "the receiver does not answer any more" + behind};
    if (aborted)
        return {VX_ABORTED, answered != 0 ? "stopped" + behind : ""};
    if (told("is not ready"))
        return {VX_COMMUNICATION, "the receiver does not ask for blocks"};
    if (result != VX_OK)
        return {VX_FAILED_OPERATION, "the receiver refuses a block"};
    if (told("Fatal Error!"))
        return {VX_FAILED_OPERATION, "the receiver broke off"};
    if (told("sedn EOT"))
        return {VX_COMMUNICATION, "the receiver has all blocks, but did not confirm the end"};
    return {};
}

// Boot loaders listen on serial lines. Through a converter one may be reached over a network too.
void CheckLine(const Session& session, const Args& args)
{
    if (session.Sign().kind != VX_CHANNEL_SERIAL && !args.Has("--anyway"))
        throw UsageError("a boot loader takes firmware on a serial line, such as -s serial:/dev/ttyUSB0@115200, and "
                         "not from " +
                         session.options.url + "; --anyway tries it there");
}

void TellWait(const Session& session)
{
    constexpr std::uint32_t kSteps = 10;
    const Options& options = session.options;
    session.report.Line("waiting up to " + std::to_string(kSteps * options.retries * options.timeoutMs / 1000) +
                        " s for the boot loader at " + options.url +
                        " to ask for the firmware: start it now, Ctrl-C ends the wait");
}

std::uint32_t Upgrade(Session& session, const Args& args)
{
    CheckLine(session, args);
    TellWait(session);
    const std::string& file = args.Text("FILE");
    std::uint32_t result = VX_OK;
    double seconds = 0;
    std::string steps;
    bool silent = false;
    std::uint32_t answered = 0;
    {
        session.Connect(SilenceWatch::OnProgress);
        const ProgressBar bar("upgrade", session.report.IsForPrograms());
        SilenceWatch watch(session.options);
        LibraryOutput output;
        session.leftOver = "the device has a part of the firmware: send all of it before it is used";
        result = vxXModem_Upgrade(file.c_str());
        steps = output.Take();
        silent = watch.IsSilent();
        answered = watch.Answered();
        seconds = bar.Seconds();
    }
    const auto* const config = static_cast<const vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    const Ending ending = Judge(result, steps, silent, config != nullptr && config->abortFlag != 0, answered);
    const double bytes = vxOSGetFileSize(file.c_str());
    const double rate = seconds > 0 ? bytes / seconds : 0;
    session.report.Put("bytes", static_cast<std::uint32_t>(bytes));
    session.report.Put("blocks", answered);
    session.report.Put("seconds", seconds);
    session.report.Put("steps", steps);
    if (ending.code != VX_OK)
        throw SignFailure(ending.code, ending.reason);
    session.report.Line("upgrade: " + std::to_string(answered) + " blocks, " + FormatSize(bytes) + ", " +
                        FormatSize(rate) + "/s");
    return VX_OK;
}

const Command kCommands[] = {
    {
        .name = "upgrade",
        .help = "Send firmware to a boot loader by XMODEM",
        .details =
            R"(The boot loader asks for the file, on a serial line. --timeout and --retries hold for each step; a receiver that does
not ask is given ten steps.)",
        .examples = R"(vxctl -s serial:/dev/ttyUSB0@115200 upgrade firmware.bin
vxctl -s serial:/dev/ttyUSB0@115200 --timeout 500 upgrade firmware.bin)",
        .arguments = {ReadFile("FILE", "the firmware on this PC"),
                      Flag("--anyway", "try it over UDP or TCP, as through a converter")},
        .line = Line::kOwn,
        .run = Upgrade,
    },
};

} // namespace

const CommandTable kUpgradeCommands{"Field devices", kCommands};

} // namespace vxctl

// A host that works with four signs for as long as it runs: soakHost FOLDER. It ends by SIGTERM or SIGINT.
//
// FOLDER holds what each sign printed at its start, as "udp.lines", "tcp.lines", "serial.lines", "faulty.lines", and
// the files of the host. Every sign has a thread of its own, which does one thing after the other in random order; many
// of them in a thread that ends with all that the library keeps for it. At the end stands a line for each sign.
#include <vxsign/vxsign.h>

#include <array>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <sys/file.h>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto kPause = 150ms; // between two things: keeps host and signs together at a few percent of a core
constexpr auto kAbortAfter = 20ms;
constexpr std::uint32_t kBaudRate = 115200;
constexpr std::uint32_t kTimeoutMs = 300;
constexpr std::uint32_t kRetries = 6; // enough where one reply in ten is lost

std::atomic<bool> ended = false;

std::string ReadWhole(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

// A sign, as its lines tell at this moment: it may have been started anew elsewhere.
struct Sign
{
    fs::path folder;
    std::string name;
    vxApiConfig config = {};

    std::string Line(const std::string& what) const
    {
        std::ifstream lines(folder / (name + ".lines"));
        std::string word;
        std::string place;
        while (lines >> word >> place)
            if (word == what)
                return place;
        return {};
    }

    void Find()
    {
        config.retries = kRetries;
        config.timeoutMs = kTimeoutMs;
        config.baudRate = kBaudRate;
        config.kind = name == "serial" ? VX_CHANNEL_SERIAL : name == "tcp" ? VX_CHANNEL_TCP : VX_CHANNEL_UDP;
        const std::string place = Line("udp");
        std::snprintf(config.host, sizeof config.host, "127.0.0.1");
        config.port = static_cast<std::uint32_t>(std::atoi(place.c_str() + place.find(':') + 1));
        std::snprintf(config.serialName, sizeof config.serialName, "%s", Line("serial").c_str());
    }

    // A file of the host's own for this sign, and one that it has from the script.
    std::string Own(const char* file) const { return (folder / "host" / name / file).string(); }
    std::string Content(const char* file) const { return (folder / file).string(); }
};

std::uint32_t Show(const Sign& sign)
{
    const vxApiConfig& to = sign.config;
    const std::string text = "SOAK " + std::to_string(std::rand() % 100);
    return vxShowMsgTimeout(reinterpret_cast<const std::uint8_t*>(text.data()), static_cast<std::uint32_t>(text.size()),
                            '1', '1', '0', 2, to.host, to.port, 0, 1, kRetries, kTimeoutMs, to.kind, to.serialName,
                            kBaudRate, 0);
}

std::uint32_t Picture(const Sign& sign)
{
    const vxApiConfig& to = sign.config;
    const std::string picture = ReadWhole(sign.Content("logo.bmp"));
    return vxShowPicEx(reinterpret_cast<const std::uint8_t*>(picture.data()),
                       static_cast<std::uint32_t>(picture.size()), '0', 2, to.host, to.port, 0, to.kind, to.serialName,
                       kBaudRate, 0);
}

std::uint32_t Files(const Sign& sign)
{
    const vxApiConfig& to = sign.config;
    const std::array<std::string, 2> paths{sign.Content("hello.nmg"), sign.Content("logo.bmp")};
    std::array<const char*, 2> files{paths[0].c_str(), paths[1].c_str()};
    return vxShowFilesEx(files.data(), 2, '0', 2, to.host, to.port, 0, to.kind, to.serialName, kBaudRate, 0);
}

std::uint32_t Message(const Sign& sign)
{
    const std::string file = sign.Own("made.nmg");
    return vxShowMsgToNmg(reinterpret_cast<const std::uint8_t*>("MADE"), 4, file.c_str(), '1', '1', '0', 3);
}

std::uint32_t Put(const Sign& sign)
{
    return vxWriteSpecFileEx("D:\\F\\HOST.BIN", sign.Content("content.bin").c_str());
}

std::uint32_t PutByWindow(const Sign& sign)
{
    return vxWriteFileOptimize("D:\\F\\WINDOW.BIN", sign.Content("content.bin").c_str());
}

std::uint32_t Get(const Sign& sign)
{
    if (const std::uint32_t result = Put(sign))
        return result;
    const std::string file = sign.Own("got.bin");
    return vxReadSpecPathFileEx("D:\\F\\HOST.BIN", file.c_str());
}

std::uint32_t Remove(const Sign& sign)
{
    if (const std::uint32_t result = vxWriteSpecFileEx("D:\\F\\GONE.NMG", sign.Content("hello.nmg").c_str()))
        return result;
    return vxDelete("D:\\F\\GONE.NMG");
}

std::uint32_t List(const Sign& sign)
{
    // By rule the listing of an empty folder is no listing.
    if (const std::uint32_t result = vxWriteSpecFileEx("D:\\L\\HELLO.NMG", sign.Content("hello.nmg").c_str()))
        return result;
    std::uint32_t total = 0;
    std::array<std::uint8_t, 32 * 40> entries{};
    if (const std::uint32_t result = vxGetDirFile("D:\\L", &total, entries.data(), 40))
        return result;
    return vxLstLongFolderCB(
        "D:\\L", [](std::uint8_t*, void*) { return 0U; }, nullptr);
}

std::uint32_t Steer(const Sign&)
{
    if (const std::uint32_t result = vxBrightAdjust(static_cast<std::uint8_t>(std::rand() % 8)))
        return result;
    if (const std::uint32_t result = vxBlackScreen())
        return result;
    return vxEndBlackScreen();
}

std::uint32_t Status(const Sign& sign)
{
    const auto drop = [](std::uint32_t, const vxStatusRecord*, const std::uint8_t*, const char*) { return 0U; };
    if (const std::uint32_t result = vxReadStatusInfo(sign.Own("").c_str(), 0, 0, drop, 0, 0, 1))
        return result;
    return vxReadWaringReport([](const vxWaringReportRow*) { return 0U; });
}

std::uint32_t Logs(const Sign& sign)
{
    std::array<std::uint8_t, 64> head{};
    std::array<char, 2048> rows{};
    if (const std::uint32_t result =
            vxReadDB(1, "select * from PlayLog limit 10 offset 0", head.data(), 64, rows.data(), 2048))
        return result;
    if (const std::uint32_t result =
            vxReadPlayLogExt(0, 0, VX_LOG_READ, [](std::uint32_t, const PlayLogRecord*) { return 0U; }))
        return result;
    if (const std::uint32_t result =
            vxReadSignLog(0, 0, VX_LOG_READ, [](std::uint32_t, const SignLogRecord*) { return 0U; }))
        return result;
    return vxReadTJRadarLog(sign.Own("").c_str(), 0, 0, [](std::uint32_t, const TJRadarLogRecord*) { return 0U; });
}

std::uint32_t Pixels(const Sign& sign)
{
    return vxReadPixelInfo(sign.Own("").c_str(), 0, VX_PIXELS_FROM_CSV,
                           [](std::uint32_t, const vxPixelRow*) { return 0U; });
}

std::uint32_t Tiles(const Sign&)
{
    std::uint32_t task = 0;
    std::array<std::uint8_t, 1024> status{};
    std::uint16_t end = 0;
    if (const std::uint32_t result = vxTarsisGetTileStat(1, &task))
        return result;
    return vxTarsisGetResult(task, status.data(), status.size(), &end);
}

std::uint32_t Screenshot(const Sign& sign)
{
    return vxReadCurScreenshot(sign.Own("face.jpeg").c_str());
}

std::uint32_t Playlist(const Sign& sign)
{
    std::string list = sign.Own("list");
    std::string file = "list.xml";
    std::string root = "/";
    fs::create_directory(list);
    if (const std::uint32_t result = vxPLInit(list.data(), file.data()))
        return result;
    vxPLDelItem(root.data(), 0, 65535);
    for (const char* name : {"hello.nmg", "logo.bmp"}) {
        auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
        std::snprintf(info->fileName, sizeof info->fileName, "%s", name);
        info->playTimes = 1;
        info->Drive = 'D';
        info->Type = *name == 'h' ? 'T' : 'P';
        info->PicStaySec = 2;
        fs::copy_file(sign.folder / name, fs::path(list) / name, fs::copy_options::overwrite_existing);
        vxPLAddFile(root.data(), 0, info);
    }
    if (const std::uint32_t result = vxPLSave())
        return result;
    if (const std::uint32_t result = vxPLSendToLED(1))
        return result;
    return vxPLReadFromLED(1);
}

std::uint32_t Modbus(const Sign& sign)
{
    if (sign.name != "serial")
        return VX_OK;
    std::uint16_t value = 0;
    if (const std::uint32_t result = vxMB_VSLSSet(5, 1, 3, 80))
        return result;
    return vxMB_VSLSGet(5, 1, 3, &value);
}

// A transfer that another thread stops.
std::uint32_t Abort(const Sign& sign)
{
    auto* const live = static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    std::jthread stopper([live] {
        std::this_thread::sleep_for(kAbortAfter);
        std::atomic_ref(live->abortFlag).store(1);
    });
    const std::uint32_t result = vxWriteSpecFileEx("D:\\F\\STOPPED.BIN", sign.Content("content.bin").c_str());
    return result == VX_ABORTED || result == VX_COMMUNICATION ? std::uint32_t{VX_OK} : result;
}

struct Operation
{
    const char* name;
    std::uint32_t (*run)(const Sign&);
};
constexpr std::array kOperations{
    Operation{"show", Show},
    Operation{"picture", Picture},
    Operation{"files", Files},
    Operation{"message", Message},
    Operation{"put", Put},
    Operation{"window", PutByWindow},
    Operation{"get", Get},
    Operation{"remove", Remove},
    Operation{"list", List},
    Operation{"steer", Steer},
    Operation{"status", Status},
    Operation{"logs", Logs},
    Operation{"tiles", Tiles},
    Operation{"playlist", Playlist},
    Operation{"modbus", Modbus},
    Operation{"abort", Abort},
    Operation{"screenshot", Screenshot},
};
constexpr Operation kPixels{"pixels", Pixels};
constexpr int kPixelsOneIn = 100; // a check takes seconds

struct Counts
{
    unsigned long done = 0;
    unsigned long refused = 0;    // by the sign: two hosts may want the same thing at once
    unsigned long unanswered = 0; // a sign without faults answers always
};

void Do(const Operation& operation, const Sign& sign, Counts& counts)
{
    vxInitAPI(&sign.config);
    const std::uint32_t result = operation.run(sign);
    if (result == VX_OK)
        ++counts.done;
    else if (result == VX_COMMUNICATION || result == VX_NO_ANSWER)
        ++counts.unanswered;
    else
        ++counts.refused;
    if (result != VX_OK)
        std::fprintf(stderr, "%s: %s: %s\n", sign.name.c_str(), operation.name, vxErrorDesc(result));
}

void Work(Sign sign, Counts& counts)
{
    std::minstd_rand random(static_cast<unsigned>(std::hash<std::string>{}(sign.name)));
    const int lock = ::open((sign.folder / (sign.name + ".lock")).c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
    while (!ended) {
        ::flock(lock, LOCK_EX); // a serial line is for one program at a time
        sign.Find();
        const Operation& operation =
            random() % kPixelsOneIn == 0 ? kPixels : kOperations[random() % kOperations.size()];
        if (random() % 4 == 0)
            std::thread(Do, std::cref(operation), std::cref(sign), std::ref(counts)).join();
        else
            Do(operation, sign, counts);
        ::flock(lock, LOCK_UN);
        std::this_thread::sleep_for(kPause);
    }
    ::close(lock);
}

} // namespace

int main(int count, char** arguments)
{
    if (count != 2)
        return 2;
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    std::array<std::string, 4> names{"udp", "tcp", "serial", "faulty"};
    std::array<Counts, 4> counts;
    {
        std::vector<std::jthread> threads;
        for (std::size_t i = 0; i < names.size(); ++i) {
            Sign sign{arguments[1], names[i]};
            fs::create_directories(sign.Own(""));
            threads.emplace_back(Work, sign, std::ref(counts[i]));
        }
        int signal = 0;
        sigwait(&signals, &signal);
        ended = true;
    }
    for (std::size_t i = 0; i < names.size(); ++i)
        std::printf("%-8s %8lu done %6lu refused %6lu unanswered\n", names[i].c_str(), counts[i].done,
                    counts[i].refused, counts[i].unanswered);
}

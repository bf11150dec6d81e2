// Calls each export with random arguments against a hostile sign: hostileTest [--calls N] [--seed S] [--export NAME]
//
// Nothing may crash, write beyond a buffer, throw, or take for ever. A finding ends the program with the command that
// shows it. Exports delete, make and write what their arguments name, so the program runs in a folder of its own, as a
// user who can do no harm.
#include "hostile/arguments.h"
#include "hostile/hostileSign.h"
#include "support/fakeClock.h"
#include "support/udpPeer.h"

#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <filesystem>
#include <fstream>
#include <functional>
#include <grp.h>
#include <map>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace vxsign::test {

namespace {

namespace fs = std::filesystem;

constexpr unsigned kNobody = 65534;
constexpr unsigned kMostSeconds = 30; // of one call
constexpr int kHostileFiles = 12;
constexpr std::size_t kDatagram = 1536; // what a read takes of one

// What runs now, for the message of a finding.
std::uint64_t seed = 1;
std::string_view running;
std::uint64_t runningCall = 0;

extern "C" void __asan_on_error() // NOLINT: the sanitizer's name
{
    std::fprintf(stderr, "shown by: hostileTest --export %s --seed %llu, in call %llu\n", std::string(running).c_str(),
                 static_cast<unsigned long long>(seed), static_cast<unsigned long long>(runningCall));
}

[[noreturn]] void Found(const char* what)
{
    std::fprintf(stderr, "%s\n", what);
    __asan_on_error();
    std::_Exit(1);
}

struct Export
{
    std::string_view name;
    std::vector<Parameter> parameters;
    std::function<void(Arguments&)> call;
};

template <class R, class... P>
std::function<void(Arguments&)> Caller(R (*function)(P...), std::vector<std::size_t> (*sizes)(P...))
{
    return [=](Arguments& arguments) {
        std::apply([&](P... values) { static_cast<void>(function(values...)); }, arguments.All(sizes));
    };
}

std::vector<std::size_t> Sizes(auto... sizes)
{
    return {static_cast<std::size_t>(sizes)...};
}

std::vector<Parameter> ParametersOf(std::string_view text)
{
    std::vector<Parameter> all;
    while (!text.empty()) {
        const std::string_view word = text.substr(0, text.find(' '));
        all.emplace_back(word);
        text.remove_prefix(std::min(text.size(), word.size() + 1));
    }
    return all;
}

std::vector<Export> Exports()
{
    return {
#define EXPORT(name, parameters, arguments, ...)                                                                       \
    {#name, ParametersOf(parameters),                                                                                  \
     Caller(                                                                                                           \
         name, +[] arguments { return Sizes(__VA_ARGS__); })},
#include "exports.inc"
#undef EXPORT
    };
}

// Exports whose arguments belong together in a way that no mark tells.
const std::map<std::string_view, std::function<void(Random&)>> kByHand = {
    {"vxInitAPI",
     [](Random& random) {
         vxApiConfig config = HostileSign::Config(random);
         random.Fill(reinterpret_cast<std::uint8_t*>(&config), offsetof(vxApiConfig, onOpen));
         config.kind |= 4; // no channel of this PC
         vxInitAPI(&config);
         vxBlackScreen();
     }},
    {"vxFOpen",
     [](Random& random) {
         if (FILE* const file = vxFOpen(("hostile/" + std::to_string(random.Below(16))).c_str(), "rb"))
             std::fclose(file);
     }},
    {"vxReadFileLine",
     [](Random& random) {
         std::vector<std::uint8_t> line(1 + random.Below(300));
         FILE* const file = vxFOpen("hostile/1", "rb");
         while (file != nullptr && vxReadFileLine(file, line.data(), static_cast<std::uint32_t>(line.size())) != 0) {
         }
         if (file != nullptr)
             std::fclose(file);
     }},
    {"vxPLAddFile",
     [](Random& random) {
         auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::malloc(sizeof(VXPLAYLIST_FILE_INFO)));
         random.Fill(reinterpret_cast<std::uint8_t*>(info), sizeof *info);
         static auto* const ours = new std::vector<VXPLAYLIST_FILE_INFO*>; // what the list does not take is no leak
         ours->push_back(info);
         char path[] = "/";
         vxPLAddFile(path, static_cast<std::uint16_t>(random.Number()), info);
     }},
    {"vxPLGetItems",
     [](Random& random) {
         auto count = static_cast<std::uint16_t>(random.Below(300));
         const auto items = std::make_unique<VXPLAYLIST_ITEM[]>(count);
         char path[] = "/";
         vxPLGetItems(path, &count, items.get());
     }},
    {"vxChkSum",
     [](Random& random) {
         std::vector<std::uint8_t> bytes(random.Below(5000));
         const auto end = static_cast<std::uint32_t>(bytes.size());
         vxChkSum(bytes.data(), static_cast<std::uint32_t>(random.Number()), end,
                  static_cast<std::uint32_t>(random.Below(3)));
     }},
};

// Exports that have more time than others.
const std::map<std::string_view, HostileSign::Bound> kBounds = {
    {"vxReadCurScreenshot", {.exchanges = 11}},
    {"vxReadCurScreentshot", {.exchanges = 11}},
    {"vxReadStatusInfo", {.exchanges = 7}},
    {"vxXModem_Upgrade", {.exchanges = 10000}}, // a byte of noise passes for an answer
    {"vxWriteFileOptimize", {.betweenTriesMs = 5000}},
};

// In a fresh folder, with hostile files below "hostile".
void EnterFolder(const fs::path& folder, Random& random)
{
    fs::create_directories(folder / "hostile");
    fs::current_path(folder);
    for (int i = 0; i < kHostileFiles; ++i) {
        const Bytes bytes = HostileFile(random);
        std::ofstream("hostile/" + std::to_string(i), std::ios::binary)
            .write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
}

void CallOnce(const Export& tried, std::uint16_t port, Random& random)
{
    const bool isBare = random.Chance(3); // a thread without configuration
    const auto call = [&] {
        std::unique_ptr<HostileSign> sign;
        if (!isBare)
            sign = std::make_unique<HostileSign>(random);
        Arguments::throws = !isBare && random.Chance(3);
        const std::size_t without =
            random.Chance(85) || tried.parameters.empty() ? 0 : 1 + random.Below(tried.parameters.size());
        Arguments arguments(tried.parameters, without, port, random);
        if (const auto byHand = kByHand.find(tried.name); byHand != kByHand.end())
            byHand->second(random);
        else
            tried.call(arguments);
        Arguments::throws = false;
        if (!arguments.InputsStand())
            Found("a call that writes where its header says that it only reads");
        if (sign && arguments.LacksSomething() && HostileSign::WasWrittenTo())
            Found("a call that goes on without an argument that its header wants");
        const auto bound = kBounds.find(tried.name);
        if (sign && !HostileSign::KeptItsTime(bound != kBounds.end() ? bound->second : HostileSign::Bound()))
            Found("a call that takes longer than its header says");
    };
    ::alarm(kMostSeconds);
    if (isBare)
        std::thread(call).join();
    else
        call();
    ::alarm(0);
}

// Whoever may do everything becomes nobody, in a folder of nobody's.
fs::path Harmless()
{
    std::string pattern = (fs::temp_directory_path() / "vxhostileXXXXXX").string();
    if (::mkdtemp(pattern.data()) == nullptr)
        Found("no temporary folder");
    if (::getuid() == 0 && (::chown(pattern.c_str(), kNobody, kNobody) != 0 || ::setgroups(0, nullptr) != 0 ||
                            ::setgid(kNobody) != 0 || ::setuid(kNobody) != 0))
        Found("random names are not for a user who may delete everything");
    ::setenv("TMPDIR", pattern.c_str(), 1);
    return pattern;
}

} // namespace

} // namespace vxsign::test

int main(int count, char** words)
{
    using namespace vxsign::test;
    std::uint64_t calls = 500;
    std::string_view only;
    for (int i = 1; i + 1 < count; i += 2) {
        const std::string_view option = words[i];
        if (option == "--calls")
            calls = std::strtoull(words[i + 1], nullptr, 10);
        else if (option == "--seed")
            seed = std::strtoull(words[i + 1], nullptr, 10);
        else if (option == "--export")
            only = words[i + 1];
    }
    const fs::path folder = Harmless();
    std::set_terminate([] { Found("something thrown left an export"); });
    std::signal(SIGALRM, [](int) { Found("a call that does not end"); });
    const FakeClock clock;
    Random answers(seed);
    const UdpPeer peer([&](const Bytes& request) { return HostileReply(request, answers, kDatagram); });
    std::uint64_t made = 0;
    for (const Export& tried : Exports()) {
        if (!only.empty() && tried.name != only)
            continue;
        running = tried.name;
        Random random(seed ^ std::hash<std::string_view>()(tried.name));
        for (runningCall = 0; runningCall < calls; ++runningCall, ++made) {
            if (runningCall % 100 == 0)
                EnterFolder(folder / tried.name, random);
            CallOnce(tried, peer.Port(), random);
        }
        fs::current_path(folder);
        std::error_code error;
        fs::remove_all(folder / tried.name, error);
    }
    std::error_code error;
    fs::remove_all(folder, error);
    std::printf("%llu calls\n", static_cast<unsigned long long>(made));
    return made == 0;
}

// Temporary names, short names, names on the sign, serial ports.
#include "platform/paths.h"
#include "platform/serialPorts.h"
#include "support/fakeClock.h"
#include "support/tempFolder.h"
#include "thread/threadRecords.h"

#include <vxsign/local.h>
#include <vxsign/result.h>

#include <cstring>
#include <mutex>
#include <stdexcept>
#include <thread>
#include <tuple>
#include <vector>

#if !defined(_WIN32)
#include "platform/posix/serialPorts.h"
#endif

namespace {

using vxsign::test::FakeClock;

class TempNames : public testing::Test
{
protected:
    ~TempNames() override { vxsign::ThreadConfig()->onTempPath = nullptr; }

    static std::string Name(std::uint32_t length = 400)
    {
        std::string name(length + 1, 'x');
        EXPECT_EQ(vxGetPCTempFilename(name.data(), length, "Nmg"), 0u);
        EXPECT_EQ(name.back(), 'x') << "written beyond the buffer";
        return name.substr(0, name.find('\0'));
    }

    const std::string processId = std::to_string(vxsign::platform::ProcessId());
};

TEST_F(TempNames, FolderProcessTickAndExtension)
{
    const FakeClock clock;
    const std::string tick = std::to_string(FakeClock::NowMs());
    EXPECT_EQ(Name(), vxsign::platform::TempFolder() + processId + tick + ".Nmg");
    vxsign::ThreadConfig()->onTempPath = [](vxApiConfig* config, char* buffer, std::uint32_t capacity) {
        EXPECT_EQ(config, vxsign::ThreadConfig());
        EXPECT_EQ(capacity, 256u);
        std::strcpy(buffer, "/elsewhere/");
    };
    const std::string next = std::to_string(FakeClock::NowMs() + 1);
    EXPECT_EQ(Name(), "/elsewhere/" + processId + next + ".Nmg") << "one tick, but another name";
    EXPECT_EQ(Name(14), "/elsewhere/" + processId.substr(0, 2));
    EXPECT_EQ(Name(1), "");

    // A hostile function for the folder does no harm.
    vxsign::ThreadConfig()->onTempPath = [](vxApiConfig*, char* buffer, std::uint32_t capacity) {
        std::memset(buffer, 'a', capacity);
    };
    EXPECT_EQ(Name().substr(0, 255 + processId.size()), std::string(255, 'a') + processId);

    vxsign::ThreadConfig()->onTempPath = [](vxApiConfig*, char*, std::uint32_t) { throw std::runtime_error("folder"); };
    char name[16] = "before";
    EXPECT_EQ(vxGetPCTempFilename(name, sizeof name, "Nmg"), VX_CALL);
    EXPECT_STREQ(name, "");
    EXPECT_EQ(vxGetPCTempFilename(nullptr, 16, "Nmg"), 0u);
    EXPECT_EQ(vxGetPCTempFilename(name, 0, "Nmg"), 0u);
}

TEST_F(TempNames, NeverRepeatAcrossThreads)
{
    constexpr int kThreads = 4;
    constexpr int kNames = 500;
    std::mutex mutex;
    std::set<std::string> names;
    std::vector<std::jthread> threads;
    threads.reserve(kThreads);
    for (int i = 0; i < kThreads; ++i)
        threads.emplace_back([&] {
            for (int j = 0; j < kNames; ++j) {
                const std::string name = Name();
                const std::lock_guard lock(mutex);
                names.insert(name);
            }
        });
    threads.clear();
    EXPECT_EQ(names.size(), kThreads * kNames);
}

using Names = vxsign::test::FolderTest;

TEST_F(Names, ShortOnlyFilesThatAreThereHaveOne)
{
    const std::string fits = folder.Write("Message1.Nmg", "");
    char out[16];
    std::memset(out, 'x', sizeof out);
    EXPECT_EQ(vxGetShortFileName(fits.c_str(), out, sizeof out), 12u);
    EXPECT_EQ(std::string_view(out, 13), "Message1.Nmgx") << "no terminator";
    std::memset(out, 'x', sizeof out);
    EXPECT_EQ(vxGetShortFileName(fits.c_str(), out, 3), 12u);
    EXPECT_EQ(std::string_view(out, 4), "Mesx");
    EXPECT_EQ(vxGetShortFileName(fits.c_str(), nullptr, 0), 12u);

    EXPECT_EQ(vxGetShortFileName(folder.Path("absent").c_str(), out, sizeof out), 0u);
    EXPECT_EQ(vxGetShortFileName(folder.Path().c_str(), out, sizeof out), 0u);
    EXPECT_EQ(vxGetShortFileName(nullptr, out, sizeof out), 0u);

    // Two characters of the stem, the checksum of the whole name, "~1" and the extension.
    const std::string longName = folder.Write("a rather long name.bitmap", "");
    EXPECT_EQ(vxGetShortFileName(longName.c_str(), out, sizeof out), 12u);
    EXPECT_EQ(std::string_view(out, 2), "AR");
    EXPECT_EQ(std::string_view(out + 6, 6), "~1.BIT");
}

TEST_F(Names, SignPathsTheFirstBytesChooseTheFolder)
{
    using namespace std::string_view_literals;
    const std::tuple<std::string_view, std::string_view, char> rows[] = {
        {"a.bmp", "BM"sv, 'P'},
        {"b.jpg", "\xFF\xD8\xFF\xE0\0\x10JFIF\0"sv, 'P'},
        {"c.jpg", "\xFF\xD8\xFF\xE0\0\x10JFI"sv, 'F'},
        {"d.qst", "\1QST"sv, 'Q'},
        {"e.nmg", "QST"sv, 'F'},
        {"f.nmg", "\1Z00\2AA"sv, 'T'},
        {"g.nmg", "QZ00SAX"sv, 'T'},
        {"h.nmg", "QZ00SCX"sv, 'A'},
        {"i.nmg", "QZ00SDX"sv, 'F'},
        {"j.nmg", "1Z00SDX"sv, 'F'},
        {"k.nMg", "NG"sv, 'T'},
        {"l.nm", "NG"sv, 'A'},
        {"m", ""sv, 'F'},
    };
    for (const auto& [name, head, folderLetter] : rows) {
        const std::string path = folder.Write(name, head);
        char out[20];
        char shortName[13] = "____________";
        std::uint8_t letter = 0;
        EXPECT_EQ(vxMakeSignPath(path.c_str(), out, sizeof out, 'D', &letter, shortName), 0u);
        EXPECT_EQ(letter, folderLetter) << name;
        EXPECT_EQ(out, std::string("D:\\") + folderLetter + "\\" + std::string(name));
        EXPECT_EQ(std::string(shortName, 12), std::string(name).append(12 - name.size(), '\0'));
    }

    // Refusals.
    const std::string path = folder.Write("Message1.Nmg", "QZ00SAX");
    char out[20] = "before";
    char shortName[12] = "before";
    std::uint8_t letter = 9;
    EXPECT_EQ(vxMakeSignPath(path.c_str(), out, 19, 'D', &letter, shortName), VX_ARGUMENTS);
    EXPECT_STREQ(shortName, "before");
    for (const std::string& unreadable : {folder.Path("absent"), folder.Path()})
        EXPECT_EQ(vxMakeSignPath(unreadable.c_str(), out, 20, 'D', &letter, shortName), VX_OPEN_FILE);
    EXPECT_STREQ(shortName, "");
    EXPECT_STREQ(out, "before");
    EXPECT_EQ(letter, 9);
    EXPECT_EQ(vxMakeSignPath(path.c_str(), out, 20, 'E', nullptr, nullptr), 0u);
    EXPECT_STREQ(out, "E:\\T\\Message1.Nmg");
}

TEST_F(Names, SerialPortsAreThoseThatAreThere)
{
#if !defined(_WIN32)
    for (const char* device : {"ttyUSB0/device", "ttyACM1/device", "ttyS0/device", "ttyS1/device", "tty1"})
        std::filesystem::create_directories(folder.Path(device));
    folder.Write("ttyS0/type", "4\n");
    folder.Write("ttyS1/type", "0\n");
    EXPECT_EQ(vxsign::platform::SerialPortsIn(folder.Path()),
              (std::vector<std::string>{"ttyACM1", "ttyS0", "ttyUSB0"}));
    EXPECT_TRUE(vxsign::platform::SerialPortsIn(folder.Path("absent")).empty());
#endif

    char out[64];
    std::memset(out, 'x', sizeof out);
    std::string list;
    for (const std::string& port : vxsign::platform::SerialPorts())
        list += (list.empty() ? "" : "|") + port;
    EXPECT_EQ(vxEnumSerial(out, sizeof out), 0u);
    list.resize(sizeof out);
    EXPECT_EQ(std::string(out, sizeof out), list);
    std::memset(out, 'x', sizeof out);
    EXPECT_EQ(vxEnumSerial(out, 1), 0u);
    EXPECT_EQ(out[0], list[0]);
    EXPECT_EQ(out[1], 'x');
}

} // namespace

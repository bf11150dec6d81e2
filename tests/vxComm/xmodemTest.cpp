// Upgrades by XMODEM: blocks, tries, ends; and the road to a receiver that is not ours.
#include "sim/devices/bootLoader.h"
#include "support/ptyRelay.h"
#include "support/scriptedSign.h"

#include <chrono>
#include <cstring>
#include <random>

namespace vxsign::test {
namespace {

// A boot loader by script: one character for each try. 'A' is ACK, 'N' NAK, '.' silence, '!' silence with the abort
// flag set, anything else goes out as it is. The last one holds for all further tries.
class XModem : public ScriptedTest
{
protected:
    XModem()
    {
        sign.isForeign = true;
        sign.raw = [](const Packet&) { return std::deque<Bytes>(); };
        sign.onEmptyRead = [this] {
            const char next = script.front();
            if (script.size() > 1)
                script.erase(0, 1);
            if (next == '!')
                sign.Config().abortFlag = 1;
            else if (next != '.')
                sign.Arrive({{static_cast<std::uint8_t>(next == 'A' ? 6 : next == 'N' ? 21 : next)}});
        };
    }

    // The result of an upgrade with a file of so many 'U'; what was printed is in `printed`.
    std::uint32_t Run(const std::string& receiver, std::size_t size, std::uint32_t timeoutMs = 50)
    {
        sign.Renew();
        sign.Config().retries = 2;
        sign.Config().timeoutMs = timeoutMs;
        script = receiver;
        const std::string path = folder.Write("firmware", std::string(size, 'U'));
        ::testing::internal::CaptureStdout();
        const std::uint32_t result = vxXModem_Upgrade(path.c_str());
        printed = ::testing::internal::GetCapturedStdout();
        return result;
    }

    static std::string Times(int count, std::string_view text)
    {
        std::string all;
        for (int i = 0; i < count; ++i)
            all += text;
        return all;
    }

    std::vector<Bytes> Sent() const
    {
        std::vector<Bytes> sent;
        for (const Packet& request : sign.requests)
            sent.push_back(request.bytes);
        return sent;
    }

    std::string script;
    std::string printed;
};

TEST_F(XModem, Blocks)
{
    const Bytes whole = Bytes(128, 0x55);
    const Bytes filled = Bytes(1, 0x55) + Bytes(127, 0x1A);
    const Bytes end = Hex("04");
    EXPECT_EQ(Run("CA", 129), 0u);
    EXPECT_EQ(Sent(), (std::vector{Hex("0101FE") + whole + Hex("5B67"), Hex("0102FD") + filled + Hex("20B2"), end}));
    EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{99, 100}));
    EXPECT_EQ(Run("NA", 129), 0u);
    EXPECT_EQ(Sent(), (std::vector{Hex("0101FE") + whole + Hex("80"), Hex("0102FD") + filled + Hex("3B"), end}));
    EXPECT_EQ(Run("CA", std::size_t{257} * 128), 0u);
    ASSERT_EQ(sign.requests.size(), 258u);
    EXPECT_EQ(Part(Sent()[254], 0, 3), Hex("01FF00"));
    EXPECT_EQ(Part(Sent()[255], 0, 3), Hex("0100FF"));
}

TEST_F(XModem, StepsAndEnds)
{
    const std::string begin = "begining to Send file \n";
    const std::string done = "Complete ACK have coming,Send file successful!!!\r\n";
    const std::string silentEnd = "Complete ACK have coming,sedn EOT:wait ACK tiem out!\r\nSend file successful!!!\r\n";
    const std::string refused = begin + "ACK Error!\r\n\x15\r\n";
    const std::string again = "Retry for ACK,1Error!\r\n";
    constexpr std::uint32_t kFailed = 0xFFFFFFFF;
    const std::tuple<const char*, std::string, std::size_t, std::uint32_t, std::uint32_t, std::size_t, std::string>
        rows[] = {
            {"empty file", "CA", 0, 0, 0, 1, begin + done},
            {"whole block", "CA", 128, 0, 100, 2, begin + done},
            {"short block", "CA", 5, 0, 100, 2, begin + "Start filling the last frame!\r\n" + done},
            {"asks late", Times(17, ".") + "NA", 128, 0, 100, 2, begin + done},
            {"NAK in the tenth round", Times(18, ".") + ".NA", 128, kFailed, 0, 0, "rk4095 is not ready\n"},
            {"C in the tenth round", "x" + Times(8, "x") + "CA", 128, 0, 100, 2, begin + done},
            {"never asks", ".", 128, kFailed, 0, 0, "rk4095 is not ready\n"},
            {"babbles", "x", 128, kFailed, 0, 0, "rk4095 is not ready\n"},
            {"stopped at once", "!", 128, kFailed, 0, 0, "rk4095 is not ready\n"},
            {"a second C, silence, NAK, ACK", "CC..NA", 128, 0, 100, 6, begin + done},
            {"ACK to the twentieth", "C" + Times(19, "N") + "A", 128, 0, 100, 21, begin + done},
            {"NAK to all", "CN", 128, kFailed, 0, 31, refused + Times(11, again) + "Retry too many times,Quit!\r\n"},
            {"ACK to a repetition", "C" + Times(21, "N") + "A", 128, 0, 100, 23,
             refused + again + "Retry for ACK,1OK\r\n" + done},
            {"ACK to the last repetition", "C" + Times(30, "N") + "A", 128, kFailed, 100, 32,
             refused + Times(10, again) + "Retry for ACK,1OK\r\n" + done},
            {"nonsense behind the last repetition", "C" + Times(30, "N") + "x", 128, kFailed, 0, 31,
             refused + Times(11, again) + "Fatal Error!\r\n"},
            {"nonsense", "Cx", 128, 0, 0, 20, begin + "ACK Error!\r\nx\r\nFatal Error!\r\n"},
            {"no first answer", "C.", 128, 0, 0, 42, begin + "ACK Error!\r\n\xF0\r\n" + begin + silentEnd},
            {"silence behind an ACK", "CA.", 256, 0, 50, 5, begin + done},
            {"stopped behind an ACK", "CA!", 512, 0, 25, 2, begin + done},
            {"an ACK after twenty silent rounds", "C" + Times(40, ".") + "A", 256, 0, 50, 42,
             begin + "ACK Error!\r\n\xF0\r\n" + begin + done},
            {"the end refused", "CAN", 128, 0, 100, 2, begin + silentEnd},
        };
    for (const auto& [name, receiver, size, result, percent, blocks, prints] : rows) {
        SCOPED_TRACE(name);
        EXPECT_EQ(Run(receiver, size), result);
        EXPECT_EQ(sign.requests.size(), blocks);
        EXPECT_EQ(sign.progress, std::vector<std::uint32_t>(percent != 0 ? 1 : 0, percent));
        EXPECT_EQ(printed, prints);
    }

    EXPECT_EQ(Run("CA", 128, 3000), 0u) << "with many polls: the one byte ends the wait all the same";
    EXPECT_EQ(sign.requests.size(), 2u);
}

TEST_F(XModem, WithoutAFileNothingIsSent)
{
    script = "C";
    EXPECT_EQ(vxXModem_Upgrade(folder.Path("none").c_str()), 20737u);
    EXPECT_EQ(vxXModem_Upgrade(folder.Path().c_str()), 20737u);
    EXPECT_TRUE(sign.requests.empty());
    vxApiConfig nowhere{};
    nowhere.kind = VX_CHANNEL_SERIAL;
    std::strcpy(nowhere.serialName, "/dev/none");
    vxInitAPI(&nowhere);
    EXPECT_EQ(vxXModem_Upgrade(folder.Path("none").c_str()), 20736u);
}

// What an upgrade over that line prints.
std::string SendOver(const PtyRelay& line, const std::string& source, std::uint32_t timeoutMs)
{
    line.Configure(timeoutMs);
    ::testing::internal::CaptureStdout();
    EXPECT_EQ(vxXModem_Upgrade(source.c_str()), 0u);
    return ::testing::internal::GetCapturedStdout();
}

constexpr char kAllWell[] = "begining to Send file \nComplete ACK have coming,Send file successful!!!\r\n";

std::string Firmware(std::size_t size)
{
    std::string firmware(size, '\0');
    std::generate(firmware.begin(), firmware.end(), std::mt19937(5));
    return firmware;
}

// Every so many bytes one is lost or damaged. Bit 6 makes no byte of the protocol out of another.
PtyRelay::Filter Faults(std::uint32_t seed, unsigned meanGap)
{
    return
        [random = std::mt19937(seed), meanGap, gap = std::size_t{meanGap}](std::vector<std::uint8_t>& bytes) mutable {
            std::size_t at = 0;
            while (bytes.size() - at > gap) {
                at += gap;
                if (random() % 2 == 0)
                    bytes.erase(bytes.begin() + static_cast<std::ptrdiff_t>(at));
                else
                    bytes[at++] ^= 0x40;
                gap = meanGap / 2 + random() % meanGap;
            }
            gap -= bytes.size() - at;
        };
}

// The sign's boot loader at the far end, whose second takes it 50 ms.
TEST(XModemLine, FaultsCostRepetitionsAlone)
{
    constexpr int kFaster = 20;
    const TempFolder folder;
    const std::string firmware = Firmware(65536);
    for (const bool sumsOnly : {false, true}) {
        const PtyRelay line(Faults(1, 12000), Faults(4, 150));
        vxsim::BootLoader loader(folder.Path("received"), sumsOnly);
        std::atomic<bool> ending = false;
        std::jthread receiver([&] {
            const auto start = std::chrono::steady_clock::now();
            const auto say = [&](const Bytes& bytes) {
                if (!bytes.empty()) {
                    EXPECT_GT(::write(line.FarEnd(), bytes.data(), bytes.size()), 0);
                }
            };
            while (!ending) {
                pollfd watched{line.FarEnd(), POLLIN, 0};
                const bool some = ::poll(&watched, 1, 1) > 0;
                const auto gone = std::chrono::steady_clock::now() - start;
                const auto now = static_cast<std::uint64_t>(kFaster * gone / std::chrono::milliseconds(1));
                Bytes bytes(some ? 4096 : 0);
                bytes.resize(some ? static_cast<std::size_t>(::read(line.FarEnd(), bytes.data(), bytes.size())) : 0);
                say(some ? loader.Take(bytes, now) : loader.DueMs() <= now ? loader.KeepUp(now) : Bytes());
            }
        });
        EXPECT_EQ(SendOver(line, folder.Write("firmware", firmware), 50), kAllWell);
        ending = true;
        receiver.join();
        EXPECT_TRUE(folder.Read("received") == firmware) << "the boot loader has something else";
    }
}

TEST(XModemLine, ARealReceiver)
{
    const TempFolder folder;
    const std::string firmware = Firmware(131072);
    const PtyRelay line;
    LineProgram receiver(line.FarEnd(), {"rx", "--with-crc", "--overwrite", folder.Path("received")});
    EXPECT_EQ(SendOver(line, folder.Write("firmware", firmware), 2000), kAllWell);
    EXPECT_EQ(receiver.Wait(), 0);
    EXPECT_TRUE(folder.Read("received") == firmware) << "rx has something else";
}

} // namespace
} // namespace vxsign::test

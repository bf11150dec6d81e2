// Captures of others, cut ones and garbage; secrets in recordings.
#include "vxctl/record/captureTalk.h"
#include "vxctl/record/captureWriter.h"
#include "vxctl/record/saidText.h"
#include "vxctl/record/secrets.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <unistd.h>

namespace vxctl_tests {
namespace {

using namespace vxctl;
using namespace std::string_literals;

using Bytes = std::vector<std::uint8_t>;

class File
{
public:
    explicit File(const std::string& bytes) { Fill(bytes); }
    ~File() { std::filesystem::remove(path); }
    void Fill(const std::string& bytes) const { std::ofstream(path, std::ios::binary) << bytes; }
    std::string Content() const
    {
        std::ifstream stream(path, std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), {}};
    }

    const std::string path = testing::TempDir() + "capture" + std::to_string(::getpid());
};

// A connect test, as UDP to port 9520.
const std::string kPing = "\x55\xA7\x0B\0\0\0\0\0\0\0\x07\0\x03\x01\0\0"s;
const std::string kUdp = "\xC0\0\x25\x30\0\x18\0\0"s + kPing;
const std::string kIp = "\x45\0\0\x2C\0\0\x40\0\x40\x11\0\0\x0A\0\0\x01\x0A\0\0\x02"s + kUdp;

std::string Text(const std::string& file, std::string& fault)
{
    CaptureTalk talk({9520});
    fault = ReadCapture(file, talk);
    std::string text;
    for (const Said& said : talk.All())
        text += LineOf(said, true).Text() + ObjectOf(said).dump(-1, ' ', true, Report::Json::error_handler_t::replace) +
                "\n";
    return text;
}

std::string Pcap(const std::string& magic, const std::string& link, const std::string& frame, bool isBig)
{
    const std::string size =
        isBig ? "\0\0\0"s + static_cast<char>(frame.size()) : static_cast<char>(frame.size()) + "\0\0\0"s;
    const std::string time = isBig ? "\x60\0\0\0\0\0\0\x05"s : "\0\0\0\x60\x05\0\0\0"s;
    return magic + std::string(16, '\0') + link + time + size + size + frame;
}

TEST(Capture, ReadsWhatOthersCapture)
{
    const std::string little = "\xD4\xC3\xB2\xA1"s;
    const std::string big = "\xA1\xB2\xC3\xD4"s;
    const std::string nano = "\x4D\x3C\xB2\xA1"s;
    const std::string addresses(12, '\x02');
    const std::string rows[] = {
        Pcap(little, "\x65\0\0\0"s, kIp, false),
        Pcap(nano, "\x0C\0\0\0"s, kIp, false),
        Pcap(little, "\xE4\0\0\0"s, kIp, false),
        Pcap(big, "\0\0\0\x01"s, addresses + "\x08\0"s + kIp, true),
        Pcap(little, "\x01\0\0\0"s, addresses + "\x81\0\0\x05\x08\0"s + kIp, false),
        Pcap(little, "\0\0\0\0"s, "\x02\0\0\0"s + kIp, false),
        Pcap(little, "\x6C\0\0\0"s, "\0\0\0\x02"s + kIp, false),
        Pcap(little, "\x71\0\0\0"s, std::string(14, '\0') + "\x08\0"s + kIp, false),
        Pcap(little, "\x14\x01\0\0"s, "\x08\0"s + std::string(18, '\0') + kIp, false),
    };
    for (const std::string& row : rows) {
        const File file(row);
        std::string fault;
        const std::string text = Text(file.path, fault);
        EXPECT_EQ(fault, "");
        EXPECT_NE(text.find("udp://10.0.0.2:9520  -> 3,1    connect test             id 7"), std::string::npos) << text;
    }
}

TEST(Capture, PutsStreamsTogether)
{
    // Pieces as {place in the stream, bytes}; what is told of them.
    const std::string two = kPing + kPing;
    struct Row
    {
        std::vector<std::pair<std::uint32_t, std::string>> pieces;
        std::size_t packets;
        std::size_t others;
    };
    const Row rows[] = {
        {{{0, two}}, 2, 0},
        {{{0, two.substr(0, 5)}, {5, two.substr(5)}}, 2, 0},
        {{{0, two.substr(0, 5)}, {20, two.substr(20)}, {5, two.substr(5, 15)}}, 2, 0}, // out of order
        {{{0, two}, {0, two}, {10, two.substr(10)}}, 2, 0},                            // sent again
        {{{0, two.substr(0, 20)}}, 1, 1},                                              // cut
        {{{0, "noise" + kPing}}, 1, 1},
    };
    for (const Row& row : rows) {
        CaptureTalk talk({9520});
        for (const auto& [at, bytes] : row.pieces) {
            std::string frame = kIp.substr(0, 20) + "\xC0\0\x25\x30\xFF\xFF\xFF"s + static_cast<char>(0xF8 + at) +
                                std::string(4, '\0') + "\x50\x10"s + std::string(6, '\0') + bytes;
            if (0xF8 + at > 0xFF) // numbers begin anew in the middle
                frame.replace(24, 4, "\0\0\0"s + static_cast<char>(at - 8));
            frame[3] = static_cast<char>(frame.size());
            frame[9] = 6;
            talk.Add({1, {}, LinkType::kRaw, "", {frame.begin(), frame.end()}});
        }
        talk.End();
        std::size_t packets = 0;
        for (const Said& said : talk.All())
            packets += said.what == Said::What::kPacket ? 1 : 0;
        EXPECT_EQ(packets, row.packets);
        EXPECT_EQ(talk.All().size() - packets, row.others);
    }
}

std::string Recorded()
{
    const File file("");
    std::filesystem::remove(file.path);
    Recording recording(file.path, false);
    RecordedLine line(recording, recording.AddLine("udp://10.0.0.2:9520", "a line"), {0x0A000001, 40000},
                      {0x0A000002, 9520});
    const Bytes ping(kPing.begin(), kPing.end());
    for (int i = 0; i < 3; ++i)
        AddDatagram(line, Way::kOut, ping);
    return file.Content();
}

TEST(Capture, TellsWhatIsCutOrGarbage)
{
    const std::string whole = Recorded();
    const File file(whole);
    std::string fault;
    const std::string all = Text(file.path, fault);
    EXPECT_EQ(fault, "");
    EXPECT_EQ(std::ranges::count(all, '\n'), 3);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        file.Fill(whole.substr(0, size));
        fault.clear();
        const std::string text = Text(file.path, fault);
        EXPECT_LT(text.size(), all.size());
        EXPECT_TRUE(!fault.empty() || size % 4 == 0) << size;
    }
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes = round % 2 == 0 ? whole : Pcap("\xD4\xC3\xB2\xA1"s, "\x65\0\0\0"s, kIp, false);
        for (int i = 0; i < 3; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        file.Fill(bytes);
        Text(file.path, fault); // whatever it is, nothing breaks
    }
}

Bytes Packet(std::uint8_t second, std::uint8_t major, std::uint8_t minor, std::size_t words, std::size_t extended)
{
    Bytes packet(16 + 4 * words + extended, 'x');
    const Bytes head{0x55, second, 0,     0,     static_cast<std::uint8_t>(extended), 0, 0, 0, 0, 0,
                     7,    0,      major, minor, static_cast<std::uint8_t>(words),    0};
    std::ranges::copy(head, packet.begin());
    const std::uint16_t sum = ChecksumOf(packet);
    packet[2] = static_cast<std::uint8_t>(sum);
    packet[3] = static_cast<std::uint8_t>(sum >> 8U);
    return packet;
}

TEST(Secrets, AreBlankedWhereverTheyStand)
{
    struct Row
    {
        std::uint8_t second;
        std::uint8_t major;
        std::uint8_t minor;
        std::size_t words;
        std::size_t extended;
        std::size_t begin; // of what is blanked, in the packet
        std::size_t size;
    };
    const Row rows[] = {
        {0xA7, 10, 1, 5, 0, 30, 6},    {0xA3, 10, 1, 5, 0, 30, 6},    {0xA7, 10, 3, 7, 0, 30, 14},
        {0xA8, 10, 48, 1, 68, 20, 68}, {0xA7, 96, 97, 0, 44, 40, 20}, {0xA7, 96, 98, 0, 44, 40, 20},
        {0xA8, 96, 98, 0, 44, 40, 20}, {0xA4, 96, 98, 2, 44, 48, 20}, {0xA7, 96, 96, 0, 9, 16, 9},
        {0xA8, 10, 1, 5, 0, 0, 0},     {0xA7, 10, 2, 5, 0, 0, 0},     {0xA7, 3, 1, 8, 44, 0, 0},
    };
    for (const Row& row : rows) {
        const Bytes packet = Packet(row.second, row.major, row.minor, row.words, row.extended);
        Bytes noisy{0x55, 0x00, 0x55, 0xA7}; // what looks like the start of a packet ahead of it
        noisy.insert(noisy.end(), packet.begin(), packet.end());
        BlankSecrets(noisy);
        const Bytes blanked(noisy.begin() + 4, noisy.end());
        EXPECT_TRUE(SignPacket(blanked).IsGood()) << int{row.major} << "," << int{row.minor};
        for (std::size_t i = 4; i < packet.size(); ++i)
            EXPECT_EQ(blanked[i], i - row.begin < row.size ? '*' : packet[i]) << i;
        Bytes cut(packet.begin(), packet.end() - 1);
        BlankSecrets(cut);
        EXPECT_EQ(std::ranges::count(cut, '*'),
                  row.size == 0
                      ? 0
                      : static_cast<std::ptrdiff_t>(row.size - (row.begin + row.size == packet.size() ? 1 : 0)));
    }
}

// A secret that comes a byte at a time, with rests between, is never there.
TEST(Secrets, WaitForTheirPackets)
{
    const File file("");
    std::filesystem::remove(file.path);
    Recording recording(file.path, false);
    RecordedLine line(recording, 0, {1, 1}, {2, 9520});
    RecordedStream stream(Way::kOut, [](RecordedLine& to, Way way, Recording::Time time, RecordedLine::Bytes bytes) {
        to.Datagram(way, time, bytes);
    });
    Bytes packet = Packet(0xA7, 10, 1, 5, 0);
    std::ranges::copy("secret"s, packet.begin() + 30);
    for (const std::uint8_t byte : packet) {
        stream.Add(line, {&byte, 1});
        stream.Rest(line);
    }
    stream.End(line);
    EXPECT_EQ(file.Content().find("secret"), std::string::npos);
    EXPECT_NE(file.Content().find("******"), std::string::npos);
}

} // namespace
} // namespace vxctl_tests

// What has its place on the lines beside the sign: the boot loader and the Modbus devices.
#include "sim/devices/bootLoader.h"
#include "sim/devices/modbusDevices.h"
#include "sim/devices/modbusFrames.h"
#include "sim/files/storedRecord.h"

#include "support/signFixture.h"

namespace vxsign::test {
namespace {

class Devices : public SignTest
{
protected:
    std::filesystem::path File() const { return settings.folder / "kept"; }
    Bytes Kept() const { return vxsim::ReadFileStart(File(), 65536); }
};

// A block of one byte over and over, with the check that belongs to 0x55 and to 0xAA.
Bytes Block(std::uint8_t number, std::uint8_t data, const Bytes& check)
{
    return Bytes{1, number, static_cast<std::uint8_t>(~number)} + Bytes(128, data) + check;
}
const Bytes kCrc55{0x5B, 0x67};
const Bytes kAck{6};
const Bytes kNak{21};
const Bytes kC{'C'};

TEST_F(Devices, TheBootLoaderAsksForCrcsThenForSumsAndTakesBlocksInOrder)
{
    vxsim::BootLoader asking(File(), false);
    std::uint64_t now = 0;
    for (const Bytes& question : {kC, kNak, kC})
        for (int i = 0; i < 10; ++i, now += 1000) {
            EXPECT_EQ(asking.KeepUp(now), question);
            EXPECT_EQ(asking.KeepUp(now + 999), Bytes());
        }
    vxsim::BootLoader plain(File(), true);
    EXPECT_EQ(plain.KeepUp(0), kNak);
    EXPECT_EQ(plain.Take(Block(1, 0x55, {0x80}), 1), kAck);

    vxsim::BootLoader loader(File(), false);
    loader.KeepUp(0);
    const Bytes first = Block(1, 0x55, kCrc55);
    EXPECT_EQ(loader.Take(Bytes{0xFF, 0x15} + Part(first, 0, 60), 10), Bytes()) << "noise ahead";
    EXPECT_EQ(loader.Take(Part(first, 60), 20), kAck);
    EXPECT_EQ(loader.Take(first, 30), kAck) << "its answer was lost";
    EXPECT_EQ(loader.Take(Block(2, 0x56, kCrc55), 40), kNak) << "damaged";
    Bytes wrongComplement = Block(2, 0x55, kCrc55);
    wrongComplement[2] ^= 1;
    EXPECT_EQ(loader.Take(wrongComplement, 50), kNak);
    EXPECT_EQ(loader.Take(Bytes{1, 2, 0xFD}, 60), Bytes());
    EXPECT_EQ(loader.KeepUp(259), Bytes());
    EXPECT_EQ(loader.KeepUp(loader.DueMs()), kNak) << "without its end";
    EXPECT_EQ(loader.Take(Block(2, 0x55, kCrc55), 300), kAck);
    EXPECT_EQ(loader.Caption(), "LOADING\n2 blocks");
    EXPECT_FALSE(std::filesystem::exists(File()));
    EXPECT_EQ(loader.Take(Bytes{4}, 310), kAck);
    EXPECT_EQ(Kept(), Bytes(256, 0x55));
    EXPECT_EQ(loader.Caption(), "LOADED\n2 blocks");

    EXPECT_EQ(loader.KeepUp(1310), kC) << "and asks anew";
    EXPECT_EQ(loader.Take(Block(2, 0x55, kCrc55), 1320), Bytes{24}) << "a block is missing";
    EXPECT_EQ(loader.Take(Block(1, 0x55, kCrc55), 1330), kAck);
    EXPECT_EQ(loader.KeepUp(31329), Bytes());
    EXPECT_EQ(loader.KeepUp(31330), kC) << "the host has gone";
    EXPECT_EQ(Kept(), Bytes(256, 0x55)) << "what is not whole is not kept";
}

TEST_F(Devices, AFileEndsOnlyWhereABlockMayBegin)
{
    vxsim::BootLoader loader(File(), false);
    loader.KeepUp(0);
    EXPECT_EQ(loader.Take(Bytes{4}, 1), Bytes()) << "nothing has begun";
    EXPECT_EQ(loader.Take(Block(1, 0x55, kCrc55), 10), kAck);
    EXPECT_EQ(loader.Take(Block(2, 0x55, kCrc55), 20), kAck);
    const Bytes large = Bytes{2, 3, 0xFC} + Bytes(1024, 0x55) + Bytes{0x40, 0x7C};
    Bytes badStart = Block(3, 4, {4, 4});
    badStart[0] = 0x41;
    Bytes smaller = large;
    smaller[0] = 1;
    std::uint64_t now = 30;
    for (const Bytes& damaged : {badStart, smaller, Bytes{4} + large}) {
        SCOPED_TRACE(int{damaged[0]});
        EXPECT_EQ(loader.Take(Part(damaged, 0, 60), now), Bytes());
        EXPECT_EQ(loader.Take(Part(damaged, 60), now + 100), Bytes());
        EXPECT_EQ(loader.KeepUp(now + 299), Bytes());
        EXPECT_EQ(loader.DueMs(), now + 300);
        EXPECT_EQ(loader.KeepUp(now + 300), kNak) << "once the line is silent";
        now += 400;
    }
    EXPECT_EQ(loader.Take(large, now), kAck);
    EXPECT_EQ(loader.Take(Block(4, 0x55, kCrc55), now), kAck) << "blocks of both sizes";
    EXPECT_EQ(loader.Caption(), "LOADING\n4 blocks");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(loader.Take(Bytes{4}, now), kAck) << "once more if its answer was lost";
    EXPECT_EQ(Kept(), Bytes(3 * 128 + 1024, 0x55));

    vxsim::BootLoader full(File() / "no folder", false);
    full.KeepUp(0);
    EXPECT_EQ(full.Take(Block(1, 0x55, kCrc55), 1), kAck);
    EXPECT_EQ(full.Take(Bytes{4}, 2), Bytes{24}) << "what cannot be kept is not complete";
}

TEST_F(Devices, ModbusRegistersAreReadWrittenAndRefused)
{
    const Bytes noFunction{1, 0x91, 1, 0x8C, 0x50};
    const Bytes noAddressRead{1, 0x83, 2, 0xC0, 0xF1};
    const Bytes noAddressWritten{1, 0x90, 2, 0xCD, 0xC1};
    const Bytes badCountRead{1, 0x83, 3, 1, 0x31};
    const Bytes badCountWritten{1, 0x90, 3, 0x0C, 1};
    const struct
    {
        const char* name;
        Bytes request;
        Bytes answer;         // empty is silence,
        Bytes exception = {}; // or this, if the devices answer what they refuse
    } rows[] = {
        {"LC 1 r5", {1, 3, 0xFF, 0x05, 0, 1, 0xA4, 0x1F}, {1, 3, 2, 0, 0, 0xB8, 0x44}},
        {"LC 1 r5 = 0x1234", {1, 6, 0xFF, 0x05, 0x12, 0x34, 0xA4, 0xA8}, {1, 6, 0xFF, 0x05, 0x12, 0x34, 0xA4, 0xA8}},
        {"LC 1 r5 again", {1, 3, 0xFF, 0x05, 0, 1, 0xA4, 0x1F}, {1, 3, 2, 0x12, 0x34, 0xB5, 0x33}},
        {"LC 1 r5, r6", {1, 3, 0xFF, 5, 0, 2, 0xE4, 0x1E}, {1, 3, 4, 0x12, 0x34, 0, 0, 0xBE, 0x85}},
        {"r7, r8 = 7, 9, one of them fixed", {1, 16, 0xFF, 7, 0, 2, 4, 0, 7, 0, 9, 0x86, 0x7A}, {}, noAddressWritten},
        {"LC 1 r5, r6 = 7, 9", {1, 16, 0xFF, 5, 0, 2, 4, 0, 7, 0, 9, 7, 0xA3}, {1, 16, 0xFF, 5, 0, 2, 0x61, 0xDD}},
        {"LC 1 r5, r6 again", {1, 3, 0xFF, 5, 0, 2, 0xE4, 0x1E}, {1, 3, 4, 0, 7, 0, 9, 0x8B, 0xF4}},
        {"LC 1 r8 cannot be written", {1, 6, 0xFF, 0x08, 0, 1, 0xF9, 0xDC}, {}, {1, 0x86, 2, 0xC3, 0xA1}},
        {"LC 1 has no r64", {1, 3, 0xFF, 0x40, 0, 1, 0xB5, 0xCA}, {}, noAddressRead},
        {"LC 1 r63 and more", {1, 3, 0xFF, 63, 0, 2, 0xC4, 0x13}, {}, noAddressRead},
        {"LC 1 has no sections", {1, 3, 0, 5, 0, 1, 0x94, 0x0B}, {}, noAddressRead},
        {"beyond all addresses", {7, 3, 0xFF, 0xFF, 0, 2, 0xC4, 0x49}, {}, {7, 0x83, 2, 0x20, 0xF0}},
        {"VMS 7/0 r99, 7/1 r0", {7, 3, 0, 99, 0, 2, 0x34, 0x73}, {7, 3, 4, 0, 0, 0, 0, 0x9C, 0x33}},
        {"no register", {1, 3, 0xFF, 5, 0, 0, 0x65, 0xDF}, {}, badCountRead},
        {"126 registers", {1, 3, 0xFF, 5, 0, 126, 0xE5, 0xFF}, {}, badCountRead},
        {"three registers, two values", {1, 16, 0xFF, 5, 0, 3, 4, 0, 7, 0, 9, 6, 0x72}, {}, badCountWritten},
        {"half a value", {1, 16, 0xFF, 5, 0, 1, 1, 0, 0x18, 0x59}, {}, badCountWritten},
        {"no value", {1, 16, 0xFF, 5, 0, 0, 0, 0x1D, 0x88}, {}, badCountWritten},
        {"input registers", {1, 4, 0xFF, 5, 0, 1, 0x11, 0xDF}, {}, {1, 0x84, 1, 0x82, 0xC0}},
        {"who is there?", {1, 17, 0xC0, 0x2C}, {}, noFunction},
        {"bad checksum", {1, 3, 0xFF, 0x05, 0, 1, 0xA4, 0x1E}, {}},
        {"VSLS 5/1 r22", {5, 3, 0, 122, 0, 1, 0xA4, 0x57}, {5, 3, 2, 0, 5, 0x89, 0x87}},
        {"the second VSLS", {15, 3, 0, 122, 0, 1, 0xA4, 0xFD}, {15, 3, 2, 0, 5, 0x11, 0x86}},
        {"nobody there", {9, 3, 0xFF, 0x05, 0, 1, 0xA5, 0x57}, {}},
    };
    for (const bool exceptions : {false, true}) {
        std::filesystem::remove(File());
        vxsim::ModbusDevices devices(File(), exceptions);
        for (const auto& row : rows) {
            SCOPED_TRACE(row.name);
            Bytes bytes = row.request;
            const auto answers = vxsim::AnswerModbusRtu(devices, bytes);
            EXPECT_EQ(answers.empty() ? Bytes() : answers.front(),
                      exceptions ? row.answer + row.exception : row.answer);
            EXPECT_LT(bytes.size(), 4U);
        }
        EXPECT_EQ(devices.LastChange(), "LC 1 r6=9");
    }
    std::ofstream(File(), std::ios::app) << "nonsense\n1 65535 7\n300 1 1\n8 65280 9\n";
    vxsim::ModbusDevices again(File(), false);
    const Bytes& read = rows[6].request;
    Bytes stream = Bytes{1, 3, 1} + read + Bytes{0xFF} + read + Bytes{1, 16, 0xFF};
    EXPECT_EQ(vxsim::AnswerModbusRtu(again, stream), (std::vector<Bytes>{rows[6].answer, rows[6].answer}))
        << "kept over a restart";
    EXPECT_EQ(stream, (Bytes{1, 16, 0xFF})) << "the begin of another one";
    for (const std::uint8_t byte : Bytes{5, 0, 2, 4, 0, 7, 0, 9, 7}) {
        stream.push_back(byte);
        EXPECT_EQ(vxsim::AnswerModbusRtu(again, stream).size(), 0U);
    }
    stream.push_back(0xA3);
    EXPECT_EQ(vxsim::AnswerModbusRtu(again, stream), std::vector<Bytes>{rows[5].answer}) << "it came in pieces";
    stream = Bytes(100000, 1);
    EXPECT_EQ(vxsim::AnswerModbusRtu(again, stream).size(), 0U);
    EXPECT_LE(stream.size(), 256U) << "what no request is so long as is not kept";
}

TEST_F(Devices, ModbusTcpHasAHeaderInPlaceOfTheChecksum)
{
    vxsim::ModbusDevices devices(File(), true);
    const Bytes write{0x12, 0x34, 0, 0, 0, 11, 1, 16, 0xFF, 5, 0, 2, 4, 0, 7, 0, 9};
    const Bytes read{0x12, 0x35, 0, 0, 0, 6, 1, 3, 0xFF, 5, 0, 2};
    const Bytes unknown{0x12, 0x36, 0, 0, 0, 2, 1, 17};
    const Bytes nobody{0x12, 0x37, 0, 0, 0, 6, 9, 3, 0xFF, 5, 0, 2};
    const Bytes tooLong{0x12, 0x38, 0, 0, 0, 7, 1, 3, 0xFF, 5, 0, 2, 0};
    Bytes stream = write + read + unknown + nobody + tooLong + Bytes{0x12, 0x39, 0, 0, 0, 6, 1, 3};
    EXPECT_EQ(vxsim::AnswerModbusTcp(devices, stream),
              (std::vector<Bytes>{{0x12, 0x34, 0, 0, 0, 6, 1, 16, 0xFF, 5, 0, 2},
                                  {0x12, 0x35, 0, 0, 0, 7, 1, 3, 4, 0, 7, 0, 9},
                                  {0x12, 0x36, 0, 0, 0, 3, 1, 0x91, 1},
                                  {0x12, 0x38, 0, 0, 0, 3, 1, 0x83, 3}}));
    EXPECT_EQ(stream.size(), 8U) << "the rest comes later";
    for (Bytes wrong : {Bytes{0, 1, 0, 1, 0, 6}, Bytes{0, 1, 0, 0, 0, 1}, Bytes{0, 1, 0, 0, 0, 255}})
        EXPECT_FALSE(vxsim::AnswerModbusTcp(devices, wrong));
}

} // namespace
} // namespace vxsign::test

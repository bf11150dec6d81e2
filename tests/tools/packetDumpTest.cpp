// Packets taken apart for the eye.
#include "vxctl/sign/packetDump.h"

#include <gtest/gtest.h>

namespace vxctl_tests {
namespace {

using Bytes = std::vector<std::uint8_t>;

const Bytes kReply{0x55, 0xA8, 0xA7, 0x01, 0x02, 0x00, 0x34, 0x12, 0x00, 0x01, 0x07,
                   0x00, 0x01, 0x15, 0x01, 0x00, 'a',  0x00, 0xFF, 'b',  'O',  'K'};

TEST(PacketDump, NamesEveryField)
{
    EXPECT_EQ(vxctl::DumpPacket(kReply),
              "  0000  55 A8                                            sync\n"
              "  0002  A7 01                                            checksum 423\n"
              "  0004  02 00                                            extended length 2\n"
              "  0006  34 12                                            source address 4660\n"
              "  0008  00 01                                            "
              "destination address 256\n"
              "  000A  07 00                                            packet id 7\n"
              "  000C  01                                               major 1\n"
              "  000D  15                                               minor 21\n"
              "  000E  01                                               payload words 1\n"
              "  000F  00                                               status 0\n"
              "payload (4 bytes)\n"
              "  0010  61 00 FF 62                                      a..b\n"
              "extended part (2 bytes)\n"
              "  0014  4F 4B                                            OK\n");
    const auto object = vxctl::DescribePacket(kReply);
    EXPECT_EQ(object["packet"], "55A8A7010200341200010700011501006100FF624F4B");
    EXPECT_EQ(object["destinationAddress"], 256);
    EXPECT_EQ(object["payload"], "6100FF62");
    EXPECT_EQ(object["extended"], "4F4B");
}

// A reply may declare far more than there is room for, and may have been cut anywhere.
TEST(PacketDump, TrustsNoDeclaredLength)
{
    Bytes buffer(40, 0xFF);
    buffer[0] = 0x55;
    for (std::size_t room = 0; room <= buffer.size(); ++room) {
        const Bytes packet = vxctl::PacketAt(buffer.data(), room);
        EXPECT_EQ(packet.size(), room < 16 ? 0 : room);
        EXPECT_FALSE(vxctl::DumpPacket(packet).empty());
        EXPECT_EQ(vxctl::DescribePacket(packet).is_null(), room < 16);
    }
    const Bytes none(64, 0);
    EXPECT_TRUE(vxctl::PacketAt(none.data(), none.size()).empty());
}

} // namespace
} // namespace vxctl_tests

// Whatever a host sends: no crash, and always one whole reply that hosts have room for.
#include "sim/protocol/checksum.h"
#include "support/signFixture.h"

#include <random>

namespace vxsign::test {
namespace {

constexpr std::size_t kLongestReply = 4608; // that a host has room for

// Requests as a host with a fault, or with bad intentions, may make them.
class Requests
{
public:
    unsigned Below(unsigned end) { return static_cast<unsigned>(random() % end); }

    // Numbers that mean something more often than chance has it, with pieces of paths and of texts between.
    Bytes Block(std::size_t longest)
    {
        static const std::vector<Bytes> kPieces{
            Text("C:\\SEQUENT.SYS"),  Text("D:\\T\\A.NMG"), Text("..\\..\\"),    Text("select * from "), Bytes(70, 'A'),
            {0xFF, 0xFF, 0xFF, 0xFF}, {0, 0, 0, 0},         {0x55, 0xAA, 32, 0}, {0, 0, 0, 0x80},        {1, 0}};
        Bytes block;
        const std::size_t size = Below(8) == 0 ? longest : Below(static_cast<unsigned>(longest) / 8);
        while (block.size() < size) {
            if (Below(4) == 0)
                block = block + kPieces[Below(static_cast<unsigned>(kPieces.size()))];
            else
                block.push_back(static_cast<std::uint8_t>(Below(3) == 0 ? random() : Below(20)));
        }
        block.resize(size);
        return block;
    }

private:
    std::mt19937 random{42};
};

TEST_F(StageTest, OutlivesWhateverAHostSends)
{
    Rebuild(48, 32);
    Requests requests;
    // From any bus; to a tile itself under the sync of tiles.
    const auto ask = [&](unsigned major) {
        Bytes request = MakeRequest(major, requests.Below(requests.Below(16) == 0 ? 256 : 64), requests.Block(252),
                                    requests.Below(2) == 0 ? Bytes{} : requests.Block(1400), ++id,
                                    static_cast<std::uint16_t>(requests.Below(4)));
        request[1] = major == 124 ? 0xB1 : 0xA3;
        request[6] = static_cast<std::uint8_t>(requests.Below(3));
        const unsigned crc = vxsim::Crc16(std::span(request).subspan(4));
        request[2] = static_cast<std::uint8_t>(crc);
        request[3] = static_cast<std::uint8_t>(crc >> 8);
        return sign->Answer(request, arrival);
    };
    for (unsigned major = 0; major < 256; ++major) {
        const bool isKnown = major == 124 || CodeOf(Ask(major, 255)) != 36868;
        for (unsigned round = 0; round < (isKnown ? 400U : 1U); ++round) {
            arrival.nowMs += requests.Below(300);
            const Bytes reply = ask(major);
            ASSERT_GE(reply.size(), 16U) << major;
            ASSERT_LE(reply.size(), kLongestReply) << major;
            ASSERT_EQ(reply.size(), 16U + 4U * reply[14] + reply[4] + 256U * reply[5]);
            if (round % 20 == 0) {
                sign->KeepUp(arrival.nowMs);
                stage->Draw(arrival.nowMs);
            }
        }
    }
    Rebuild(48, 32); // with what they left on its disk
}

} // namespace
} // namespace vxsign::test

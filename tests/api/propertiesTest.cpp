// What the thread learns of its sign, and the settings inside the sign's "CONFIG.SYS".
#include "support/scriptedSign.h"
#include "thread/threadRecords.h"

#include <cstring>

namespace vxsign::test {
namespace {

Bytes Config()
{
    return Bytes(16, 0x11) + Hex("0002") + Bytes(14, 0x11) +
           Hex("A1A2 1111 0A31FEA9") + // 169.254.49.10, last octet first
           Bytes(96, 0x11) + Hex("01020304 04030201") + Bytes(8, 0x11) + Hex("00000008") + // bit 27
           Bytes(30, 0x11) + Hex("3025") + Bytes(132, 0x11);
}

const Answer kStyle = Good(Bytes(2, 0x22) + FromText("E") + Bytes(49, 0x22));
const Answer kConfigFile = Good(Hex("00000000 40010000"), Config());

// The record of the sign is the thread's: each test begins without.
class Properties : public ScriptedTest
{
protected:
    Properties() { *ThreadState() = {}; }
    ~Properties() override { *ThreadState() = {}; }
};

TEST_F(Properties, AreUnsetUntilTheSignWasRead)
{
    std::uint8_t none[4];
    EXPECT_EQ(vxGetProperty(none, 4, 1), 3u);
    sign.Then(kStyle).Then(Refusal(36872));
    EXPECT_EQ(vxInitProperty(), 36872u);
    EXPECT_EQ(vxGetProperty(none, 4, 1), 3u);
    sign.Then(Refusal(36912));
    EXPECT_EQ(vxInitProperty(), 36912u);

    sign.Then(kStyle).Then(kConfigFile).Then(kStyle);
    EXPECT_EQ(vxInitProperty(), 0u);
    Bytes out(400, 0xEE);
    EXPECT_EQ(vxGetProperty(out.data(), 4, VX_PROPERTY_HAS_DRIVE_F), 0u);
    EXPECT_EQ(Part(out, 0, 5), Hex("01000000EE"));
    EXPECT_EQ(vxGetProperty(out.data(), 1, VX_PROPERTY_CONTENT_SOURCE), 0u);
    EXPECT_EQ(out[0], 'E');
    out[1] = 0xEE;
    EXPECT_EQ(vxGetProperty(out.data(), 4, VX_PROPERTY_SEQUENCE_FORM), 0u);
    EXPECT_EQ(Part(out, 0, 2), Hex("01EE"));
    EXPECT_EQ(vxGetProperty(out.data(), 360, VX_PROPERTY_DISPLAY_STYLE), 0u);
    EXPECT_EQ(out[0], 0x22);
    EXPECT_EQ(out[52 + 17], 2) << "the configuration lies behind the style";
    EXPECT_EQ(out[359], 0) << "and nothing behind that";
    EXPECT_EQ(out[360], 0xEE);

    out.assign(4, 0xEE);
    EXPECT_EQ(vxGetProperty(out.data(), 2, VX_PROPERTY_HAS_DRIVE_F), 0u);
    EXPECT_EQ(out, Hex("0100EEEE"));
    out.assign(4, 0xEE);
    EXPECT_EQ(vxGetProperty(out.data(), 4, 5), 0u);
    EXPECT_EQ(out, Bytes(4, 0xEE));
    EXPECT_EQ(vxGetProperty(nullptr, 4, 1), 3u);
    EXPECT_EQ(vxGetProperty(out.data(), 0, 1), 3u);
}

TEST_F(Properties, TheCommunicationSetReadAndAfterwardsReadAfresh)
{
    vxCommunicationSet set{};
    for (int round = 0; round < 2; ++round) {
        sign.Then(kStyle).Then(kConfigFile).Then(kStyle);
        EXPECT_EQ(vxReadCommunicationSet(&set), 0u);
    }
    EXPECT_STREQ(set.address, "169.254.49.10");
    EXPECT_STREQ(set.secondAddress, "4.3.2.1");
    EXPECT_STREQ(set.thirdAddress, "1.2.3.4");
    EXPECT_EQ(set.port, 0x2530);
    EXPECT_EQ(set.firstSetting, 0xA1);
    EXPECT_EQ(set.secondSetting, 0xA2);
    sign.Then(Refusal(36912));
    EXPECT_EQ(vxReadCommunicationSet(&set), 36912u);
}

TEST_F(Properties, TheCommunicationSetWriteChangesWhatItNames)
{
    vxCommunicationSet set{};
    std::strcpy(set.address, "10.20.30.40");
    std::strcpy(set.secondAddress, "");
    std::memcpy(set.thirdAddress, "255.255.255.2551", 16); // no terminator, and no address
    set.port = 9520;
    set.firstSetting = 1;
    set.secondSetting = 2;
    sign.Then(kStyle).Then(kConfigFile).Then(kStyle);
    EXPECT_EQ(vxWriteCommunicationSet(&set), 2u);
    EXPECT_EQ(sign.requests.back().Major(), 1) << "nothing was written";

    std::strcpy(set.thirdAddress, "255.0.0.1");
    sign.Then(kStyle).Then(Good());
    EXPECT_EQ(vxWriteCommunicationSet(&set), 0u);
    const Packet& write = sign.requests.back();
    EXPECT_EQ(write.Major(), 2);
    EXPECT_EQ(write.Minor(), 2);
    const Bytes record = write.Payload();
    EXPECT_EQ(Part(record, 0, 12), FromText("CONFIG.SYS") + Bytes(2));
    Bytes expected = Config();
    expected.resize(300);
    const auto put = [&](std::size_t at, const Bytes& bytes) {
        std::copy(bytes.begin(), bytes.end(), expected.begin() + static_cast<std::ptrdiff_t>(at));
    };
    put(32, Hex("0102"));
    put(36, Hex("281E140A"));
    put(140, Hex("010000FF"));
    put(186, Hex("3025"));
    EXPECT_EQ(write.Extended(), expected) << "an empty address leaves the sign's own";

    // An unreachable sign counts as written.
    set = {};
    sign.requests.clear();
    sign.Then(Refusal(36912));
    EXPECT_EQ(vxWriteCommunicationSet(&set), 0u);
    EXPECT_EQ(sign.requests.size(), 1u);
}

TEST_F(Properties, TheCommunicationSetFormsOfAnAddress)
{
    sign.Then(kStyle).Then(kConfigFile).Then(kStyle);
    EXPECT_EQ(vxInitProperty(), 0u);
    for (const char* const text : {"10.20.30.40", " 10.\t20. 30.40", "010.020.0030.00040", "10.20.30.40 and more",
                                   "10.20.30.40.50", "+10.20.30.40-"}) {
        vxCommunicationSet set{};
        std::strcpy(set.address, text);
        sign.Then(kStyle).Then(Good());
        EXPECT_EQ(vxWriteCommunicationSet(&set), 0u) << text;
        const Bytes written = sign.requests.back().Extended();
        ASSERT_EQ(written.size(), 300u) << text;
        EXPECT_EQ(Part(written, 36, 4), Hex("281E140A")) << text;
    }
    for (const char* const text :
         {" ", "x", "10", "10.20.30", "10.20.30.", "10.20.30.256", "10 .20.30.40", "-1.2.3.4", "99999999999.2.3.4",
          "4294967297.2.3.4", "18446744073709551617.2.3.4", "10,20,30,40"}) {
        vxCommunicationSet set{};
        std::strcpy(set.address, text);
        sign.Then(kStyle);
        EXPECT_EQ(vxWriteCommunicationSet(&set), 2u) << text;
    }
}

} // namespace
} // namespace vxsign::test

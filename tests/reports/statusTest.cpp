// The status of the sign, gathered from several commands.
#include "support/reportSign.h"

#include <bit>

namespace vxsign::test {
namespace {

struct Seen
{
    inline static Bytes status;
    inline static Bytes beacon;
    inline static std::string path;
    inline static std::vector<std::string> converted;

    static std::uint32_t Take(std::uint32_t user, const vxStatusRecord* record, const std::uint8_t* eight,
                              const char* message)
    {
        EXPECT_EQ(user, 7u);
        const auto* const bytes = reinterpret_cast<const std::uint8_t*>(record);
        status.assign(bytes, bytes + 96);
        beacon.assign(eight, eight + 8);
        path = message;
        return 99; // not looked at
    }
    static std::uint32_t Convert(vxApiConfig*, const char* message, const char* gif, std::uint32_t first,
                                 std::uint32_t second)
    {
        converted = {message, gif, std::to_string(first), std::to_string(second)};
        return 99;
    }
};

constexpr float kNone = 0.0F;

std::uint32_t Read(float longitude = kNone, float latitude = kNone, char useSignBeacon = 0)
{
    Seen::converted.clear();
    return vxReadStatusInfo("tmp/", 7, 0, Seen::Take, std::bit_cast<std::uint32_t>(longitude),
                            std::bit_cast<std::uint32_t>(latitude), useSignBeacon);
}

using Status = ReportTest;

constexpr char kState[] = "A0A1A2A3 A4A5A6A7";

TEST_F(Status, PositionAndFieldsFromRecordOrStateWord)
{
    const float infinite = std::numeric_limits<float>::infinity();
    using Row = std::tuple<float, float, const char*>;
    for (const auto& [longitude, latitude, bytes] : {
             Row{1999.5F, 2000.0F, "574E EEEE 0000 1E00 B400 0000 0000 0000"},
             Row{2121.25F, 1968.75F, "4553 EEEE 7900 0F00 5A00 1F00 0F00 5A00"},
             Row{1000.0F, 2031.0F, "EEEEEEEE EEEEEEEE EEEEEEEE EEEEEEEE"},
             Row{2031.0F, 0.0F, "EEEEEEEE EEEEEEEE EEEEEEEE EEEEEEEE"},
             Row{std::numeric_limits<float>::quiet_NaN(), 2031.0F, "EEEEEEEE EEEEEEEE EEEEEEEE EEEEEEEE"},
             Row{infinite, 1e30F, "454E EEEE FFFF 0000 0000 FFFF 0000 0000"},
         }) {
        sign.answers["1/11"] = {Good(Hex(kState), Bytes(96, 0xEE))};
        EXPECT_EQ(Read(longitude, latitude), 0u);
        EXPECT_EQ(Part(Seen::status, 64, 16), Hex(bytes)) << longitude;
    }

    sign.Renew();
    sign.answers["4/11"] = {Good(Hex("0102030405060708"))};
    const auto status = [&](const Bytes& record) {
        sign.answers["1/11"] = {Good(Hex(kState), record)};
        EXPECT_EQ(Read(), 0u);
        return Seen::status;
    };
    EXPECT_EQ(status(Bytes(4, 0) + Bytes(92, 0xEE)),
              Hex("A1A2A441") + Bytes(80, 0xEE) + Hex("A0") + Bytes(11, 0xEE)); // 0xA6 modulo 101
    EXPECT_EQ(sign.asked, (Asked{"1/11", "1/26", "4/11", "6/7"}));
    EXPECT_EQ(sign.requests[1].Payload(), Hex("09000000"));
    EXPECT_EQ(Seen::beacon, Hex("0102030405060708"));
    EXPECT_EQ(status(Hex("010203CA")), Hex("01020300") + Bytes(80) + Hex("A0") + Bytes(11)) << "a short record";
    EXPECT_EQ(status(Bytes(300, 0x65)), Hex("65656500") + Bytes(80, 0x65) + Hex("A0") + Bytes(11, 0x65));
    sign.answers["1/26"] = {Good({}, Hex("01"))};
    EXPECT_EQ(status({}).at(84), 241);

    sign.answers["4/11"] = {Refusal(36912)};
    EXPECT_EQ(Read(), 36912u);
    EXPECT_EQ(Seen::beacon, Bytes(8));
    sign.asked.clear();
    Seen::status.clear();
    sign.answers["1/11"] = {Refusal(36869)};
    EXPECT_EQ(Read(), 36869u);
    EXPECT_EQ(sign.asked, Asked{"1/11"});
    EXPECT_TRUE(Seen::status.empty());
}

TEST_F(Status, SignBeacon)
{
    sign.answers["4/27"] = {Good(Hex("FFFFFFFFFFFFFFFF")), Good(Hex("0102030405060708"))};
    sign.answers["4/29"] = {Good(Hex("1112131415161718"))};
    sign.answers["4/5"] = {Good(Hex("00010000"))};
    EXPECT_EQ(Read(kNone, kNone, 1), 0u);
    EXPECT_EQ(sign.asked, (Asked{"1/11", "1/26", "4/27", "4/27", "4/29", "4/5", "6/7"}));
    EXPECT_EQ(Seen::beacon, Hex("0212130101030400"));

    sign.answers["4/27"] = {Good(Hex("01FF0304"))};
    sign.answers["4/5"] = {Good(Hex("05000000")), Refusal(36912)};
    EXPECT_EQ(Read(kNone, kNone, 1), 0u);
    EXPECT_EQ(Seen::beacon, Hex("0012130001030400"));
    EXPECT_EQ(Read(kNone, kNone, 1), 36912u);

    // A sign that does not know it; any other failure is no reason.
    sign.answers["4/11"] = {Good(Hex("A1A2A3A4A5A6A7A8"))};
    for (const int code : {36869, 36881}) {
        sign.asked.clear();
        sign.answers["4/27"] = {Refusal(static_cast<std::uint16_t>(code))};
        EXPECT_EQ(Read(kNone, kNone, 1), 0u);
        EXPECT_EQ(sign.asked, (Asked{"1/11", "1/26", "4/27", "4/11", "6/7"}));
        EXPECT_EQ(Seen::beacon, Hex("A1A2A3A4A5A6A7A8"));
    }
    sign.answers["4/27"] = {Refusal(36912)};
    EXPECT_EQ(Read(kNone, kNone, 1), 36912u);
    EXPECT_EQ(Seen::beacon, Hex("0012130100000000"));
    sign.answers["4/27"] = {Good(Hex("01020304")), Refusal(36912)};
    EXPECT_EQ(Read(kNone, kNone, 1), 36912u);
    EXPECT_EQ(Seen::beacon, Hex("0012130100000000")) << "the second answer counts";
}

TEST_F(Status, ShownMessage)
{
    const auto shown = [&](const Answer& name, bool converter) {
        sign.answers["6/7"] = {name};
        sign.Config().onMessageToGif = converter ? Seen::Convert : nullptr;
        EXPECT_EQ(Read(), 0u);
        return Seen::path;
    };
    const Answer playing = Good(FromText("D:\\T\\A.NMG"));
    EXPECT_EQ(shown(playing, false), "tmp/A.NMG");
    EXPECT_EQ(shown(Good(FromText("/T/A.NMG")), true), "tmp/A.NMG");
    EXPECT_EQ(Seen::converted, (std::vector<std::string>{"tmp/A.NMG", "tmp/monitor.gif", "20", "1000"}));
    EXPECT_EQ(shown(Refusal(26369), true), "tmp/\\__BLANK.VXB");
    EXPECT_EQ(Seen::converted.at(0), "tmp/\\__BLANK.VXB");
    EXPECT_EQ(shown(Refusal(26369), false), "tmp/");
    EXPECT_EQ(shown(Refusal(26370), true), "tmp/");
    EXPECT_TRUE(Seen::converted.empty());
    EXPECT_EQ(shown(Good(FromText("D:\\../../up\\../etc/shadow")), true), "tmp/shadow");
    EXPECT_EQ(shown(Good(Bytes(1000, 'a')), false), "tmp/" + std::string(256, 'a'));
}

TEST_F(Status, Update3Info)
{
    Bytes record(569, 0xEE);
    sign.answers["1/11"] = {Good(Hex(kState), Hex("00027700"))};
    sign.answers["4/11"] = {Good(Hex("01020304"))};
    EXPECT_EQ(vxUpdate3Info(record.data()), 0u);
    EXPECT_EQ(sign.asked, (Asked{"1/11", "4/11", "6/7"}));
    EXPECT_EQ(record, Bytes(565, 0xEE) + Hex("A1024104"));
    sign.answers["1/11"] = {Good(Hex(kState), Hex("01000064"))};
    sign.answers["4/11"] = sign.answers["6/7"] = {Refusal(36912)};
    EXPECT_EQ(vxUpdate3Info(record.data()), 0u);
    EXPECT_EQ(record, Bytes(565, 0xEE) + Hex("01A26400"));
    sign.answers["1/11"] = {Refusal(36869)};
    record.assign(569, 0xEE);
    EXPECT_EQ(vxUpdate3Info(record.data()), 36869u);
    EXPECT_EQ(record, Bytes(569, 0xEE));
}

} // namespace
} // namespace vxsign::test

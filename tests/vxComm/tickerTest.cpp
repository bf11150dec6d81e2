// Tickers and buffers: majors 8 and 9.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

TEST(Ticker, Requests)
{
    ExpectRequests({
        {"vxTickerStart", [] { return vxTickerStart(1, 2, 3); }, 8, 1, "01020300", ""},
        {"vxTickerStop", [] { return vxTickerStop(); }, 8, 2, "", ""},
        {"vxOffLineTickerStart", [] { return vxOffLineTickerStart(1, 2, 3, 4); }, 9, 1, "01020304", ""},
        {"vxOffLineTickerStop", [] { return vxOffLineTickerStop(); }, 9, 2, "", ""},
    });
    ExpectArgumentsError({
        {"vxGetBufferStatus", [] { return vxGetBufferStatus(nullptr); }},
        {"vxUploadBuffer", [] { return vxUploadBuffer(nullptr, 1); }},
        {"vxUploadBuffer of nothing", [] { return vxUploadBuffer(Bytes{1}.data(), 0); }},
    });
}

TEST(Ticker, BufferStatusComesAsARefusal)
{
    ScriptedSign sign;
    std::uint16_t status = 7;
    for (const std::uint16_t code : std::initializer_list<std::uint16_t>{33537, 33538, 33539}) {
        sign.Then(Refusal(code));
        EXPECT_EQ(vxGetBufferStatus(&status), 0u);
        EXPECT_EQ(status, code);
    }
    status = 7;
    sign.Then(Good()).Then(Refusal(33536)).Then(Refusal(33541));
    EXPECT_EQ(vxGetBufferStatus(&status), 0u);
    EXPECT_EQ(vxGetBufferStatus(&status), 33536u);
    EXPECT_EQ(vxGetBufferStatus(&status), 33541u);
    EXPECT_EQ(status, 7);
    EXPECT_EQ(sign.requests[0].Major(), 8);
    EXPECT_EQ(sign.requests[0].Minor(), 3);
    EXPECT_TRUE(sign.requests[0].Payload().empty());
}

TEST(Ticker, UploadsInChunks)
{
    ScriptedSign sign;
    Bytes data(769, 'a');
    data[768] = 'b';
    sign.Then(2, Good());
    EXPECT_EQ(vxUploadBuffer(data.data(), 769), 0u);
    ASSERT_EQ(sign.requests.size(), 2u);
    EXPECT_EQ(sign.requests[0].Major(), 8);
    EXPECT_EQ(sign.requests[0].Minor(), 4);
    EXPECT_EQ(sign.requests[0].Payload(), Hex("0003 0200 0100 0000"));
    EXPECT_EQ(sign.requests[0].Extended(), Bytes(768, 'a'));
    EXPECT_EQ(sign.requests[1].Payload(), Hex("0003 0200 0200 0000"));
    EXPECT_EQ(sign.requests[1].Extended(), Bytes{'b'});
    EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{50, 100}));
    EXPECT_EQ(sign.opened, 1);

    sign.Then(Good());
    EXPECT_EQ(vxUploadBuffer(data.data(), 768), 0u);
    EXPECT_EQ(sign.requests.back().Payload(), Hex("0003 0100 0100 0000"));

    // A refusal ends it.
    sign.progress.clear();
    sign.Config().dataSize = 64;
    sign.Then(2, Good()).Then(Refusal(33542));
    EXPECT_EQ(vxUploadBuffer(data.data(), 769), 33542u);
    EXPECT_EQ(sign.progress, (std::vector<std::uint32_t>{7, 15}));

    // More chunks than their numbers reach.
    const std::size_t before = sign.requests.size();
    const Bytes large(64 * 65535 + 1);
    EXPECT_EQ(vxUploadBuffer(large.data(), static_cast<std::uint32_t>(large.size())), 2u);
    EXPECT_EQ(sign.requests.size(), before);
}

} // namespace
} // namespace vxsign::test

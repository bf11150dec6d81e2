// The class Sign against vxsim: each task once, each kind of error once, threads, cancel.
#include "bindings/startedSign.h"
#include "support/udpPeer.h"

#include <gtest/gtest.h>
#include <vxsign/sign.hpp>

#include <chrono>
#include <thread>

namespace vxsign::test {
namespace {

const std::string kLogo = std::string(EXAMPLES) + "/logo.bmp";
const std::string kHello = std::string(EXAMPLES) + "/hello.nmg";

Sign OpenSign(const std::string& url, const Options& options = {})
{
    Result<Sign> sign = Sign::Open(url, options);
    EXPECT_TRUE(sign) << sign.Error().text;
    return *sign;
}

template <class Outcome>
auto Of(Outcome outcome)
{
    EXPECT_TRUE(outcome) << outcome.Error().code << ' ' << outcome.Error().text;
    return outcome.ValueOr({});
}

void Do(const Result<void>& outcome)
{
    EXPECT_TRUE(outcome) << outcome.Error().code << ' ' << outcome.Error().text;
}

// A sign that says nothing.
Sign SilentSign(const UdpPeer& peer, std::uint32_t timeoutMs, std::uint32_t retries)
{
    Options options;
    options.timeoutMs = timeoutMs;
    options.retries = retries;
    return OpenSign("udp://127.0.0.1:" + std::to_string(peer.Port()), options);
}

Bytes Silence(const Bytes& /*request*/)
{
    return {};
}

TEST(CppSign, ShowsContent)
{
    const StartedSign place;
    const Sign sign = OpenSign(place.Url());
    Do(sign.Show("Lane 2\nclosed", "#FF8000"));
    EXPECT_NE(place.Read("F/T/QMSG.Nmg").find("Lane 2\rclosed"), std::string::npos);
    EXPECT_EQ(Of(sign.Playing()), "F:\\T\\QMSG.Nmg");
    Do(sign.Picture(kLogo));
    EXPECT_EQ(Of(sign.Playing()), "F:\\T\\PMSG.Nmg");
    Do(sign.Files({kLogo, kHello}, "0", 600));
    EXPECT_TRUE(place.Has("F/P/logo.bmp"));
    EXPECT_EQ(Of(sign.Playing()), "F:\\P\\logo.bmp");
    Do(sign.Play("next"));
    EXPECT_EQ(Of(sign.Playing()), "F:\\T\\hello.nmg");
    Do(sign.Play("F:/P/logo.bmp"));
    for (const char* const step : {"previous", "pause", "continue", "replay", "again"})
        Do(sign.Play(step));
    Do(sign.Blank());
    EXPECT_EQ(Of(sign.Status()).state, std::vector<std::string>{"dark-face"});
    Do(sign.Unblank());
    Do(sign.Power(false));
    EXPECT_FALSE(Of(sign.Power()));
    EXPECT_EQ(Of(sign.Restore()), std::vector<std::string>{"off"});
    EXPECT_TRUE(Of(sign.Power()));
}

TEST(CppSign, MovesFiles)
{
    const StartedSign place;
    const TempFolder local;
    std::vector<unsigned> percents;
    Options options;
    options.onProgress = [&](unsigned percent) { percents.push_back(percent); };
    const Sign sign = OpenSign("tcp" + place.Url().substr(3), options);
    Do(sign.Mkdir("D:/NEW"));
    Do(sign.Put(kLogo, "D:/NEW/"));
    ASSERT_GT(percents.size(), 2U);
    EXPECT_EQ(percents.back(), 100U);
    Do(sign.Get("D:/NEW/logo.bmp", local.Path("back.bmp")));
    EXPECT_EQ(local.Read("back.bmp"), place.Read("D/NEW/logo.bmp"));
    Do(sign.Mv("D:/NEW/logo.bmp", "other.bmp"));
    Do(sign.Mkdir("D:/T"));
    Do(sign.Mv("D:/NEW/other.bmp", "D:/T/"));
    const std::vector<Entry> entries = Of(sign.Ls("D:/T"));
    ASSERT_EQ(entries.size(), 1U);
    EXPECT_EQ(entries[0].name, "other.bmp");
    EXPECT_EQ(entries[0].size, std::filesystem::file_size(kLogo));
    EXPECT_FALSE(entries[0].isFolder);
    EXPECT_EQ(entries[0].changed.value_or(ClockTime()).year, ClockTime::Now().year);
    Do(sign.Rm("D:/T/other.bmp"));
    EXPECT_FALSE(place.Has("D/T/other.bmp"));
    // A failure leaves what was there, and nothing else.
    EXPECT_EQ(sign.Get("D:/T/other.bmp", local.Path("back.bmp")).Error().code, VX_FILE_NOT_EXISTS);
    EXPECT_EQ(local.Names(), "back.bmp");
}

TEST(CppSign, SendsAndFetchesPlayLists)
{
    const StartedSign place;
    const TempFolder local;
    const Sign sign = OpenSign(place.Url());
    Do(sign.Playlist({kHello, kLogo}, 7));
    EXPECT_EQ(Of(sign.FetchPlaylist(local.Path("fetched"))), (std::vector<std::string>{"hello.nmg", "logo.bmp"}));
    EXPECT_EQ(local.Read("fetched/logo.bmp"), place.Read("F/P/logo.bmp"));
    Do(sign.Playlist({kLogo}, 7, 3));
    EXPECT_TRUE(place.Has("C/playlist/sequent3.sys"));
    EXPECT_EQ(Of(sign.FetchPlaylist(local.Path("fetched"))).size(), 2U) << "the list that plays stays";
}

TEST(CppSign, TellsHowTheSignIs)
{
    const StartedSign place({"--bad", "3,4,red", "--door", "open", "--size", "64x16"});
    const Sign sign = OpenSign(place.Url());
    EXPECT_EQ(Of(sign.Ping()).size(), 3U);
    Do(sign.Light(3));
    EXPECT_EQ(Of(sign.Light()), 3U);
    Do(sign.Clock(ClockTime{2024, 2, 29, 12, 30, 45}));
    EXPECT_EQ(Of(sign.Clock()).Text().substr(0, 15), "2024-02-29 12:3");
    const Status status = Of(sign.Status());
    EXPECT_EQ(status.state, (std::vector<std::string>{"bad-pixels", "door-open"}));
    ASSERT_TRUE(status.face && status.power);
    EXPECT_EQ(status.face->width, 64U);
    EXPECT_EQ(status.lightEighths, 3U);
    EXPECT_EQ(status.drives.size(), 4U);
    ASSERT_FALSE(status.warnings.empty());
    const Table log = Of(sign.Logs("system", 2));
    EXPECT_EQ(log.columns, (std::vector<std::string>{"time", "type", "operation", "user", "outcome"}));
    ASSERT_EQ(log.rows.size(), 2U);
    EXPECT_EQ(log.rows[1][2], "set clock");
    EXPECT_EQ(Of(sign.Logs("tile")).rows.at(2).at(13), "good");
    const std::vector<PixelRow> pixels = Of(sign.Pixels());
    ASSERT_EQ(pixels.size(), 1U);
    EXPECT_EQ(pixels[0].x, 3U);
    EXPECT_EQ(pixels[0].y, 4U);
    EXPECT_EQ(pixels[0].kind, "pixel");
    EXPECT_EQ(Of(sign.Pixels("last")).size(), 1U);
    Do(sign.Call(vxBrightAdjustEx, 4, 5));
    EXPECT_EQ(vxWriteSpecFileEx("D:\\T\\X", kLogo.c_str()), VX_OK) << "the record of the thread stays";
}

TEST(CppSign, ReachesDevices)
{
    const StartedSign modbus({"--modbus", "0", "--modbus-exceptions"}, "modbus");
    const Sign devices = OpenSign("udp://" + modbus.Place("modbus"));
    EXPECT_EQ(Of(devices.Modbus("vsls", 5, 3, 9, 80)), 80);
    EXPECT_EQ(Of(devices.Modbus("VSLS", 5, 3, 9)), 80);
    const StartedSign loader({"--bootloader"}, "serial");
    Do(OpenSign("serial:" + loader.Place("serial") + "@115200").Upgrade(kLogo));
    EXPECT_EQ(loader.Read("sign/firmware.bin").substr(0, 2), "BM");
}

TEST(CppSign, LogsIn)
{
    const StartedSign place({"--login", "admin:1234"});
    const Sign sign = OpenSign(place.Url());
    EXPECT_EQ(sign.Show("no").Error().code, VX_LOGIN_WANTED);
    EXPECT_EQ(sign.Login("admin", "4321").Error().code, VX_WRONG_PASSWORD);
    Do(sign.Login("admin", "1234"));
    Do(sign.Show("yes"));
    Do(sign.Logout());
}

TEST(CppSign, RefusesUrlsAndEncodings)
{
    const std::pair<std::string, const char*> urls[] = {
        {"http://sign", "none of udp://HOST:PORT"},
        {"udp://", "no host"},
        {"udp://10.1", "10.1 is no IPv4 address"},
        {"udp://999.0.0.1", "no IPv4 address"},
        {"udp://sign:0", "port is a number"},
        {"tcp://a b", "the host is"},
        {"serial:", "a serial line has a name"},
        {"serial:COM1@fast", "the speed is"},
        {std::string("udp://127.0.0.1\0:1", 18), "it has a NUL"},
    };
    for (const auto& [url, text] : urls) {
        const Error error = Sign::Open(url).Error();
        EXPECT_EQ(error.code, VX_ARGUMENTS) << url;
        EXPECT_NE(error.text.find(text), std::string::npos) << error.text;
    }
    Options options;
    options.encoding = "klingon";
    EXPECT_EQ(Sign::Open("udp://127.0.0.1", options).Error().text, "'klingon' is no encoding that is known here");
}

TEST(CppSign, RefusesWhatCannotBeAskedFor)
{
    UdpPeer peer(Silence);
    const Sign sign = SilentSign(peer, 50, 1);
    Options options;
    options.encoding = "gbk";
    const Sign gbk = OpenSign("udp://127.0.0.1:" + std::to_string(peer.Port()), options);
    using namespace std::string_view_literals;
    const TempFolder local;
    local.Write("other/logo.bmp", "BM");
    const std::pair<Error, const char*> errors[] = {
        {sign.Show("a\0b"sv).Error(), "a text for the sign has no NUL"},
        {sign.Show("").Error(), "the text is empty"},
        {sign.Show("x", "reddish").Error(), "'reddish' is no colour"},
        {sign.Show("x", "#12345G").Error(), "'#12345G' is no colour"},
        {sign.Show("x", "1", "200").Error(), "'200' is no font"},
        {gbk.Show("5 \xE2\x82\xAC or \xF0\x9F\x9A\xA7").Error(), "gbk has no character '\xF0\x9F\x9A\xA7' (U+1F6A7)"},
        {gbk.Show("\xFF").Error(), "the text is no UTF-8"},
        {sign.Rm("").Error(), "1 to 240 bytes"},
        {sign.Mkdir("D:/" + std::string(240, 'A')).Error(), "1 to 240 bytes"},
        {sign.Play("D:/TT/A.NMG").Error(), "cannot play"},
        {sign.Put("", "D:/A").Error(), "is no path"},
        {sign.Put("/no/file", "D:/A").Error(), "there is no file '/no/file'"},
        {sign.Files({}).Error(), "1 to 128 files"},
        {sign.Playlist({kLogo, local.Path("other/logo.bmp")}).Error(), "two files are named 'logo.bmp'"},
        {sign.Logs("news").Error(), "'news' is no log"},
        {sign.Pixels("all").Error(), "pixels come from"},
        {sign.Clock(ClockTime{2023, 2, 29}).Error(), "there is no time 2023-02-29"},
        {sign.Modbus("LC", 1, 64).Error(), "LC has no register 64"},
        {sign.Modbus("ABC", 1, 1).Error(), "'ABC' is no class"},
    };
    for (const auto& [error, text] : errors) {
        EXPECT_TRUE(error.code == VX_ARGUMENTS || error.code == VX_OPEN_FILE) << error.code;
        EXPECT_NE(error.text.find(text), std::string::npos) << error.text << " instead of " << text;
    }
    EXPECT_TRUE(peer.TakeRequests().empty()) << "something was sent";
    EXPECT_EQ(sign.Ping().Error().code, VX_COMMUNICATION);
    EXPECT_EQ(sign.Ping().Error().text, "Communication Error!");
    EXPECT_EQ(sign.Ping().Error().advice.substr(0, 19), "check address, port");
}

TEST(CppSignDeathTest, EndsTheProgramForTheValueOfAFailure)
{
    EXPECT_DEATH(static_cast<void>(*Sign::Open("nowhere")),
                 "the value of a failure was taken: 'nowhere' names no sign");
}

TEST(CppSign, SpeaksTheEncodingOfTheSign)
{
    const StartedSign place;
    Options options;
    options.encoding = "GBK";
    const Sign sign = OpenSign(place.Url(), options);
    Do(sign.Show("\xE9\x99\x90\xE9\x80\x9F"));
    EXPECT_NE(place.Read("F/T/QMSG.Nmg").find("\xCF\xDE\xCB\xD9"), std::string::npos);
    Do(sign.Put(kLogo, "D:/T/\xE9\x99\x90.bmp"));
    EXPECT_TRUE(place.Has("D/T/\xCF\xDE.bmp"));
    EXPECT_EQ(Of(sign.Ls("D:/T")).at(0).name, "\xE9\x99\x90.bmp");
}

TEST(CppSign, KeepsSignsApartOnEachThread)
{
    const StartedSign large({"--size", "128x32"});
    const StartedSign small({"--size", "64x16", "--drives", "CDE"}); // without F
    const Sign signs[] = {OpenSign(large.Url()), OpenSign(small.Url())};
    const auto alternate = [&] {
        for (const int round : {0, 1, 0, 1}) {
            const Sign& sign = signs[round];
            EXPECT_EQ(Of(sign.Status()).face->width, round == 0 ? 128U : 64U);
            Do(sign.Show("both")); // whose drive is a property of the sign
        }
    };
    std::thread threads[] = {std::thread(alternate), std::thread(alternate), std::thread(alternate)};
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_TRUE(large.Has("F/T/QMSG.Nmg") && !large.Has("D/T/QMSG.Nmg"));
    EXPECT_TRUE(small.Has("D/T/QMSG.Nmg"));
}

TEST(CppSign, EndsWhatRunsWhenCancelled)
{
    UdpPeer peer(Silence);
    const Sign sign = SilentSign(peer, 60000, 1); // whose last try is cut short
    std::thread other([&] {
        while (peer.TakeRequests().empty())
            std::this_thread::yield();
        sign.Cancel();
    });
    EXPECT_EQ(sign.Ping().Error().code, VX_ABORTED);
    other.join();

    const StartedSign place;
    Options options;
    std::function<void()> task;
    options.onProgress = [&](unsigned) { task(); };
    const Sign live = OpenSign(place.Url(), options);
    live.Cancel(); // which has nothing to end
    task = [&] { live.Cancel(); };
    EXPECT_EQ(live.Put(kLogo, "D:/A").Error().code, VX_ABORTED);
    task = [] { throw std::runtime_error("enough"); };
    EXPECT_EQ(live.Put(kLogo, "D:/B").Error().code, VX_ABORTED);
    Error inner;
    task = [&] { inner = live.Ping().Error(); };
    Do(live.Put(kLogo, "D:/C"));
    EXPECT_NE(inner.text.find("this thread is in a call already"), std::string::npos) << inner.text;
}

} // namespace
} // namespace vxsign::test

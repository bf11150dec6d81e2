// Where a sign is, as an operator writes it.
#include "vxctl/cli/signUrl.h"
#include "vxctl/cli/failure.h"

#include <vxsign/api.h>

#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <tuple>
#include <unistd.h>

namespace vxctl::test {
namespace {

TEST(SignUrl, IsTakenApart)
{
    const std::tuple<const char*, SignUrl> rows[] = {
        {"udp://127.0.0.1:9520", {VX_CHANNEL_UDP, "127.0.0.1", 9520, "", 0}},
        {"udp://192.168.1.50", {VX_CHANNEL_UDP, "192.168.1.50", 9520, "", 0}},
        {"UDP://10.0.0.1:0x1F90/", {VX_CHANNEL_UDP, "10.0.0.1", 8080, "", 0}},
        {"tcp://255.255.255.255:65535", {VX_CHANNEL_TCP, "255.255.255.255", 65535, "", 0}},
        {"tcp://sign-7.example.org:1", {VX_CHANNEL_TCP, "sign-7.example.org", 1, "", 0}},
        {"serial:/dev/ttyUSB0@115200", {VX_CHANNEL_SERIAL, "", 0, "/dev/ttyUSB0", 115200}},
        {"serial:COM1@9600", {VX_CHANNEL_SERIAL, "", 0, "COM1", 9600}},
        {"serial:///dev/pts/3", {VX_CHANNEL_SERIAL, "", 0, "/dev/pts/3", 9600}},
        {"serial:/dev/odd@name@300", {VX_CHANNEL_SERIAL, "", 0, "/dev/odd@name", 300}},
    };
    for (const auto& [text, expected] : rows) {
        SCOPED_TRACE(text);
        const SignUrl url = ParseSignUrl(text);
        const auto parts = [](const SignUrl& u) { return std::tie(u.kind, u.host, u.port, u.serialName, u.baudRate); };
        EXPECT_EQ(parts(url), parts(expected));
    }
}

TEST(SignUrl, RefusesWhatNamesNoSign)
{
    const auto expectNone = [](std::initializer_list<const char*> urls) {
        for (const char* const url : urls)
            EXPECT_THROW(ParseSignUrl(url), UsageError) << url;
    };
    expectNone({"", "udp", "udp:", "udp://", "udp://:9520", "udp:127.0.0.1:9520", "http://127.0.0.1", "127.0.0.1:9520",
                "tcp://a host:1", "tcp://a/b", "serial:", "serial:@9600", "serial:COM1@", "serial:COM1@0",
                "serial:COM1@fast", "serial:COM1@4294967296"});
    expectNone({"udp://127.0.0.1:", "udp://127.0.0.1:0", "udp://127.0.0.1:65536", "udp://127.0.0.1:95x0",
                "udp://127.0.0.1:-1", "udp://127.0.0.1:9520:1", "udp://127.0.0.1:9520//", "udp://256.0.0.1",
                "udp://127.0.0", "udp://1.2.3.4.5", "udp://[::1]:9520"});
}

TEST(SignUrl, BecomesWhatTheRecordHasRoomFor)
{
    EXPECT_EQ(Resolve(ParseSignUrl("tcp://localhost:7")).host, "127.0.0.1");
    EXPECT_EQ(Resolve(ParseSignUrl("udp://10.1.2.3")).host, "10.1.2.3");
    EXPECT_EQ(Resolve(ParseSignUrl("serial:/dev/ttyUSB1234")).serialName, "/dev/ttyUSB1234");
    EXPECT_THROW(Resolve(ParseSignUrl("serial:/dev/ttyUSB12345")), UsageError);
    EXPECT_THROW(Resolve(ParseSignUrl("serial:0123456789012345")), UsageError);

    const std::string link =
        std::filesystem::temp_directory_path() / ("vxctl-a-long-name-by-id-" + std::to_string(::getpid()));
    std::filesystem::create_symlink("/dev/null", link);
    const std::string followed = Resolve(ParseSignUrl("serial:" + link + "@19200")).serialName;
    std::filesystem::remove(link);
    EXPECT_EQ(followed, "/dev/null");
}

} // namespace
} // namespace vxctl::test

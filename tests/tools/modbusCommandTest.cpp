// What the tool tells of a Modbus device that refuses.
#include "support/udpPeer.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/runner.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <tuple>
#include <vector>

namespace vxctl::test {
namespace {

using vxsign::test::Bytes;
using vxsign::test::Hex;

// What a failed command prints on standard error, and as an object.
struct Failure
{
    std::string text;
    std::string json;
};

Failure Fail(const std::string& command, const char* answer)
{
    const vxsign::test::UdpPeer device([answer](const Bytes&) { return Hex(answer); });
    Session session;
    std::vector<std::string> words{
        "-s", "udp://127.0.0.1:" + std::to_string(device.Port()), "--timeout", "50", "--retries", "1"};
    std::istringstream more(command);
    for (std::string word; more >> word;)
        words.push_back(word);
    Failure printed;
    try {
        Execute(session, words);
        ADD_FAILURE() << "no failure";
    } catch (const SignFailure& failure) {
        EXPECT_EQ(failure.code, std::uint32_t{VX_COMMUNICATION});
        testing::internal::CaptureStderr();
        session.report.Finish(failure.code, failure.reason);
        printed.text = testing::internal::GetCapturedStderr();
        session.report.UseJson(true);
        testing::internal::CaptureStdout();
        session.report.Finish(failure.code, failure.reason);
        printed.json = testing::internal::GetCapturedStdout();
    }
    return printed;
}

TEST(ModbusCommand, TellsWhatTheDeviceRefused)
{
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"modbus LC get 7 5", "07 83 02 20F0", "the device refused: illegal data address"},
        {"modbus VSLS set 7 1 3 80", "07 86 04 A3A2", "the device refused: server device failure"},
        {"modbus LC get 7 5", "07 83 02 20F1", "check address, port, power and cable; "},
    };
    for (const auto& [command, digits, told] : rows) {
        SCOPED_TRACE(digits);
        const Failure failure = Fail(command, digits);
        const std::string head = "vxctl: error 20736 (0x5100): Communication Error!\n  ";
        EXPECT_EQ(failure.text.substr(0, (head + told).size()), head + told);
        const bool refused = std::string(told).starts_with("the device");
        EXPECT_EQ(failure.text.find("cable") == std::string::npos, refused);
        EXPECT_NE(failure.json.find((refused ? "\"reason\":\"" : "\"advice\":\"") + std::string(told)),
                  std::string::npos)
            << failure.json;
    }
}

} // namespace
} // namespace vxctl::test

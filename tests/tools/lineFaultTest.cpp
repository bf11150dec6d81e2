#include "vxctl/cli/lineFault.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <tuple>

namespace vxctl::test {
namespace {

TEST(LineFault, SaysWhatTheSystemKnows)
{
    // Error, reason, part of the advice.
    const std::tuple<int, const char*, const char*> rows[] = {
        {0, "", ""},
        {ECONNREFUSED, "connection refused by PLACE", "port"},
        {EHOSTUNREACH, "no route to PLACE", "address"},
        {ENETUNREACH, "no route to PLACE", "address"},
        {ENOENT, "PLACE: no such device", "vxctl ports"},
        {EACCES, "PLACE: permission denied", "dialout"},
        {EBUSY, "PLACE is busy", "another program"},
        {EIO, "PLACE: Input/output error", "cable"},
    };
    for (const auto& [error, reason, advice] : rows) {
        const LineFault fault = FaultOf(error, "PLACE");
        EXPECT_EQ(fault.reason, reason);
        EXPECT_NE(fault.advice.find(advice), std::string::npos) << fault.advice;
    }
}

} // namespace
} // namespace vxctl::test

#include "vxctl/cli/lineFault.h"

#include <gtest/gtest.h>

#include <cerrno>

namespace vxctl::test {
namespace {

TEST(LineFault, SaysWhatTheSystemKnows)
{
    const struct
    {
        int error;
        const char* reason;
        const char* advice; // part of it
    } rows[] = {
        {0, "", ""},
        {ECONNREFUSED, "connection refused by PLACE", "port"},
        {EHOSTUNREACH, "no route to PLACE", "address"},
        {ENETUNREACH, "no route to PLACE", "address"},
        {ENOENT, "PLACE: no such device", "vxctl ports"},
        {EACCES, "PLACE: permission denied", "dialout"},
        {EBUSY, "PLACE is busy", "another program"},
        {EIO, "PLACE: Input/output error", "cable"},
    };
    for (const auto& row : rows) {
        const LineFault fault = FaultOf(row.error, "PLACE");
        EXPECT_EQ(fault.reason, row.reason);
        EXPECT_NE(fault.advice.find(row.advice), std::string::npos) << fault.advice;
    }
}

} // namespace
} // namespace vxctl::test

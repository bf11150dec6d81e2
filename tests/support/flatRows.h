// Tables of flat commands: one row for each, its request by hand, the reply that comes, and what becomes of it.
#pragma once

#include "support/scriptedSign.h"

#include <functional>
#include <gtest/gtest.h>
#include <initializer_list>

namespace vxsign::test {

struct FlatRow
{
    const char* name;
    std::function<std::uint32_t()> call;
    std::uint8_t major;
    std::uint8_t minor;
    const char* payload;  // hexadecimal, as it goes out: padded to words
    const char* extended; // hexadecimal
};

/// Runs each row once against a sign that takes it and once against one that refuses it.
inline void ExpectRequests(std::initializer_list<FlatRow> rows)
{
    for (const FlatRow& row : rows) {
        SCOPED_TRACE(row.name);
        ScriptedSign sign;
        sign.Then(Good()).Then(Refusal(36912));
        EXPECT_EQ(row.call(), 0u);
        EXPECT_EQ(row.call(), 36912u);
        if (sign.requests.size() != 2) {
            ADD_FAILURE() << sign.requests.size() << " requests";
            continue;
        }
        for (const Packet& request : sign.requests) {
            EXPECT_EQ(request.Major(), row.major);
            EXPECT_EQ(request.Minor(), row.minor);
            EXPECT_EQ(request.Payload(), Hex(row.payload));
            EXPECT_EQ(request.Extended(), Hex(row.extended));
        }
    }
}

struct RefusedCall
{
    const char* name;
    std::function<std::uint32_t()> call;
};

/// Runs calls that must give "Arguments Error" with nothing sent.
inline void ExpectArgumentsError(std::initializer_list<RefusedCall> calls)
{
    for (const RefusedCall& refused : calls) {
        SCOPED_TRACE(refused.name);
        ScriptedSign sign;
        EXPECT_EQ(refused.call(), 2u);
        EXPECT_TRUE(sign.requests.empty());
        EXPECT_EQ(sign.opened, sign.closed);
    }
}

} // namespace vxsign::test

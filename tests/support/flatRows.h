// Tables of flat commands: one row for each, its request by hand, the reply that comes, and what becomes of it.
//
//   ExpectRequests        what goes out
//   ExpectReplies         what becomes of the reply
//   ExpectArgumentsError  calls that send nothing
#pragma once

#include "support/scriptedSign.h"

#include <array>
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

struct ReplyRow
{
    const char* name;
    std::function<std::uint32_t(std::uint8_t* out)> call; // puts all of its outputs into out
    const char* payload;                                  // hexadecimal, of the reply
    const char* extended;
    const char* out; // hexadecimal: all that is written
};

/// The output of a row that stands at an offset.
template <class T>
T* At(std::uint8_t* out, std::size_t offset)
{
    return reinterpret_cast<T*>(out + offset);
}

/// Runs each row once against a sign that answers, and once against one that refuses: then nothing is written.
inline void ExpectReplies(std::initializer_list<ReplyRow> rows)
{
    for (const ReplyRow& row : rows) {
        SCOPED_TRACE(row.name);
        ScriptedSign sign;
        sign.Then(Good(Hex(row.payload), Hex(row.extended))).Then(Refusal(36869));
        alignas(8) std::array<std::uint8_t, 256> out;
        const Bytes untouched(out.size(), 0xEE);
        Bytes expected = Hex(row.out);
        expected.resize(out.size(), 0xEE);

        out.fill(0xEE);
        EXPECT_EQ(row.call(out.data()), 0u);
        EXPECT_EQ(Bytes(out.begin(), out.end()), expected);
        out.fill(0xEE);
        EXPECT_EQ(row.call(out.data()), 36869u);
        EXPECT_EQ(Bytes(out.begin(), out.end()), untouched);
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

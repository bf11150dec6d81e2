// Tables of flat commands: a row for each call, with its request by hand, the reply that comes, and what becomes of it.
#pragma once

#include "support/scriptedSign.h"

#if !defined(_WIN32) // where there is a virtual sign
#include "sim/virtualSign.h"
#endif

#include <array>
#include <initializer_list>

namespace vxsign::test {

/// A call as the first two fields of a row. Its outputs go into `out`.
#define CALL(call) #call, [&]([[maybe_unused]] std::uint8_t * out) -> std::uint32_t { return call; }

struct FlatRow
{
    const char* name;
    std::function<std::uint32_t(std::uint8_t* out)> call;
    std::uint8_t major;
    std::uint8_t minor;
    const char* payload = ""; // hexadecimal, as it goes out: padded to words
    const char* extended = "";
    const char* reply = ""; // what comes back, payload and extended part
    const char* replyExtended = "";
    const char* written = ""; // hexadecimal: all that is written to `out`
};

/// Bytes to send.
inline constexpr std::uint8_t kCount[] = {1,  2,  3,  4,  5,  6,  7,  8,  9,  10, 11, 12, 13, 14, 15, 16, 17, 18,
                                          19, 20, 21, 22, 23, 24, 25, 26, 27, 28, 29, 30, 31, 32, 33, 34, 35, 36,
                                          37, 38, 39, 40, 41, 42, 43, 44, 45, 46, 47, 48, 49, 50, 51, 52};

/// An output at that place.
inline std::uint16_t* Word(std::uint8_t* at)
{
    return reinterpret_cast<std::uint16_t*>(at);
}
inline std::uint32_t* Long(std::uint8_t* at)
{
    return reinterpret_cast<std::uint32_t*>(at);
}
inline char* Chars(std::uint8_t* at)
{
    return reinterpret_cast<char*>(at);
}

#if !defined(_WIN32)
/// Whether the virtual sign, as a controller or not, has that command and takes a request of these lengths.
inline bool IsKnownToTheSign(const Packet& request)
{
    static const TempFolder folder;
    static vxsim::VirtualSign sign({.folder = folder.path});
    static const TempFolder other;
    static vxsim::VirtualSign controller({.folder = other.path, .controller = true});
    const auto knows = [&](vxsim::VirtualSign& witness) {
        const Packet reply{witness.Answer(request.bytes)};
        const unsigned code = reply.bytes.at(15) == 0 ? 0U : reply.Word(16);
        return code < 36868 || code > 36870; // unknown major, unknown minor, bad length
    };
    return knows(sign) || knows(controller);
}
#endif

/// Runs each row against a sign that answers and once more against one that refuses: then nothing is written. The
/// virtual sign has to know the request, unless it is none that a sign could take.
inline void ExpectFlat(std::initializer_list<FlatRow> rows, [[maybe_unused]] bool isKnown = true)
{
    for (const FlatRow& row : rows) {
        SCOPED_TRACE(row.name);
        ScriptedSign sign;
        sign.Then(Good(Hex(row.reply), Hex(row.replyExtended))).Then(Refusal(36912));
        alignas(8) std::array<std::uint8_t, 256> out;
        const Bytes untouched(out.size(), 0xEE);
        Bytes expected = Hex(row.written);
        expected.resize(out.size(), 0xEE);
        out.fill(0xEE);
        EXPECT_EQ(row.call(out.data()), 0u);
        EXPECT_EQ(Bytes(out.begin(), out.end()), expected);
        out.fill(0xEE);
        EXPECT_EQ(row.call(out.data()), 36912u);
        EXPECT_EQ(Bytes(out.begin(), out.end()), untouched);
        EXPECT_EQ(sign.requests.size(), 2u);
        for (const Packet& request : sign.requests) {
            EXPECT_EQ(request.Major(), row.major);
            EXPECT_EQ(request.Minor(), row.minor);
            EXPECT_EQ(request.Payload(), Hex(row.payload));
            EXPECT_EQ(request.Extended(), Hex(row.extended));
#if !defined(_WIN32)
            EXPECT_EQ(IsKnownToTheSign(request), isKnown);
#endif
        }
    }
}

} // namespace vxsign::test

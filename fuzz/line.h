// A line to a sign that answers out of the bytes of a run.
#pragma once

#include "fuzz/support.h"
#include "support/packets.h"

#include <vxsign/api.h>

#include <functional>

namespace vxsign::fuzz {

/// How an answer begins in the bytes of a run. Kinds count modulo their number.
enum Kind : std::uint8_t
{
    kGood,    // words of payload (8 bits), length of the extended part (16 bits), both parts
    kRefusal, // the code (16 bits)
    kSilence,
    kRaw,     // a block, as it stands
    kChanged, // as kGood; then place (16 bits), what becomes of the byte there, bytes cut off, stray bytes ahead
    kKinds
};

/// The line of the calling thread as long as it lives. All that waits on it waits on the clock.
class Line
{
public:
    using Answer = std::function<Bytes(const test::Packet& request)>;

    /// Answers to what looks like a request; silence is no bytes.
    explicit Line(Answer answer, std::uint32_t retries = 2);
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    /// Puts the callbacks back, for exports that bring a configuration of their own.
    void Install() const;

private:
    std::uint32_t retries;
};

/// As much as the extended part of an ordinary reply holds.
Bytes AsExtended(View bytes);

/// The next answer of a run; silence when it is over.
Bytes NextAnswer(Input& input, const test::Packet& request);

/// A sign whose files, however they are asked for, all have these bytes, and whose database gives them as rows. What
/// else it is asked gets the next answers of the run.
Bytes FileAnswer(View file, Input& input, const test::Packet& request);

} // namespace vxsign::fuzz

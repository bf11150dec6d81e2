// A sign that answers well-framed nonsense.
#pragma once

#include "hostile/arguments.h"
#include "support/bytes.h"

#include <vxsign/vxsign.h>

namespace vxsign::test {

// The reply to a request: any status, lengths up to what a header can say, contents that look like what was asked for.
// `mostBytes` bounds it for lines where a longer datagram is none; without a bound its tail may be missing too.
constexpr std::size_t kAnyReply = 16 + 1020 + 4700;
Bytes HostileReply(const Bytes& request, Random& random, std::size_t mostBytes);

// Contents of a file as signs and hosts have them, more or less.
Bytes HostileFile(Random& random);

// The calling thread's sign for one call, by callbacks that misbehave too.
class HostileSign
{
public:
    explicit HostileSign(Random& random);
    ~HostileSign();
    HostileSign(const HostileSign&) = delete;
    HostileSign& operator=(const HostileSign&) = delete;

    static vxApiConfig Config(Random& random);

    // What a call may take.
    struct Bound
    {
        std::uint32_t exchanges = 3; // with a sign that never answers what was asked
        std::uint32_t betweenTriesMs = 0;
    };
    // Whether the call waited no longer than the header says, for each request that it sent, and gave up in time. What
    // it rests between two requests does not count.
    static bool KeptItsTime(const Bound& bound);
    static bool WasWrittenTo();
};

} // namespace vxsign::test

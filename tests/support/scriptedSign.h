// A sign that answers by script, through onRead and onWrite, and keeps what was sent.
#pragma once

#include "support/packets.h"

#include <vxsign/vxsign.h>

#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace vxsign::test {

/// How one reply goes wrong on its way.
enum class Fault
{
    None,
    Drop,       // nothing arrives
    Late,       // arrives after the first read came back empty
    Truncate,   // the last four bytes are missing
    WrongId,    // answers another request
    WrongMajor, // answers another command
    BadSum,     // one bit of the checksum is wrong
    Noise,      // three stray bytes ahead
};

struct Answer
{
    std::uint8_t status = 0;
    Bytes payload;
    Bytes extended;
    Fault fault = Fault::None;
};

/// A good answer, and a refusal with the sign's code.
inline Answer Good(Bytes payload = {}, Bytes extended = {})
{
    return {0, std::move(payload), std::move(extended), Fault::None};
}
inline Answer Refusal(std::uint16_t code)
{
    return {1, {static_cast<std::uint8_t>(code), static_cast<std::uint8_t>(code >> 8), 0, 0}, {}, Fault::None};
}

struct LogLine
{
    std::string source;
    std::uint32_t line;
    std::uint32_t level;
    std::string message;
};

/// Installs itself as the calling thread's sign. At its end the test fails if answers are left over or a malformed
/// request was seen. Only one for each thread at a time.
class ScriptedSign
{
public:
    ScriptedSign();
    ~ScriptedSign();
    ScriptedSign(const ScriptedSign&) = delete;
    ScriptedSign& operator=(const ScriptedSign&) = delete;

    /// The next answers, in order. Without one the request stays unanswered.
    ScriptedSign& Then(Answer answer);
    ScriptedSign& Then(std::uint32_t times, const Answer& answer);

    /// Answers whatever is not scripted, if set.
    std::function<Answer(const Packet& request)> otherwise;
    /// Makes the bytes of each reply itself, in place of the script: one element for each read.
    std::function<std::deque<Bytes>(const Packet& request)> raw;
    /// Called at each read that finds nothing.
    std::function<void()> onEmptyRead;

    /// The thread's live record.
    vxApiConfig& Config() const { return *static_cast<vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION)); }
    /// Puts the callbacks back after an export that installs a configuration of its own.
    vxApiConfig MakeConfig() const;

    /// Major and minor of what was sent, as "1.16 2.8".
    std::string Road() const;

    std::vector<Packet> requests;
    std::vector<std::uint32_t> readWaits; // time-outs handed to onRead
    std::vector<std::uint32_t> progress;  // percentages
    std::vector<LogLine> log;
    int opened = 0;
    int closed = 0;

private:
    static ScriptedSign& Current();
    void Take(const Bytes& request);
    std::int32_t Give(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs);

    std::deque<Answer> script;
    std::deque<Bytes> arriving; // one element for each read; an empty one is a time-out
};

} // namespace vxsign::test

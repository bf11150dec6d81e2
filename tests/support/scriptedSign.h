// A sign that answers by script, through onRead and onWrite, and keeps what was sent.
#pragma once

#include "support/fakeClock.h"
#include "support/packets.h"
#include "support/tempFolder.h"

#include <vxsign/vxsign.h>

#include <functional>
#include <sstream>
#include <tuple>

namespace vxsign::test {

/// How one reply goes wrong on its way.
enum class Fault
{
    None,
    Late,       // arrives after the first read came back empty
    Noise,      // three stray bytes ahead
    Drop,       // nothing arrives; this and what follows costs a try
    Truncate,   // the last four bytes are missing
    WrongId,    // answers another request
    WrongMajor, // answers another command
    BadSum,     // one bit of the checksum is wrong
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
/// request was seen. A later one stands in front of it as long as it lives.
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
    /// What is sent are no packets of signs, but of another protocol.
    bool isForeign = false;
    /// Called at each read that finds nothing, which then finds what has come meanwhile.
    std::function<void()> onEmptyRead;
    /// Bytes come: one element for each read, an empty one is a time-out.
    void Arrive(std::deque<Bytes> pieces);
    /// As a new one in its place: nothing sent or told so far, the configuration as it was.
    void Renew();

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
    std::deque<Bytes> arriving;
    ScriptedSign* const former;
    const vxApiConfig formerConfig = Config();
};

/// A sign by script, a folder, where the library's own temporary files go too, and time that stands still.
template <class Sign>
class TestWith : public testing::Test
{
protected:
    TestWith() { ::setenv("TMPDIR", folder.Path().c_str(), 1); }
    ~TestWith() override { ::unsetenv("TMPDIR"); }

    const FakeClock clock; // 2020-05-13 10:20:30
    const TempFolder folder;
    Sign sign;
};
using ScriptedTest = TestWith<ScriptedSign>;

/// Parts of a script, one behind the other.
inline std::string Words(std::initializer_list<std::string_view> parts)
{
    std::string words;
    for (const std::string_view part : parts)
        words.append(part).append(" ");
    return words;
}

/// Scripts answers in a few words: "+0102" has a payload, "=0102" an extended part, "!3075" refuses with that code, "."
/// is a bare good one. Returns how many.
inline std::size_t Play(ScriptedSign& sign, const std::string& script)
{
    std::istringstream words(script);
    std::size_t count = 0;
    for (std::string word; words >> word; ++count) {
        const std::string rest = word.substr(1);
        if (word[0] == '!')
            sign.Then(Refusal(static_cast<std::uint16_t>(std::stoul(rest))));
        else
            sign.Then(word[0] == '+' ? Good(Hex(rest)) : Good({}, Hex(rest)));
    }
    return count;
}

} // namespace vxsign::test

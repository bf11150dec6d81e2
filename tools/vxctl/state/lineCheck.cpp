// Asks a sign a few times, and looks at what comes.
#include "vxctl/state/lineCheck.h"

#include "vxctl/cli/bytes.h"
#include "vxctl/cli/failure.h"
#include "vxctl/cli/progressBar.h"
#include "vxctl/sign/packetDump.h"

#include <vxsign/test.h>

#include <algorithm>
#include <array>

namespace vxctl {

namespace {

constexpr std::uint8_t kMajor = 3; // the connect test
constexpr std::uint8_t kMinor = 1;
constexpr std::size_t kIdAt = 10;
constexpr int kQuestions = 5;
constexpr int kEnough = 2; // unanswered ones at the start
constexpr std::uint32_t kLongestTimeoutMs = 60000;

struct Probe
{
    std::array<std::uint8_t, kRequestRoom> request{};
    std::array<std::uint8_t, kReplyRoom> reply{};

    std::uint32_t Ask()
    {
        return vxCustomTest(kMajor, kMinor, nullptr, 0, nullptr, 0, 0, request.data(), nullptr, reply.data(), nullptr);
    }
};

// What came in place of an answer.
int LineState::*FaultOf(const Probe& probe)
{
    const auto& reply = probe.reply;
    if (probe.request[0] == 0) // which is made behind the connection
        return &LineState::unconnected;
    if (std::ranges::count(reply, 0) == static_cast<std::ptrdiff_t>(reply.size()))
        return &LineState::silent;
    if (reply[0] != 0x55)
        return &LineState::noisy;
    if (reply[12] != kMajor || reply[13] != kMinor)
        return &LineState::damaged;
    return Load16(reply, kIdAt) != Load16(probe.request, kIdAt) ? &LineState::mistaken : &LineState::damaged;
}

// A sign that refuses has answered too.
bool AskOnce(LineState& line)
{
    Probe probe;
    const ProgressBar watch("line", true);
    const std::uint32_t result = probe.Ask();
    ++line.asked;
    line.isAborted = result == VX_ABORTED;
    if (result == VX_COMMUNICATION)
        ++(line.*FaultOf(probe));
    if (result == VX_COMMUNICATION || line.isAborted)
        return false;
    ++line.answered;
    line.slowestMs = std::max(line.slowestMs, watch.Seconds() * 1000);
    return true;
}

// Whether a silent sign answers when it is given twice the time.
bool IsLate(Session& session)
{
    Options& options = session.options;
    const std::uint32_t usual = options.timeoutMs;
    options.timeoutMs = std::min(2 * usual, kLongestTimeoutMs);
    session.Connect();
    options.timeoutMs = usual;
    LineState once;
    return AskOnce(once);
}

Trouble TroubleOf(const LineState& line, bool isSerial)
{
    const std::pair<int, Trouble> kinds[] = {{line.unconnected, Trouble::kNoConnection},
                                             {line.noisy, Trouble::kNoise},
                                             {line.damaged, Trouble::kBadSums},
                                             {line.mistaken, Trouble::kWrongIds}};
    const auto* const most = std::ranges::max_element(kinds);
    if (most->first != 0)
        return most->second;
    if (line.answered != 0)
        return Trouble::kLostPackets;
    if (line.isLate)
        return Trouble::kLateAnswers;
    return isSerial ? Trouble::kDeadSerialLine : Trouble::kDeadLine;
}

std::string CountsOf(const LineState& line)
{
    const std::pair<int, const char*> kinds[] = {{line.unconnected, "without connection"},
                                                 {line.silent, "silent"},
                                                 {line.noisy, "with bytes that are no packet"},
                                                 {line.damaged, "with a wrong sum"},
                                                 {line.mistaken, "with the answer to something else"}};
    std::string text = std::to_string(line.answered) + " of " + std::to_string(line.asked) + " answered";
    for (const auto& [count, name] : kinds) {
        if (count != 0)
            text.append(", ").append(std::to_string(count)).append(" ").append(name);
    }
    return text;
}

} // namespace

LineState ExamineLine(Session& session)
{
    // Over UDP alone a port at which nothing listens is as silent as a sign. What takes longer to come back than this
    // look shows when nothing has answered.
    constexpr int kShortLookMs = 100;
    LineState line;
    if (session.Sign().kind == VX_CHANNEL_UDP)
        line.fault = LookAtLine(session.options, kShortLookMs);
    if (!line.fault.reason.empty())
        return line;
    const std::uint32_t tries = session.options.retries;
    session.options.retries = 1; // so that lost packets are seen
    session.Connect();
    while (line.asked < kQuestions && (line.answered != 0 || line.asked < kEnough) && !line.isAborted)
        AskOnce(line);
    session.HangUp();
    if (line.answered == 0 && !line.isAborted)
        line.fault = LookAtLine(session.options);
    line.isLate = line.silent == line.asked && !line.isAborted && line.fault.reason.empty() && IsLate(session);
    session.options.retries = tries;
    session.Connect();
    return line;
}

void TellLine(const LineState& line, const Options& options, Findings& findings)
{
    const bool isSerial = options.url.starts_with("serial:");
    if (!line.fault.reason.empty())
        return findings.Add("line", Tone::kWrong, line.fault.reason,
                            isSerial ? Trouble::kDeadSerialLine : Trouble::kNoConnection, line.fault.advice);
    const Trouble trouble = TroubleOf(line, isSerial);
    const std::string longer = std::to_string(std::min(options.timeoutMs * 4, kLongestTimeoutMs));
    std::string text = CountsOf(line);
    if (line.answered == 0)
        return findings.Add("line", Tone::kWrong, text, trouble, {}, longer);
    text.append(", the slowest in ").append(std::to_string(static_cast<long>(line.slowestMs))).append(" ms");
    if (line.answered < line.asked)
        findings.Add("line", Tone::kDoubtful, text, trouble);
    else if (line.slowestMs > options.timeoutMs / 2.0)
        findings.Add("line", Tone::kDoubtful, text, Trouble::kSlowLine, {}, longer);
    else
        findings.Add("line", text);
}

} // namespace vxctl

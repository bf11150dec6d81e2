// A sign that answers by script.
#include "support/scriptedSign.h"

namespace vxsign::test {
namespace {

thread_local ScriptedSign* current = nullptr;

} // namespace

ScriptedSign& ScriptedSign::Current()
{
    return *current;
}

vxApiConfig ScriptedSign::MakeConfig() const
{
    vxApiConfig config{};
    config.retries = 3;
    config.timeoutMs = 3000;
    config.dataSize = 768;
    config.onOpen = [](vxApiConfig*) { ++Current().opened; };
    config.onClose = [](vxApiConfig*) { ++Current().closed; };
    config.onProgress = [](vxApiConfig*, std::uint32_t, std::uint32_t percent) {
        Current().progress.push_back(percent);
    };
    config.onLog = [](vxApiConfig*, const char* source, std::uint32_t line, std::uint32_t level, const char* message) {
        Current().log.push_back({source, line, level, message});
    };
    config.onWrite = [](vxApiConfig*, const std::uint8_t* bytes, std::uint32_t length, std::uint32_t) {
        Current().Take({bytes, bytes + length});
        return static_cast<std::int32_t>(length);
    };
    config.onRead = [](vxApiConfig*, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs) {
        return Current().Give(buffer, capacity, waitMs);
    };
    return config;
}

ScriptedSign::ScriptedSign() : former(std::exchange(current, this))
{
    Renew();
}

ScriptedSign::~ScriptedSign()
{
    EXPECT_TRUE(script.empty()) << script.size() << " scripted answers were not used";
    Config() = formerConfig;
    current = former;
}

ScriptedSign& ScriptedSign::Then(Answer answer)
{
    script.push_back(std::move(answer));
    return *this;
}

ScriptedSign& ScriptedSign::Then(std::uint32_t times, const Answer& answer)
{
    script.insert(script.end(), times, answer);
    return *this;
}

void ScriptedSign::Take(const Bytes& request)
{
    const char* const wrong = isForeign ? "" : Malformed(request);
    EXPECT_STREQ(wrong, "");
    if (*wrong != '\0' || request.empty())
        return;
    requests.push_back({request});
    const Packet& packet = requests.back();
    if (raw)
        return Arrive(raw(packet));
    if (script.empty() && !otherwise)
        return;
    Answer answer;
    if (script.empty())
        answer = otherwise(packet);
    else {
        answer = std::move(script.front());
        script.pop_front();
    }
    // A reply to another request has other bytes where it repeats them.
    Packet answered = packet;
    answered.bytes[10] ^= answer.fault == Fault::WrongId ? 1 : 0;
    answered.bytes[12] ^= answer.fault == Fault::WrongMajor ? 1 : 0;
    Bytes reply = MakeReply(answered, answer.status, answer.payload, answer.extended);
    if (answer.fault == Fault::Drop)
        return;
    if (answer.fault == Fault::Late)
        arriving.emplace_back();
    if (answer.fault == Fault::Truncate)
        reply.resize(reply.size() - 4);
    if (answer.fault == Fault::BadSum)
        reply[2] ^= 1;
    if (answer.fault == Fault::Noise)
        reply.insert(reply.begin(), {0x00, 0xA8, 0x55});
    arriving.push_back(std::move(reply));
}

void ScriptedSign::Arrive(std::deque<Bytes> pieces)
{
    std::move(pieces.begin(), pieces.end(), std::back_inserter(arriving));
}

void ScriptedSign::Renew()
{
    EXPECT_TRUE(script.empty()) << script.size() << " scripted answers were not used";
    script.clear();
    arriving.clear();
    requests.clear();
    readWaits.clear();
    progress.clear();
    log.clear();
    opened = closed = 0;
    const vxApiConfig config = MakeConfig();
    vxInitAPI(&config);
}

std::string ScriptedSign::Road() const
{
    std::string road;
    for (const Packet& request : requests)
        road += (road.empty() ? "" : " ") + std::to_string(request.Major()) + "." + std::to_string(request.Minor());
    return road;
}

std::int32_t ScriptedSign::Give(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs)
{
    readWaits.push_back(waitMs);
    if (arriving.empty() && onEmptyRead)
        onEmptyRead();
    if (arriving.empty())
        return 0;
    Bytes& piece = arriving.front();
    const std::size_t count = std::min<std::size_t>(piece.size(), capacity);
    std::copy_n(piece.begin(), count, buffer);
    piece.erase(piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(count));
    if (piece.empty())
        arriving.pop_front();
    return static_cast<std::int32_t>(count);
}

} // namespace vxsign::test

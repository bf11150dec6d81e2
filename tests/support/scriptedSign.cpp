// A sign that answers by script.
#include "support/scriptedSign.h"

#include <algorithm>
#include <gtest/gtest.h>

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

ScriptedSign::ScriptedSign()
{
    current = this;
    const vxApiConfig config = MakeConfig();
    vxInitAPI(&config);
}

ScriptedSign::~ScriptedSign()
{
    EXPECT_TRUE(script.empty()) << script.size() << " scripted answers were not used";
    const vxApiConfig nothing{};
    vxInitAPI(&nothing);
    Config().initialised = 0;
    current = nullptr;
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
    EXPECT_STREQ(Malformed(request), "");
    if (*Malformed(request) != '\0')
        return;
    requests.push_back({request});
    const Packet& packet = requests.back();
    if (raw) {
        for (Bytes& piece : raw(packet))
            arriving.push_back(std::move(piece));
        return;
    }
    if (script.empty() && !otherwise)
        return;
    Answer answer;
    if (script.empty())
        answer = otherwise(packet);
    else {
        answer = std::move(script.front());
        script.pop_front();
    }
    Bytes reply = MakeReply(packet, answer.status, answer.payload, answer.extended);
    switch (answer.fault) {
    case Fault::None:
        break;
    case Fault::Drop:
        return;
    case Fault::Late:
        arriving.emplace_back();
        break;
    case Fault::Truncate:
        reply.resize(reply.size() - 4);
        break;
    case Fault::WrongId: {
        Packet other = packet;
        other.bytes[10] ^= 1;
        reply = MakeReply(other, answer.status, answer.payload, answer.extended);
        break;
    }
    case Fault::WrongMajor: {
        Packet other = packet;
        other.bytes[12] ^= 1;
        reply = MakeReply(other, answer.status, answer.payload, answer.extended);
        break;
    }
    case Fault::BadSum:
        reply[2] ^= 1;
        break;
    case Fault::Noise:
        reply.insert(reply.begin(), {0x00, 0xA8, 0x55});
        break;
    }
    arriving.push_back(std::move(reply));
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
    if (arriving.empty()) {
        if (onEmptyRead)
            onEmptyRead();
        return 0;
    }
    Bytes& piece = arriving.front();
    const std::size_t count = std::min<std::size_t>(piece.size(), capacity);
    std::copy_n(piece.begin(), count, buffer);
    piece.erase(piece.begin(), piece.begin() + static_cast<std::ptrdiff_t>(count));
    if (piece.empty())
        arriving.pop_front();
    return static_cast<std::int32_t>(count);
}

} // namespace vxsign::test

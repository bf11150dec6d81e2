// Makes hostile replies.
#include "hostile/hostileSign.h"

#include "support/fakeClock.h"
#include "support/packets.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <string_view>

namespace vxsign::test {

namespace {

using namespace std::string_view_literals;

// How the files begin that exports read, fetch and send.
constexpr std::string_view kBeginnings[] = {
    "QZ00SAX\x1A"
    "1\x1C"
    "2\x0AI0\x0AO0\x0E"
    "20005HELLO\x04"sv,
    "NG\x01\0\x10\0\0\0"sv,
    "SQ\x04\0\x02\0\0\0"sv,
    "SQ\x06\0\x02\0\0\0\x01\x01"sv,
    "LD\x10\0\x02\0\0\0\x38\x02"sv,
    "GL\x01\0\x20\0\x04\0"sv,
    "PL\x05\0\x03\0\0\0\x01\0"sv,
    "<?xml version=\"1.0\"?><Errors><Error Name=\"PixelError\" Value=\"Num=12\"/></Errors>"sv,
    "<2020-05-13 10:20:30><1><2><3><text><>\r\n<"sv,
    "[Communication]\r\nIP=10.0.0.1\r\nBaud=9600\r\n"sv,
    "2020-05-13 10:20:30,1,2,3\r\n"sv,
    "put D:\\T\\A.NMG hostile/1\r\nD:\\T\\B.NMG hostile/2\r\n"sv,
    "TILE\x10\0\x10\0\x08\0\x08\0"sv,
    "BM\x36\x04\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0"sv,
};

constexpr std::size_t kMostWrites = 300; // of one call; then the sign falls silent

// How the line of a call behaves.
enum class Manner
{
    kAnswers,  // at once
    kTrickles, // a byte every 7 ms
    kDrips,    // a byte at the end of each read's time, of a reply that is as long as a header can say
    kFloods,   // replies to another request, one behind the other, without end
    kStops,    // announces a length, and nothing follows
    kSilent,
    kManners
};

thread_local Random* randomOfSign = nullptr;
thread_local Bytes waiting; // the reply, as far as it has not been read
thread_local std::size_t writes = 0;
thread_local auto manner = Manner::kAnswers;
thread_local std::uint64_t madeAtMs = 0;
thread_local std::uint64_t sleptBeforeMs = 0;

Bytes Some(Random& random, std::size_t size)
{
    Bytes made(size);
    random.Fill(made.data(), size);
    return made;
}

Bytes Words(Random& random, std::size_t count)
{
    Bytes made;
    for (std::size_t i = 0; i < count; ++i) {
        const std::uint64_t word = random.Chance(80) ? random.Below(120) : random.Number();
        for (int byte = 0; byte < 4; ++byte)
            made.push_back(static_cast<std::uint8_t>(word >> 8 * byte));
    }
    return made;
}

std::size_t AnyLength(Random& random)
{
    constexpr std::size_t kTypical[] = {0, 0, 16, 100, 768, 4700};
    return random.Below(kTypical[random.Below(std::size(kTypical))] + 1);
}

Bytes ReplyByManner(const Bytes& request)
{
    if (manner == Manner::kSilent)
        return {};
    Bytes reply = HostileReply(request, *randomOfSign, kAnyReply);
    if (reply.size() < 16)
        return reply;
    if (manner == Manner::kFloods)
        reply[10] ^= 1; // the id
    if (manner == Manner::kDrips)
        reply[4] = reply[5] = reply[14] = 0xFF;
    if (manner == Manner::kStops) {
        reply.resize(16);
        reply[14] |= 1; // something is still to come
    }
    return reply;
}

std::int32_t Read(vxApiConfig* /*config*/, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t timeoutMs)
{
    if (Arguments::throws)
        throw FromTheCaller();
    if (waiting.empty() || writes > kMostWrites) {
        FakeClock::Advance(std::max<std::uint32_t>(timeoutMs, 1));
        return randomOfSign->Chance(90) ? 0 : -1;
    }
    if (manner != Manner::kAnswers) {
        FakeClock::Advance(manner == Manner::kTrickles ? std::min(timeoutMs, 7U)
                           : manner == Manner::kFloods ? 1
                                                       : timeoutMs);
        capacity = manner == Manner::kTrickles || manner == Manner::kDrips ? 1 : capacity;
        if (manner == Manner::kFloods && waiting.size() < kAnyReply)
            waiting.insert(waiting.end(), waiting.begin(), waiting.end());
    }
    const std::size_t all = std::min<std::size_t>(waiting.size(), capacity);
    const std::size_t size = randomOfSign->Chance(80) ? all : randomOfSign->Below(all + 1);
    std::copy_n(waiting.begin(), size, buffer);
    waiting.erase(waiting.begin(), waiting.begin() + static_cast<std::ptrdiff_t>(size));
    return randomOfSign->Chance(1) ? INT32_MAX : static_cast<std::int32_t>(size);
}

std::int32_t Write(vxApiConfig* config, const std::uint8_t* bytes, std::uint32_t length, std::uint32_t /*timeoutMs*/)
{
    if (Arguments::throws && randomOfSign->Chance(50))
        throw FromTheCaller();
    if (randomOfSign->Chance(1) && randomOfSign->Chance(10))
        config->abortFlag = 1;
    ++writes;
    waiting = ReplyByManner(Bytes(bytes, bytes + length));
    return static_cast<std::int32_t>(length);
}

void Progress(vxApiConfig* /*config*/, std::uint32_t /*reserved*/, std::uint32_t /*percent*/)
{
    if (Arguments::throws)
        throw FromTheCaller();
}

} // namespace

Bytes HostileFile(Random& random)
{
    Bytes made;
    const std::string_view beginning = kBeginnings[random.Below(std::size(kBeginnings))];
    for (std::size_t times = random.Below(4); times != 0; --times)
        made.insert(made.end(), beginning.begin(), beginning.end());
    for (std::size_t changes = random.Below(4); !made.empty() && changes != 0; --changes)
        made[random.Below(made.size())] = static_cast<std::uint8_t>(random.Below(256));
    const Bytes rest = random.Chance(50) ? Words(random, random.Below(200)) : Some(random, AnyLength(random));
    made.insert(made.end(), rest.begin(), rest.end());
    return made;
}

Bytes HostileReply(const Bytes& request, Random& random, std::size_t mostBytes)
{
    // Devices and boot loaders speak without a header.
    if (request.size() < 16 || request[0] != 0x55) {
        constexpr std::array<std::uint8_t, 5> kControl = {'C', 0x06, 0x15, 0x18, 0x04};
        return random.Chance(50)   ? Bytes{kControl[random.Below(kControl.size())]}
               : random.Chance(50) ? request
                                   : Some(random, random.Below(64));
    }
    const std::uint8_t status = random.Chance(85) ? 0 : static_cast<std::uint8_t>(random.Below(256));
    Bytes payload = random.Chance(60) ? Words(random, random.Below(12)) : Some(random, random.Below(1021));
    if (random.Chance(10))
        payload = Packet{request}.Payload();
    Bytes extended = random.Chance(50) ? HostileFile(random) : Some(random, AnyLength(random));
    extended.resize(std::min(extended.size(), mostBytes - 16 - 4 * ((payload.size() + 3) / 4)));
    Bytes reply = MakeReply({request}, status, payload, extended);
    if (mostBytes == kAnyReply && random.Chance(4))
        reply.resize(random.Below(reply.size()));
    return reply;
}

vxApiConfig HostileSign::Config(Random& random)
{
    randomOfSign = &random;
    vxApiConfig config = {};
    config.kind = static_cast<std::uint32_t>(random.Below(3));
    config.retries = static_cast<std::uint32_t>(random.Below(4));
    config.timeoutMs = 50 + static_cast<std::uint32_t>(random.Below(3) * 475);
    config.dataSize = static_cast<std::uint16_t>(random.Number());
    config.onRead = Read;
    config.onWrite = Write;
    config.onProgress = Progress;
    return config;
}

HostileSign::HostileSign(Random& random)
{
    writes = 0;
    waiting.clear();
    manner = random.Chance(60) ? Manner::kAnswers
                               : static_cast<Manner>(random.Below(static_cast<std::uint64_t>(Manner::kManners)));
    const vxApiConfig config = Config(random);
    vxInitAPI(&config);
    madeAtMs = FakeClock::NowMs();
    sleptBeforeMs = FakeClock::SleptMs();
}

// A try lasts up to four times timeoutMs and half a second.
bool HostileSign::KeptItsTime(const Bound& bound)
{
    const auto* const config = static_cast<const vxApiConfig*>(vxTLSGet(VX_RECORD_CONFIGURATION));
    const std::uint64_t rested = FakeClock::SleptMs() - sleptBeforeMs;
    const std::uint64_t waited = FakeClock::NowMs() - madeAtMs - rested;
    const bool isEnough = manner < Manner::kDrips || writes <= std::uint64_t{bound.exchanges} * config->retries;
    return isEnough && waited <= (writes + 1) * (4 * std::uint64_t{config->timeoutMs} + 500 + bound.betweenTriesMs);
}

bool HostileSign::WasWrittenTo()
{
    return writes != 0;
}

HostileSign::~HostileSign()
{
    randomOfSign = nullptr;
}

} // namespace vxsign::test

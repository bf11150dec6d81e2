// A line to a sign that answers out of the bytes of a run.
#include "fuzz/line.h"

#include <utility>

namespace vxsign::fuzz {
namespace {

constexpr std::size_t kLongestRead = 1 << 20; // that may wait unread
constexpr std::uint32_t kLookMs = 20;         // a look without waiting takes time too
constexpr int kMostAnswers = 4096;            // of a run: whoever announces gigabytes may never end

Line::Answer answerOfLine;
Bytes arriving;
int answersLeft;

Bytes Framed(Input& input, const test::Packet& request)
{
    const std::size_t words = input.U8();
    const std::size_t extended = input.U16();
    const Bytes payload = input.Whole(4 * words);
    return test::MakeReply(request, 0, payload, input.Whole(extended));
}

Bytes Changed(Input& input, const test::Packet& request)
{
    Bytes reply = Framed(input, request);
    const std::size_t place = input.U16();
    reply[place % reply.size()] = input.U8();
    reply.resize(reply.size() - std::min<std::size_t>(input.U8(), reply.size()));
    const View ahead = input.Some(input.U8());
    reply.insert(reply.begin(), ahead.begin(), ahead.end());
    return reply;
}

std::int32_t Take(vxApiConfig*, const std::uint8_t* bytes, std::uint32_t length, std::uint32_t)
{
    // What is no packet, for instance Modbus, gets an answer as if it were one.
    test::Packet request{{bytes, bytes + length}};
    request.bytes.resize(std::max<std::size_t>(length, 16));
    const Bytes reply = answersLeft > 0 ? answerOfLine(request) : Bytes();
    --answersLeft;
    if (arriving.size() < kLongestRead)
        arriving.insert(arriving.end(), reply.begin(), reply.end());
    return static_cast<std::int32_t>(length);
}

std::int32_t Give(vxApiConfig*, std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t waitMs)
{
    if (arriving.empty())
        test::FakeClock::Advance(std::max(waitMs, kLookMs));
    const auto count = std::min<std::size_t>(capacity, arriving.size());
    std::copy_n(arriving.begin(), count, buffer);
    arriving.erase(arriving.begin(), arriving.begin() + static_cast<std::ptrdiff_t>(count));
    return static_cast<std::int32_t>(count);
}

} // namespace

Line::Line(Answer answer, std::uint32_t tries) : retries(tries)
{
    answerOfLine = std::move(answer);
    arriving.clear();
    answersLeft = kMostAnswers;
    Install();
}

Line::~Line()
{
    answerOfLine = nullptr;
    const vxApiConfig nothing{};
    vxInitAPI(&nothing);
}

void Line::Install() const
{
    vxApiConfig config{};
    config.retries = retries;
    config.timeoutMs = 100;
    config.dataSize = 768;
    config.onRead = Give;
    config.onWrite = Take;
    config.onMessageToGif = [](vxApiConfig*, const char*, const char*, std::uint32_t, std::uint32_t) { return 0U; };
    vxInitAPI(&config);
}

Bytes AsExtended(View bytes)
{
    const View some = bytes.first(std::min<std::size_t>(1400, bytes.size()));
    return {some.begin(), some.end()};
}

Bytes NextAnswer(Input& input, const test::Packet& request)
{
    if (input.IsOver())
        return {};
    switch (input.U8() % kKinds) {
    case kGood:
        return Framed(input, request);
    case kRefusal: {
        const std::uint8_t low = input.U8();
        return test::MakeReply(request, 1, {low, input.U8(), 0, 0}, {});
    }
    case kRaw: {
        const View raw = input.Block();
        return {raw.begin(), raw.end()};
    }
    case kChanged:
        return Changed(input, request);
    default:
        return {};
    }
}

Bytes FileAnswer(View file, Input& input, const test::Packet& request)
{
    const unsigned minor = request.Minor();
    if (request.Major() != 1 || request.bytes.size() < 24)
        return NextAnswer(input, request);
    const auto size = static_cast<std::uint32_t>(file.size());
    const auto part = [&](std::size_t chunk, std::size_t number) {
        const std::size_t at = std::min(chunk * (number - 1), file.size());
        const View bytes = file.subspan(at, std::min(chunk, file.size() - at));
        Bytes payload(8);
        for (int i = 0; i < 4; ++i)
            payload[static_cast<std::size_t>(4 + i)] = static_cast<std::uint8_t>(size >> (8 * i));
        return test::MakeReply(request, 0, payload, {bytes.begin(), bytes.end()});
    };
    if (minor == 8)
        return part(request.Word(16), request.Word(18));
    if (minor == 17 || minor == 31)
        return part(request.Word(16), request.Word(20));
    if (minor == 21)
        return test::MakeReply(request, 0, {2, 0, 0, 0}, AsExtended(file));
    return NextAnswer(input, request);
}

} // namespace vxsign::fuzz

#include "sim/server/answers.h"

#include "sim/devices/modbusFrames.h"

#include <utility>

namespace vxsim {
namespace {

constexpr std::uint64_t kFirstConnection = 65536; // above all ports

void Add(std::vector<std::uint8_t> reply, Replies& replies)
{
    if (!reply.empty())
        replies.push_back(std::move(reply));
}

} // namespace

template <typename Request>
void Answers::AnswerPacket(const Request& request, std::span<const std::uint8_t> bytes, const Arrival& arrival,
                           Replies& replies)
{
    const auto begin = Clock::now();
    VirtualSign* const sign = signAt(arrival.nowMs);
    std::vector<std::uint8_t> reply = sign != nullptr ? sign->Answer(request, arrival) : std::vector<std::uint8_t>();
    const auto took = Clock::now() - begin;
    reply = injector.Apply(std::move(reply));
    if (tell)
        tell({arrival, bytes, reply, took});
    Add(std::move(reply), replies);
}

Replies Answers::ToDatagram(Speech speech, std::span<const std::uint8_t> request, const Arrival& arrival)
{
    Replies replies;
    if (unplugged)
        return replies;
    if (speech == Speech::kPackets) {
        AnswerPacket(request, request, arrival, replies);
    } else {
        std::vector<std::uint8_t> bytes(request.begin(), request.end());
        AnswerModbus(speech, bytes, arrival.nowMs, replies);
    }
    return replies;
}

std::optional<Replies> Answers::ToLine(StreamLine& line, std::uint64_t nowMs, Shares& shares)
{
    Replies replies;
    if (unplugged) {
        line.Forget();
        line.SetPending(false);
        return replies;
    }
    line.SetPending(true);
    while (true) {
        if (!shares.IsLeft(line.Host()))
            return replies;
        const Shares::Spending spending(shares, line.Host());
        const auto frame = line.Finder().Next();
        if (!frame)
            break;
        AnswerPacket(*frame, frame->bytes, {nowMs, line.Host(), kFirstConnection + line.Number()}, replies);
    }
    line.SetPending(false);
    const Shares::Spending spending(shares, line.Host());
    std::vector<std::uint8_t>& bytes = line.Bytes();
    if (line.Spoken() == Speech::kXmodem) {
        AddBytes(bootLoader->Take(std::exchange(bytes, {}), nowMs), replies);
        return replies;
    }
    const auto skipped = line.Finder().TakeSkipped();
    bytes.insert(bytes.end(), skipped.begin(), skipped.end());
    if (devices != nullptr && !AnswerModbus(line.Spoken(), bytes, nowMs, replies))
        return std::nullopt;
    return replies;
}

Replies Answers::OfBootLoader(std::uint64_t nowMs)
{
    Replies replies;
    AddBytes(bootLoader->KeepUp(nowMs), replies);
    if (unplugged)
        replies.clear();
    return replies;
}

// False if what came is no Modbus TCP.
bool Answers::AnswerModbus(Speech speech, std::vector<std::uint8_t>& bytes, std::uint64_t nowMs, Replies& replies)
{
    if (!bytes.empty())
        signAt(nowMs); // has the folder that they are kept in, and shows them
    auto answers = speech == Speech::kModbusTcp ? AnswerModbusTcp(*devices, bytes) : AnswerModbusRtu(*devices, bytes);
    for (std::vector<std::uint8_t>& answer : answers.value_or(ModbusAnswers()))
        AddBytes(std::move(answer), replies);
    return answers.has_value();
}

void Answers::AddBytes(std::vector<std::uint8_t> reply, Replies& replies)
{
    Add(injector.ApplyToBytes(std::move(reply)), replies);
}

} // namespace vxsim

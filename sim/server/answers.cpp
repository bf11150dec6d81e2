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

Replies Answers::ToDatagram(Speech speech, std::span<const std::uint8_t> request, const Arrival& arrival)
{
    Replies replies;
    std::vector<std::uint8_t> bytes(request.begin(), request.end());
    if (speech == Speech::kPackets)
        Add(injector.Apply(sign.Answer(request, arrival)), replies);
    else
        AnswerModbus(speech, bytes, replies);
    return replies;
}

std::optional<Replies> Answers::ToLine(StreamLine& line, std::uint64_t nowMs, Shares& shares)
{
    Replies replies;
    line.SetPending(true);
    while (true) {
        if (!shares.IsLeft(line.Host()))
            return replies;
        const Shares::Spending spending(shares, line.Host());
        const auto frame = line.Finder().Next();
        if (!frame)
            break;
        Add(injector.Apply(sign.Answer(*frame, {nowMs, line.Host(), kFirstConnection + line.Number()})), replies);
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
    if (devices != nullptr && !AnswerModbus(line.Spoken(), bytes, replies))
        return std::nullopt;
    return replies;
}

Replies Answers::OfBootLoader(std::uint64_t nowMs)
{
    Replies replies;
    AddBytes(bootLoader->KeepUp(nowMs), replies);
    return replies;
}

// False if what came is no Modbus TCP.
bool Answers::AnswerModbus(Speech speech, std::vector<std::uint8_t>& bytes, Replies& replies)
{
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

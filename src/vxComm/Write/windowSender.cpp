// Files to the sign with several packets on their way at a time. The first and the last packet go out alone, each
// waiting for its reply, so that the sign has opened the file before the rest comes and closes it behind the rest.
#include "vxComm/Write/vxWriteLED.h"

#include "platform/clock.h"
#include "platform/stop.h"

#include <vxsign/local.h>

#include <algorithm>
#include <cstring>
#include <thread>

namespace vxsign {
namespace {

constexpr std::uint8_t kMajor = 2;
constexpr std::uint8_t kMinor = 13;
constexpr std::size_t kSlots = 8;
constexpr std::uint32_t kResendAfterSec = 4;
constexpr std::uint32_t kLongestFrame = header::kSize + FileRecord::kLongest + 1280;
constexpr int kReadsInARow = 64;
constexpr std::uint32_t kLooks = 50; // ahead of a rest
constexpr std::uint32_t kRestMs = 5;
constexpr std::uint32_t kWindowFailedLine = 0; // the window has no line that applications know

struct Slot
{
    std::uint32_t packetId = 0; // awaited; 0: the slot is free
    std::uint32_t length = 0;
    std::uint8_t sends = 0;
    std::uint32_t lastSentSec = 0;
    std::array<std::uint8_t, kLongestFrame> frame;
};

bool ReadAt(const File& file, std::uint64_t offset, void* buffer, std::size_t size, std::size_t& count)
{
    // Most chunks follow the one before: a seek would throw the stream's buffer away.
    if (Position(file) != offset && !Seek(file, offset))
        return false;
    count = ReadSome(file, buffer, size);
    return true;
}

// The acknowledgements that come back, in whatever pieces.
class Acknowledgements
{
public:
    // Room for what comes next.
    std::uint8_t* Free() { return bytes.data() + used; }
    std::uint32_t Capacity() const { return static_cast<std::uint32_t>(bytes.size() - used); }

    // Takes `count` new bytes, frees the slots that they acknowledge and returns how many these are.
    std::uint32_t Take(std::size_t count, std::array<Slot, kSlots>& slots)
    {
        std::uint32_t acknowledged = 0;
        used += count;
        for (;;) {
            Drop(FindStart());
            if (used < header::kSize)
                break;
            const std::uint32_t length = TotalLength(bytes.data());
            if (length <= bytes.size() && used < length)
                break;
            // Behind a frame that fails a check the rest of what was read passes unread.
            if (length > bytes.size() || !IsAcknowledgement(length)) {
                used = 0;
                break;
            }
            const std::uint16_t id = Load16(bytes.data() + header::kPacketId);
            const auto slot = std::find_if(slots.begin(), slots.end(), [&](const Slot& s) { return s.packetId == id; });
            if (id != 0 && slot != slots.end()) {
                slot->packetId = 0;
                ++acknowledged;
            }
            Drop(length);
        }
        return acknowledged;
    }

private:
    // The position of 'U' with a byte above 0xA0 behind it, or of a last 'U' whose successor is still to come.
    std::size_t FindStart() const
    {
        std::size_t at = 0;
        while (at < used && (bytes[at] != kSync || (at + 1 < used && bytes[at + 1] <= 0xA0)))
            ++at;
        return at;
    }

    bool IsAcknowledgement(std::uint32_t length) const
    {
        const std::uint8_t* const frame = bytes.data();
        if (frame[1] != kReplySum && frame[1] != kReplyCrc)
            return false;
        const std::uint32_t mode = frame[1] == kReplySum ? kSumMode : kCrcMode;
        return frame[header::kMajor] == kMajor && frame[header::kMinor] == kMinor &&
               length >= header::kSize + sizeof(std::uint16_t) &&
               Load16(frame + header::kChecksum) == vxChkSum(frame, header::kExtendedLength, length, mode) &&
               Load16(frame + header::kSize) == VX_PROCESS_OK;
    }

    void Drop(std::size_t count)
    {
        used -= count;
        std::memmove(bytes.data(), bytes.data() + count, used);
    }

    std::array<std::uint8_t, kReplySize> bytes;
    std::size_t used = 0;
};

} // namespace

std::uint32_t vxWriteLED::SendFileWindowed(const char* path, const char* local)
{
    Source source;
    std::uint32_t result = OpenSource(local, source);
    if (result != VX_OK)
        return result;
    const std::uint32_t total = PacketCount(source.size, source.chunkSize);
    FileRecord record;
    record.U32(source.size).U16(static_cast<std::uint16_t>(source.chunkSize)).U32(total).PacketNumber32().Path(path);

    result = SendFileChunk(1, record, source);
    if (result != VX_OK)
        return result;
    Progress(0); // the one report of this operation
    if (total > 2)
        result = SendWindowBody(total, record, source);
    // A file of one packet sends it twice.
    return result == VX_OK ? SendFileChunk(total, record, source) : result;
}

std::uint32_t vxWriteLED::SendFileChunk(std::uint32_t number, FileRecord& record, const Source& source)
{
    std::size_t count = 0;
    record.SetPacketNumber(number);
    if (!ReadAt(source.file, std::uint64_t{source.chunkSize} * (number - 1), Staging(), source.chunkSize, count))
        return VX_CALL;
    return Request(kMajor, kMinor, record.Bytes(), {Staging(), count});
}

// Nothing has come and nothing is due: rests on the channel until something comes, for a moment at most. Before that it
// just looks again, as a near sign's answer is there before a sleeper would be awake. Callbacks are asked without a
// time to wait, so the rest is in front of their next look.
std::uint32_t vxWriteLED::AwaitInput(std::uint32_t looks, std::uint8_t* buffer, std::uint32_t capacity)
{
    if (looks < kLooks) {
        std::this_thread::yield();
        return 0;
    }
    if (useChannel == 0) {
        platform::Rest(kRestMs);
        return 0;
    }
    const std::uint64_t start = platform::clock.monotonicMs();
    const std::uint32_t count = RawRecv(buffer, capacity, kRestMs);
    if (count == 0 && platform::clock.monotonicMs() == start)
        platform::clock.sleepMs(kRestMs); // a channel whose far end has gone does not wait
    return count;
}

std::uint32_t vxWriteLED::SendWindowBody(std::uint32_t total, FileRecord& record, const Source& source)
{
    const auto recordLength = static_cast<std::uint32_t>(record.Bytes().size());
    std::array<Slot, kSlots> slots;
    Acknowledgements replies;
    std::uint32_t next = 2;
    std::uint32_t acknowledged = 0;
    std::uint32_t failure = VX_OK;
    std::uint32_t now = 0;
    std::uint32_t lastBusySec = 0;
    std::uint32_t looks = 0; // since something came

    const auto send = [&](Slot& slot) {
        RawSend(slot.frame.data(), slot.length, config->timeoutMs);
        slot.lastSentSec = now;
    };
    const auto fill = [&](Slot& slot) {
        std::size_t count = 0;
        record.SetPacketNumber(next);
        if (!ReadAt(source.file, std::uint64_t{source.chunkSize} * (next - 1), Staging(), source.chunkSize, count)) {
            failure = VX_CALL;
            return;
        }
        BuildPacket(slot.frame.data(), kMajor, kMinor, record.Bytes().data(), recordLength, Staging(),
                    static_cast<std::uint32_t>(count));
        // Id 0, once in the 65536 packets of a process, is that of a free slot: its acknowledgement is never counted.
        slot.packetId = packetId;
        slot.length = TotalLength(slot.frame.data());
        slot.sends = 1;
        ++next;
        send(slot);
    };

    while (acknowledged < total - 2) {
        now = vxSystemUpTimeSec();
        for (Slot& slot : slots) {
            if (slot.packetId != 0 && now - slot.lastSentSec >= kResendAfterSec) {
                if (slot.sends++ > config->retries) {
                    failure = VX_COMMUNICATION;
                    break;
                }
                send(slot);
            } else if (slot.packetId == 0 && next <= total - 1)
                fill(slot);
            if (Aborted())
                failure = VX_ABORTED;
        }
        // With nothing on its way and nothing left to send, a count that is not reached never will be.
        const bool busy = next < total || std::ranges::any_of(slots, [](const Slot& s) { return s.packetId != 0; });
        if (busy)
            lastBusySec = now;
        else if (failure == VX_OK && now - lastBusySec >= (config->retries + 1) * kResendAfterSec)
            failure = VX_COMMUNICATION;
        if (failure != VX_OK) {
            Log(kWindowFailedLine, 3, vxErrorDesc(failure));
            return failure;
        }
        // A sign that never stops talking does not keep the loop from its time-outs.
        std::uint32_t count = 1;
        for (int reads = 0; count != 0 && reads < kReadsInARow; ++reads) {
            count = RawRecv(replies.Free(), replies.Capacity(), 0);
            if (count == 0 && reads == 0)
                count = AwaitInput(looks++, replies.Free(), replies.Capacity());
            if (count == 0)
                continue;
            acknowledged += replies.Take(count, slots);
            looks = 0;
        }
    }
    return VX_OK;
}

} // namespace vxsign

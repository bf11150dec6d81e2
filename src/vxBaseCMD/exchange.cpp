// The exchange: a request goes out, a reply is gathered out of a stream or a run of datagrams, checked, and turned into
// a result word.
#include "vxBaseCMD/vxBaseCMD.h"

#include "platform/clock.h"

#include <algorithm>
#include <cstring>

namespace vxsign {
namespace {

// How long each read of a gathering waits, and whether both of its loops share one count of polls.
struct Pace
{
    std::uint32_t firstMs;
    std::uint32_t searchMs;
    std::uint32_t restMs;
    bool sharedPolls;
};
constexpr Pace kChannelPace{100, 100, 200, true};
constexpr Pace kCallbackPace{500, 200, 200, false};

constexpr std::uint32_t kPollMs = 100;        // timeoutMs is counted in polls of this length
constexpr std::uint32_t kGatherScan = 10;     // positions at which a gathered reply may begin
constexpr std::uint32_t kCheckScan = 6;       // positions at which a checked reply may begin
constexpr std::uint32_t kFailedTryLine = 606; // lines that applications know from their logs
constexpr std::uint32_t kFailedCommandLine = 635;

// The reads of one try, counted in polls. On a channel it is no matter how many pieces a reply comes in: reads that
// brought something are not held against it as long as timeoutMs is not over.
class Reads
{
public:
    Reads(std::uint32_t timeoutMs, bool onChannel)
        : polls(timeoutMs / kPollMs), timed(onChannel), end(onChannel ? platform::clock.monotonicMs() + timeoutMs : 0)
    {
    }

    bool Left() const { return used < polls || (timed && empty < std::max(polls, 1u) && TimeLeft() != 0); }

    // How long the next read may wait: no longer than to the end once the polls are used up.
    std::uint32_t Wait(std::uint32_t ms) const { return used < polls ? ms : std::min(ms, TimeLeft()); }

    void Count(std::uint32_t bytes)
    {
        ++used;
        empty += bytes == 0 ? 1 : 0;
    }

    void BeginAnew() { used = 0; }

private:
    std::uint32_t TimeLeft() const
    {
        const std::uint64_t now = platform::clock.monotonicMs();
        return now < end ? static_cast<std::uint32_t>(end - now) : 0;
    }

    std::uint32_t polls;
    bool timed;
    std::uint64_t end;
    std::uint32_t used = 0;
    std::uint32_t empty = 0; // that brought nothing
};

// Moves the bytes from `from` on to the start and clears the place they leave.
void MoveToStart(std::uint8_t* bytes, std::uint32_t from, std::uint32_t length)
{
    std::memmove(bytes, bytes + from, length - from);
    std::memset(bytes + length - from, 0, from);
}

// Looks for the start of a reply near the start of what was gathered. False leaves the bytes at the last start seen.
bool FindReply(std::uint8_t* reply, std::uint32_t& got)
{
    for (std::uint32_t i = 0; i < kGatherScan && i + 1 < got; ++i) {
        if (!IsReplySync(reply + i))
            continue;
        MoveToStart(reply, i, got);
        got -= i;
        if (got >= header::kSize)
            return true;
    }
    return false;
}

} // namespace

std::uint32_t CBaseCMD::Exchange(const std::uint8_t* request, std::uint32_t requestLength, std::uint8_t* reply)
{
    if (requestLength > kRequestSize)
        return VX_ARGUMENTS;
    // A reply that runs over destroys the request buffer, and every try sends the same bytes: so they are kept here.
    std::array<std::uint8_t, kRequestSize> sent;
    if (request != nullptr)
        std::memcpy(sent.data(), request, requestLength);
    const std::uint8_t* const kept = request != nullptr ? sent.data() : nullptr;
    const bool whole = kept != nullptr && requestLength >= header::kSize;
    const std::uint8_t major = whole ? kept[header::kMajor] : 0;
    const std::uint8_t minor = whole ? kept[header::kMinor] : 0;

    std::uint32_t status = kBadReply;
    for (std::uint32_t tries = 0; status == kBadReply && tries < config->retries; ++tries) {
        if (Aborted())
            return VX_ABORTED;
        const std::uint32_t got = ReceiveFrame(kept, requestLength, reply, kReplySize);
        status = CheckReply(major, minor, reply, got);
        if (status == kBadReply)
            Log(kFailedTryLine, 6, "Read Data Timeout Or Error");
    }

    std::uint32_t result = VX_INCONSISTENT_SYNC;
    if (status == kBadReply)
        result = VX_COMMUNICATION;
    else if (status == 0)
        result = VX_OK;
    else if (status == 1) {
        const std::uint16_t code = Load16(reply + header::kSize);
        result = code == VX_PROCESS_OK ? static_cast<std::uint32_t>(VX_OK) : code;
    }
    if (result != VX_OK)
        Log(kFailedCommandLine, 3, vxErrorDesc(result));
    return result;
}

std::uint32_t CBaseCMD::ReceiveFrame(const std::uint8_t* request, std::uint32_t requestLength, std::uint8_t* reply,
                                     std::uint32_t capacity)
{
    std::uint32_t got = 0;
    try {
        Gather(request, requestLength, reply, capacity, got);
    } catch (...) { // a serial line that failed: what came before it counts
    }
    return got;
}

void CBaseCMD::Gather(const std::uint8_t* request, std::uint32_t requestLength, std::uint8_t* reply,
                      std::uint32_t capacity, std::uint32_t& got)
{
    const Pace& pace = useChannel != 0 ? kChannelPace : kCallbackPace;
    const std::uint32_t room = capacity < kReplySize ? capacity : Room(reply);

    if (useChannel == 0)
        config->onWrite(config, request, requestLength, config->timeoutMs);
    else if (link.channel && request != nullptr && requestLength != 0)
        link.channel->Write(reinterpret_cast<const char*>(request), requestLength, config->timeoutMs);

    std::memset(reply, 0, capacity);
    Reads reads(config->timeoutMs, useChannel != 0);
    got = capacity != 0 ? Read(reply, capacity, pace.firstMs) : 0;
    reads.Count(got);
    const auto append = [&](std::uint32_t waitMs) {
        std::uint8_t piece[kReplySize];
        const std::uint32_t fits = std::min(Read(piece, sizeof piece, reads.Wait(waitMs)), room - got);
        std::memcpy(reply + got, piece, fits);
        got += fits;
        reads.Count(fits);
    };

    // The waits of a channel end with the flag; those of onRead are the caller's, and have their reads.
    const auto isCutShort = [this] { return useChannel != 0 && Aborted(); };
    bool found = false;
    while (!found && reads.Left() && !isCutShort()) {
        if (got < header::kSize && got >= room)
            return;
        if (got < header::kSize) {
            append(pace.searchMs);
            continue;
        }
        reads.Count(got); // a look at what has come takes a poll too
        found = FindReply(reply, got);
        if (!found && got >= header::kSize)
            return; // no reply begins there
    }
    if (!found)
        return;

    const std::uint32_t total = TotalLength(reply);
    if (total > room)
        return; // more than there is place for: this try is lost
    if (!pace.sharedPolls)
        reads.BeginAnew();
    while (got < total && reads.Left() && !isCutShort())
        append(pace.restMs);
}

std::uint32_t CBaseCMD::CheckReply(std::uint8_t major, std::uint8_t minor, std::uint8_t* reply, std::uint32_t length)
{
    if (length < header::kSize)
        return kBadReply;
    for (std::uint32_t i = 0; i < kCheckScan; ++i)
        if (IsReplySync(reply + i)) {
            MoveToStart(reply, i, length);
            break;
        }
    if (!IsReplySync(reply))
        return kBadReply;
    if (Load16(reply + header::kPacketId) != packetId || reply[header::kMajor] != major ||
        reply[header::kMinor] != minor)
        return kBadReply;

    const std::uint32_t total = TotalLength(reply);
    if (total > Room(reply))
        return kBadReply;
    // What did not arrive counts as zero, and normally makes the checksum wrong.
    if (total > length)
        std::memset(reply + length, 0, total - length);
    const std::uint32_t mode = reply[1] == kReplySum ? kSumMode : kCrcMode;
    if (Load16(reply + header::kChecksum) != vxChkSum(reply, header::kExtendedLength, total, mode))
        return kBadReply;
    return reply[header::kStatus];
}

std::uint32_t CBaseCMD::Read(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t timeoutMs)
{
    if (useChannel != 0)
        return link.channel ? link.channel->Read(reinterpret_cast<char*>(buffer), capacity, timeoutMs) : 0;
    const std::int32_t count = config->onRead(config, buffer, capacity, timeoutMs);
    return count > 0 ? std::min(static_cast<std::uint32_t>(count), capacity) : 0;
}

std::uint32_t CBaseCMD::RawSend(const std::uint8_t* buffer, std::uint32_t length, std::uint32_t timeoutMs)
{
    try {
        if (useChannel == 0)
            config->onWrite(config, buffer, length, timeoutMs);
        else if (link.channel && buffer != nullptr && length != 0)
            link.channel->Write(reinterpret_cast<const char*>(buffer), length, timeoutMs);
    } catch (...) { // unframed sending reports nothing
    }
    return 0;
}

std::uint32_t CBaseCMD::RawRecv(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t timeoutMs)
{
    if (buffer == nullptr || capacity == 0)
        return 0;
    try {
        return Read(buffer, capacity, timeoutMs);
    } catch (...) {
        return 0;
    }
}

} // namespace vxsign

// CBaseCMD: one command to one sign, from its request to its reply.
#pragma once

#include "channels/CommLink.h"
#include "thread/threadRecords.h"
#include "vxBaseCMD/packet.h"

#include <vxsign/api.h>
#include <vxsign/result.h>

#include <array>
#include <cstdint>

namespace vxsign {

constexpr std::uint32_t kReplySize = 1536;
constexpr std::uint32_t kRequestSize = 3072;
/// A reply that is longer than its buffer runs on into the request's, and no further.
constexpr std::uint32_t kReplyRoom = kReplySize + kRequestSize;

/// The root of all command families; each groups operations and adds no members. Lives on the stack of one exported
/// call (see call.h).
class CBaseCMD
{
    std::array<std::uint8_t, kReplyRoom> buffers; // cleared as far as a packet needs, when it is built or read

public:
    /// Puts the numbers of the thread's record right, for good, makes the channel object (unopened) and calls onOpen.
    CBaseCMD();
    CBaseCMD(const CBaseCMD&) = delete;
    CBaseCMD& operator=(const CBaseCMD&) = delete;
    /// Calls onClose; the channel goes with the object.
    virtual ~CBaseCMD();

    /// Builds the packet in requestBuffer and exchanges it: a whole command. VX_ARGUMENTS, with nothing sent, when it
    /// does not fit.
    std::uint32_t Request(std::uint8_t major, std::uint8_t minor, std::span<const std::uint8_t> payload = {},
                          std::span<const std::uint8_t> extended = {});

    /// The reply of the last exchange that gave 0.
    ReplyView Reply() const { return ReplyView(replyBuffer); }

    /// Whether a packet of these lengths fits `room` bytes and its own length fields.
    static bool Fits(std::uint32_t payloadLength, std::uint32_t extendedLength, std::uint32_t room);

    /// Lays out a packet with the next id; the lengths must have passed Fits. `extended` may lie in the same buffer
    /// behind the place that it goes to. Returns the checksum.
    std::uint32_t BuildPacket(std::uint8_t* request, std::uint8_t major, std::uint8_t minor, const void* payload,
                              std::uint32_t payloadLength, const void* extended, std::uint32_t extendedLength);

    /// Stores the checksum of a packet that is laid out: for those who change a field of it. Returns the checksum.
    std::uint32_t Seal(std::uint8_t* request) const;

    /// Sends a request until a reply to it comes, the tries are used up, or the caller aborts. Returns the result word.
    std::uint32_t Exchange(const std::uint8_t* request, std::uint32_t requestLength, std::uint8_t* reply);

    /// Sends a request once and gathers what comes back, `capacity` bytes at most (kReplyRoom when `reply` is
    /// replyBuffer with all of its capacity). Returns the bytes gathered.
    std::uint32_t ReceiveFrame(const std::uint8_t* request, std::uint32_t requestLength, std::uint8_t* reply,
                               std::uint32_t capacity);

    /// Checks what was gathered: kBadReply, or the status byte of a good reply, which then begins at `reply`.
    std::uint32_t CheckReply(std::uint8_t major, std::uint8_t minor, std::uint8_t* reply, std::uint32_t length);

    /// Unframed bytes. RawSend always gives 0, RawRecv the bytes read; neither throws.
    std::uint32_t RawSend(const std::uint8_t* buffer, std::uint32_t length, std::uint32_t timeoutMs);
    std::uint32_t RawRecv(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t timeoutMs);

    /// Whether another thread has asked to stop.
    bool Aborted() const;
    /// onProgress, with 100 at most, and onLog, if they are set. The line is part of what applications see.
    void Progress(std::uint32_t percent) const;
    void Log(std::uint32_t line, std::uint32_t level, const char* message) const;

    CommLink link;
    vxApiConfig* config = nullptr;
    vxApiState* state = nullptr;
    std::uint8_t useChannel = 0; // 1: through link; 0: through onRead and onWrite
    std::uint8_t useCrc = 0;     // 1: requests carry 0xA3 and the CRC
    std::uint8_t* const replyBuffer = buffers.data();
    std::uint8_t* const requestBuffer = buffers.data() + kReplySize;
    std::uint16_t packetId = 0; // of the request last built

private:
    std::uint32_t Room(const std::uint8_t* reply) const { return reply == replyBuffer ? kReplyRoom : kReplySize; }
    std::uint32_t Read(std::uint8_t* buffer, std::uint32_t capacity, std::uint32_t timeoutMs);
    void Gather(const std::uint8_t* request, std::uint32_t requestLength, std::uint8_t* reply, std::uint32_t capacity,
                std::uint32_t& got);
};

/// What CheckReply gives for a reply that is no answer. A sign's own status 2 reads the same.
constexpr std::uint32_t kBadReply = 2;

} // namespace vxsign

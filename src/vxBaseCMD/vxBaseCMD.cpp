// How a command object begins and ends, builds its packet and moves its bytes.
#include "vxBaseCMD/vxBaseCMD.h"

#include <vxsign/result.h>

#include <algorithm>
#include <atomic>
#include <cstring>

namespace vxsign {

namespace packetIds {
namespace {
std::atomic<std::uint16_t> last = 0;
static_assert(decltype(last)::is_always_lock_free);
} // namespace

std::uint16_t Next()
{
    return static_cast<std::uint16_t>(last.fetch_add(1, std::memory_order_relaxed) + 1);
}

void Set(std::uint16_t id)
{
    last.store(id, std::memory_order_relaxed);
}
} // namespace packetIds

namespace {

constexpr std::uint32_t kZeroedSize = 1536; // what is cleared ahead of each packet

constexpr char kSourcePath[] = "..\\..\\src\\vxBaseCMD\\vxBaseCMD";

void Clamp(vxApiConfig& config)
{
    if (config.dataSize < 64 || config.dataSize > 1280)
        config.dataSize = 768;
    if (config.retries < 1 || config.retries > 100)
        config.retries = 3;
    if (config.timeoutMs < 50 || config.timeoutMs > 60000)
        config.timeoutMs = 3000;
}

} // namespace

CBaseCMD::CBaseCMD() : config(ThreadConfig()), state(ThreadState())
{
    std::memset(replyBuffer, 0, header::kSize); // a reply that never came is an empty one
    if (config == nullptr || state == nullptr)
        return;
    Clamp(*config);
    // The callbacks count only as a pair.
    if (config->onRead == nullptr || config->onWrite == nullptr) {
        link.Initialise(config->kind, config->host, config->port, config->serialName, config->baudRate);
        useChannel = 1;
    }
    if (config->onOpen != nullptr)
        config->onOpen(config);
}

CBaseCMD::~CBaseCMD()
{
    try {
        if (config != nullptr && config->onClose != nullptr)
            config->onClose(config);
    } catch (...) { // the caller's own failure; the command is over all the same
    }
}

bool CBaseCMD::Fits(std::uint32_t payloadLength, std::uint32_t extendedLength, std::uint32_t room)
{
    return payloadLength <= kLongestPayload && extendedLength <= kLongestExtended &&
           header::kSize + std::size_t{4} * PayloadWords(payloadLength) + extendedLength <= room;
}

std::uint32_t CBaseCMD::BuildPacket(std::uint8_t* request, std::uint8_t major, std::uint8_t minor, const void* payload,
                                    std::uint32_t payloadLength, const void* extended, std::uint32_t extendedLength)
{
    const std::uint32_t words = PayloadWords(payloadLength);
    packetId = packetIds::Next();

    std::memset(request, 0, kZeroedSize);
    request[0] = kSync;
    request[1] = useCrc != 0 ? kRequestCrc : kRequestSum;
    Store16(request + header::kExtendedLength, static_cast<std::uint16_t>(extendedLength));
    Store16(request + header::kSourceAddress, config->sourceAddress);
    Store16(request + header::kDestinationAddress, config->destinationAddress);
    Store16(request + header::kPacketId, packetId);
    request[header::kMajor] = major;
    request[header::kMinor] = minor;
    request[header::kPayloadWords] = static_cast<std::uint8_t>(words);
    if (payloadLength != 0)
        std::memcpy(request + header::kSize, payload, payloadLength);
    if (extendedLength != 0)
        std::memmove(request + header::kSize + std::size_t{4} * words, extended, extendedLength);
    return Seal(request);
}

std::uint32_t CBaseCMD::Seal(std::uint8_t* request) const
{
    const std::uint32_t checksum =
        vxChkSum(request, header::kExtendedLength, TotalLength(request), useCrc != 0 ? kCrcMode : kSumMode);
    Store16(request + header::kChecksum, static_cast<std::uint16_t>(checksum));
    return checksum;
}

std::uint32_t CBaseCMD::Request(std::uint8_t major, std::uint8_t minor, std::span<const std::uint8_t> payload,
                                std::span<const std::uint8_t> extended)
{
    if (payload.size() > kLongestPayload || extended.size() > kLongestExtended)
        return VX_ARGUMENTS;
    const auto payloadLength = static_cast<std::uint32_t>(payload.size());
    const auto extendedLength = static_cast<std::uint32_t>(extended.size());
    if (!Fits(payloadLength, extendedLength, kRequestSize))
        return VX_ARGUMENTS;
    BuildPacket(requestBuffer, major, minor, payload.data(), payloadLength, extended.data(), extendedLength);
    return Exchange(requestBuffer, TotalLength(requestBuffer), replyBuffer);
}

bool CBaseCMD::Aborted() const
{
    return std::atomic_ref(config->abortFlag).load(std::memory_order_relaxed) != 0;
}

void CBaseCMD::Progress(std::uint32_t percent) const
{
    constexpr std::uint32_t kDone = 100;
    if (config->onProgress != nullptr)
        config->onProgress(config, 0, std::min(percent, kDone)); // some percentages are a sign's word
}

void CBaseCMD::Log(std::uint32_t line, std::uint32_t level, const char* message) const
{
    if (config->onLog != nullptr)
        config->onLog(config, kSourcePath, line, level, message);
}

} // namespace vxsign

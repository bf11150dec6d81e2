#include "sim/protocol/bytes.h"
#include "sim/virtualSign.h"

#include <algorithm>
#include <array>
#include <limits>

// Major 1: files, and the records that fit one reply.
namespace vxsim {
namespace {

enum : std::uint8_t
{
    kSystemSettings = 10,
    kState = 11,
    kIdentity = 12,
    kUpdateResult = 15,
    kDisplayStyle = 16,
    kSystemInfo = 18,
    kErrorLog = 19,
    kDatabase = 21,
    kBrightness = 22,
    kStatistics = 26,
    kBoardId = 27,
    kFlashInfo = 28,
    kUpdateState = 48
};

constexpr std::uint32_t kBoardNumber = 36896;
constexpr std::uint8_t kBoardPorts = 4;

std::span<const std::uint8_t> AsBytes(const std::string& text)
{
    return {reinterpret_cast<const std::uint8_t*>(text.data()), text.size()};
}

} // namespace

Reply VirtualSign::Read(const Frame& request, std::uint64_t nowMs)
{
    if (const FileLayout* layout = ReadLayout(request.minor))
        return ReadFile(request, *layout);
    switch (request.minor) {
    case kSystemSettings: {
        std::array<std::uint8_t, 16> record{};
        Store16(record, 0, static_cast<std::uint16_t>(settings.width));
        Store16(record, 2, static_cast<std::uint16_t>(settings.height));
        record[4] = static_cast<std::uint8_t>(drives.Letters().size());
        return Reply::WithPayload(record);
    }
    case kState:
        return ReadState(nowMs);
    case kDatabase:
        return QueryDatabase(request);
    case kIdentity:
        return Reply::WithPayload(identity.Bytes());
    case kUpdateResult:
        return Reply::WithCode(Code::kNoUpdate);
    case kDisplayStyle:
        return Reply::WithPayload(displayStyle.Bytes());
    case kSystemInfo: // hosts take these texts from behind the header, so there is no payload before them
        return Reply::WithExtended(AsBytes(SystemText()));
    case kErrorLog:
        return Reply::WithExtended(AsBytes(refusals.Text()));
    case kBrightness: {
        Reply reply = Reply::WithPayload(brightness.Bytes().first(4));
        const auto rest = brightness.Bytes().subspan(4);
        reply.extended.assign(rest.begin(), rest.end());
        return reply;
    }
    case kStatistics:
        return Statistics(request);
    case kBoardId: {
        std::array<std::uint8_t, 8> record{};
        Store32(record, 0, kBoardNumber);
        record[4] = kBoardPorts;
        return Reply::WithPayload(record);
    }
    case kFlashInfo: {
        std::error_code error;
        const auto size = std::filesystem::file_size(FlashFile(), error);
        std::array<std::uint8_t, 12> record{};
        Store16(record, 0, kFlashPage);
        Store16(record, 2,
                static_cast<std::uint16_t>(error ? 0 : std::min(size, std::uintmax_t{kFlashLimit}) / kFlashPage));
        return Reply::WithExtended(record);
    }
    case kUpdateState:
        return ReadUpdateState(request);
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

Reply VirtualSign::ReadFile(const Frame& request, const FileLayout& layout)
{
    if (request.payload.size() < layout.minimum || request.payload.size() > kMaxRecord)
        return Reply::WithCode(Code::kBadLength);
    FileRecord record{request.minor, request.payload, layout.number, layout.numberSize, 0, 0};
    record.chunkSize = Load16(request.payload, layout.chunkSize);
    record.number = layout.numberSize == kLongNumber ? Load32(request.payload, layout.number)
                                                     : Load16(request.payload, layout.number);
    auto piece = sender.Give(record, [&] { return Locate(request, layout); });
    if (piece.code != Code::kOk)
        return Reply::WithCode(piece.code);
    // The old commands tell sizes up to 65535 in 16 bits; the path commands tell all sizes in 32 bits at offset 4.
    Reply reply;
    if (layout.path == kNoField && piece.fileSize <= std::numeric_limits<std::uint16_t>::max()) {
        reply.payload.resize(4);
        Store16(reply.payload, 0, static_cast<std::uint16_t>(piece.fileSize));
    } else {
        reply.payload.resize(8);
        Store32(reply.payload, 4, piece.fileSize);
    }
    reply.extended = std::move(piece.data);
    return reply;
}

// Selector 0 asks what state a board is in, 0 being none; selector 1 whether it waits for an update.
Reply VirtualSign::ReadUpdateState(const Frame& request) const
{
    if (request.payload.empty())
        return Reply::WithCode(Code::kBadLength);
    const auto known = updateStates.find(request.destination);
    const std::uint8_t state = known == updateStates.end() ? std::uint8_t{0} : known->second;
    std::array<std::uint8_t, 4> record{};
    record[0] = request.payload[0] == 0 ? state : static_cast<std::uint8_t>(state != 0);
    return Reply::WithPayload(record);
}

// Selector 0 gives the sign's counters, selector 9 the one byte that tells a fault; the others have nothing to count.
Reply VirtualSign::Statistics(const Frame& request) const
{
    constexpr std::uint8_t kFaultSelector = 9;
    if (request.payload.empty())
        return Reply::WithCode(Code::kBadLength);
    std::vector<std::uint8_t> record(request.payload[0] == kFaultSelector ? 1 : 16);
    if (request.payload[0] == kFaultSelector)
        record[0] = monitor.IsAlarmed() ? 1 : 0;
    if (request.payload[0] == 0) {
        Store32(record, 0, counters.answered);
        Store32(record, 4, counters.refused);
        Store32(record, 8, counters.malformed);
        Store32(record, 12, counters.filesWritten);
    }
    return Reply::WithExtended(record);
}

std::string VirtualSign::SystemText() const
{
    return "vxsim\r\nface " + std::to_string(settings.width) + "x" + std::to_string(settings.height) + "\r\ndrives " +
           drives.Letters() + "\r\n";
}

} // namespace vxsim

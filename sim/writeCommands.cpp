#include "sim/files/signText.h"
#include "sim/protocol/bytes.h"
#include "sim/virtualSign.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <fcntl.h>
#include <string>
#include <unistd.h>

// Major 2: files, and the records that a host leaves with the sign.
namespace vxsim {
namespace {

enum : std::uint8_t
{
    kAbsoluteAddress = 1,
    kUrgentMessage = 9,
    kBrightness = 10,
    kIdentity = 11,
    kDisplayStyle = 12,
    kLongFile = 13,
    kChecksum = 14,
    kDataFlash = 19,
    kUpdateState = 48
};

constexpr std::size_t kMaxChecksums = 1024;
constexpr std::size_t kChecksumName = 32;
constexpr std::size_t kMaxBoards = 256;

// A full drive has a code of its own.
Code NoSpaceOn(char drive)
{
    const char letter = drive >= 'a' && drive <= 'z' ? static_cast<char>(drive - 'a' + 'A') : drive;
    if (letter < 'C' || letter > 'G')
        return Code::kNoSpace;
    return static_cast<Code>(static_cast<int>(Code::kNoSpaceOnC) + letter - 'C');
}

} // namespace

Reply VirtualSign::Write(const Frame& request)
{
    if (const FileLayout* layout = WriteLayout(request.minor))
        return WriteFile(request, *layout);
    switch (request.minor) {
    case kAbsoluteAddress:
        return WriteBoard(request);
    case kUrgentMessage:
        return WriteUrgentMessage(request);
    case kBrightness:
        if (request.payload.size() < kBrightnessSize)
            return Reply::WithCode(Code::kBadLength);
        return Reply::WithCode(brightness.Set(request.payload) ? Code::kOk : Code::kWriteFailed);
    case kIdentity:
        if (request.extended.size() < kIdentitySize)
            return Reply::WithCode(Code::kBadLength);
        return Reply::WithCode(identity.Set(request.extended) ? Code::kOk : Code::kWriteFailed);
    case kDisplayStyle:
        return SetDisplayStyle(request);
    case kChecksum:
        return WriteChecksum(request);
    case kUpdateState:
        return WriteUpdateState(request);
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

Reply VirtualSign::WriteFile(const Frame& request, const FileLayout& layout)
{
    const auto payload = request.payload;
    if (payload.size() < layout.minimum || payload.size() > kMaxRecord)
        return Reply::WithCode(Code::kBadLength);
    const auto wide = [&](std::size_t at) {
        return layout.numberSize == kLongNumber ? Load32(payload, at) : Load16(payload, at);
    };
    FileChunk chunk;
    chunk.record = {request.minor,      payload, layout.number, layout.numberSize, Load16(payload, layout.chunkSize),
                    wide(layout.number)};
    chunk.fileSize = Load32(payload, layout.fileSize);
    chunk.total = wide(layout.total);
    chunk.data = request.extended;
    chunk.anyOrder = request.minor == kLongFile;
    if (request.minor == kDataFlash) {
        if (chunk.fileSize > kFlashLimit)
            return Reply::WithCode(Code::kNoSpace);
        chunk.padUnit = kFlashPage;
    }

    const auto outcome = receiver.Take(chunk, [&] { return Locate(request, layout); });
    if (outcome.finished)
        FileFinished(*outcome.finished);
    if (outcome.code == Code::kNoSpace && request.minor != kDataFlash)
        return Reply::WithCode(NoSpaceOn(DriveOf(request, layout)));
    if (outcome.code == Code::kOk && request.minor == kLongFile) // a host with packets in flight looks for the code
        return Reply::WithCode(Code::kProcessOk);
    return Reply::WithCode(outcome.code);
}

void VirtualSign::FileFinished(const std::filesystem::path& file)
{
    ++counters.filesWritten;
    sender.Forget();
    for (const SignEvents& observer : observers) {
        if (observer.fileWritten)
            observer.fileWritten(file);
    }
    if (file == SequenceFile())
        SequenceChanged();
}

// Blocks for a board of the sign. The first one begins a new image; there is no last one, so all go straight to the
// board's file.
Reply VirtualSign::WriteBoard(const Frame& request)
{
    if (request.payload.size() < 4)
        return Reply::WithCode(Code::kBadLength);
    if (request.extended.empty() || request.extended.size() > kBoardBlock)
        return Reply::WithCode(Code::kBadPacketSize);
    const std::uint32_t offset = Load32(request.payload, 0);
    if (offset > kBoardLimit - request.extended.size())
        return Reply::WithCode(Code::kBadAddress);
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "board-%04X.bin", request.destination);
    const Descriptor file(
        ::open((kept / name.data()).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (offset == 0 ? O_TRUNC : 0), 0666));
    if (!file)
        return Reply::WithCode(Code::kOpenFailed);
    const auto written =
        ::pwrite(file.Get(), request.extended.data(), request.extended.size(), static_cast<off_t>(offset));
    return Reply::WithCode(written == static_cast<ssize_t>(request.extended.size()) ? Code::kOk : Code::kWriteFailed);
}

Reply VirtualSign::WriteUrgentMessage(const Frame& request)
{
    if (request.extended.size() > kUrgentLimit)
        return Reply::WithCode(Code::kUrgentTooLong);
    urgentMessage.assign(request.extended.begin(), request.extended.end());
    return Reply::Done();
}

Reply VirtualSign::SetDisplayStyle(const Frame& request)
{
    if (request.payload.size() < kDisplayStyleSize)
        return Reply::WithCode(Code::kBadLength);
    if (!displayStyle.Set(request.payload))
        return Reply::WithCode(Code::kWriteFailed);
    for (const SignEvents& observer : observers) {
        if (observer.displayStyleSet)
            observer.displayStyleSet(DisplayStyle());
    }
    return Reply::Done();
}

Reply VirtualSign::WriteChecksum(const Frame& request)
{
    if (request.payload.size() < kChecksumName + 6)
        return Reply::WithCode(Code::kBadLength);
    const std::string name(TextAt(request.payload.first(kChecksumName), 0));
    if (checksums.size() == kMaxChecksums && !checksums.contains(name))
        return Reply::WithCode(Code::kNoSpace);
    checksums[name] = {Load32(request.payload, kChecksumName), Load16(request.payload, kChecksumName + 4)};
    return Reply::Done();
}

Reply VirtualSign::WriteUpdateState(const Frame& request)
{
    if (request.extended.size() < 4)
        return Reply::WithCode(Code::kBadLength);
    if (updateStates.size() == kMaxBoards && !updateStates.contains(request.destination))
        return Reply::WithCode(Code::kNoSpace);
    updateStates[request.destination] = request.extended[0];
    return Reply::Done();
}

} // namespace vxsim

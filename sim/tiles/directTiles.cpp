#include "sim/tiles/directTiles.h"

#include "sim/protocol/bytes.h"

#include <algorithm>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kReadPiece = 1,
    kWritePiece = 2,
    kCommand = 3,
    kTest = 4
};

constexpr std::size_t kPiece = 264;
constexpr std::size_t kPieceRecord = 12; // payload of the two that move files
constexpr std::size_t kCodeRecord = 4;
constexpr std::size_t kTypeAt = 1; // of the file; also command and code of a test
constexpr std::size_t kReadOffsetAt = 4;
constexpr std::size_t kWriteOffsetAt = 2;
constexpr std::uint16_t kEveryTile = 65535;
constexpr std::size_t kMostUploads = 8;

// A tile has no task to tell of, so its words come as codes.
Code CodeOf(TaskState state)
{
    return state == TaskState::kDone ? Code::kOk : static_cast<Code>(WordOf(state));
}

std::uint8_t TypeIn(const Frame& request)
{
    return TileFileTypeOf(request.payload[kTypeAt]);
}

} // namespace

Reply DirectTiles::Execute(const Frame& request, const TileMoment& moment)
{
    const bool movesFile = request.minor == kReadPiece || request.minor == kWritePiece;
    if (!movesFile && request.minor != kCommand && request.minor != kTest)
        return Reply::WithCode(Code::kUnknownMinor);
    if (request.payload.size() < (movesFile ? kPieceRecord : kCodeRecord))
        return Reply::WithCode(Code::kBadLength);
    if (request.minor == kReadPiece)
        return ReadPiece(request, moment);
    if (request.minor == kWritePiece)
        return WritePiece(request, moment);
    const std::uint8_t code = request.payload[kTypeAt];
    return Reply::WithCode(CodeOf(TileWall::OnEach(TilesOf(request), moment.condition, [&](int tile) {
        return request.minor == kTest ? wall.Test(tile, code, moment)
                                      : wall.Command(tile, code, request.extended, moment);
    })));
}

std::vector<int> DirectTiles::TilesOf(const Frame& request) const
{
    const std::uint8_t port = request.payload[0];
    if (request.destination == kEveryTile)
        return wall.Plan().AllOnPort(port);
    return {wall.Plan().OnPort(port, request.destination)};
}

Reply DirectTiles::ReadPiece(const Frame& request, const TileMoment& moment) const
{
    if (request.destination == kEveryTile) // as one file
        return Reply::WithCode(CodeOf(TaskState::kBroadcastError));
    const std::uint32_t offset = Load32(request.payload, kReadOffsetAt);
    const std::size_t size = std::min<std::size_t>(Load16(request.payload, 2), kPiece);
    std::optional<TileFiles::Piece> piece;
    const TaskState state = TileWall::OnEach(TilesOf(request), moment.condition, [&](int tile) {
        piece = wall.ReadFile(tile, TypeIn(request), offset, size, moment);
        return TaskState::kDone;
    });
    if (state != TaskState::kDone)
        return Reply::WithCode(CodeOf(state));
    if (!piece)
        return Reply::WithCode(Code::kFileMissing);
    return piece->bytes.empty() ? Reply::WithCode(Code::kEndOfFile) : Reply::WithExtended(piece->bytes);
}

// The header of a file, which comes with its first piece, tells how long it is.
Code DirectTiles::BeginUpload(const Frame& request, const TileMoment& moment)
{
    const auto size = TileFileSize(request.extended);
    if (!size)
        return Code::kWriteFailed;
    if (*size > TileFiles::kMostFile)
        return Code::kNoSpace;
    const bool calibration = TypeIn(request) == kCalibrationFile;
    const TaskState state = TileWall::OnEach(TilesOf(request), moment.condition, [&](int tile) {
        return calibration && TileWall::IsLocked(tile, moment.condition) ? TaskState::kFailed : TaskState::kDone;
    });
    if (state != TaskState::kDone)
        return CodeOf(state);
    if (uploads.size() == kMostUploads)
        uploads.erase(uploads.begin());
    uploads.push_back(
        {request.payload[0], request.destination, TypeIn(request), static_cast<std::size_t>(*size), {}, {}});
    return Code::kOk;
}

Reply DirectTiles::WritePiece(const Frame& request, const TileMoment& moment)
{
    if (request.extended.size() != kPiece)
        return Reply::WithCode(Code::kBadPacketSize);
    const auto find = [&] {
        return std::ranges::find_if(uploads, [&](const Upload& upload) {
            return upload.port == request.payload[0] && upload.address == request.destination &&
                   upload.fileType == TypeIn(request);
        });
    };
    const std::size_t offset = Load32(request.payload, kWriteOffsetAt);
    if (offset == 0) {
        if (const auto former = find(); former != uploads.end())
            uploads.erase(former);
        if (const Code code = BeginUpload(request, moment); code != Code::kOk)
            return Reply::WithCode(code);
    }
    // A piece may come twice, but none may be missing.
    const auto upload = find();
    if (upload == uploads.end() || offset >= upload->size || (!upload->end && offset > upload->bytes.size()))
        return Reply::WithCode(Code::kBadPacketNumber);
    if (upload->end)
        return Reply::WithCode(*upload->end);
    const auto piece = request.extended.first(std::min(kPiece, upload->size - offset));
    upload->bytes.resize(std::max(upload->bytes.size(), offset + piece.size()));
    std::ranges::copy(piece, upload->bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    if (upload->bytes.size() < upload->size)
        return Reply::Done();
    upload->end = CodeOf(TileWall::OnEach(TilesOf(request), moment.condition, [&](int tile) {
        return wall.WriteFile(tile, upload->fileType, upload->bytes, moment);
    }));
    upload->bytes = {};
    return Reply::WithCode(*upload->end);
}

} // namespace vxsim

#include "sim/tiles/directTiles.h"

#include "sim/protocol/bytes.h"

#include <algorithm>

namespace vxsim {
namespace {

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

std::uint8_t TypeIn(const Call& call)
{
    return TileFileTypeOf(call.payload[kTypeAt]);
}

} // namespace

std::span<const CommandRow> DirectTiles::Commands() const
{
    static constexpr Major kDirect(124, true);
    static constexpr CommandRow kRows[] = {
        {kDirect, 1, "read piece from a tile", kPieceRecord, 0, kUnlogged, Run<&DirectTiles::ReadPiece>,
         "a piece of a file"},
        {kDirect, 2, "write piece to a tile", kPieceRecord, 0, kUnlogged, Run<&DirectTiles::WritePiece>,
         "takes a piece of 264 bytes. They come in order, each may come twice; the header in the first tells the size, "
         "a file without one is refused with 36882"},
        {kDirect, 3, "direct command to a tile", kCodeRecord, 0, kLogged, Run<&DirectTiles::Command>, "as 12, 11"},
        {kDirect, 4, "direct test of a tile", kCodeRecord, 0, kUnlogged, Run<&DirectTiles::Test>, "as 12, 9"},
    };
    return kRows;
}

void DirectTiles::Restart(std::uint64_t nowMs, bool isCold)
{
    TileCommands::Restart(nowMs, isCold);
    uploads.clear();
}

// Calls `act` with each tile that is addressed, and the moment.
template <typename Act>
TaskState DirectTiles::OnEach(const Call& call, Act act) const
{
    const TilePlan& plan = board.Wall().Plan();
    const std::uint8_t port = call.payload[0];
    const TileMoment moment = board.MomentAt(call.nowMs);
    const auto tiles =
        call.destination == kEveryTile ? plan.AllOnPort(port) : std::vector{plan.OnPort(port, call.destination)};
    return TileWall::OnEach(tiles, moment.condition, [&](int tile) { return act(tile, moment); });
}

Reply DirectTiles::Command(const Call& call)
{
    return Reply::WithCode(CodeOf(OnEach(call, [&](int tile, const TileMoment& moment) {
        return board.Wall().Command(tile, call.payload[kTypeAt], call.extended, moment);
    })));
}

Reply DirectTiles::Test(const Call& call)
{
    return Reply::WithCode(CodeOf(OnEach(call, [&](int tile, const TileMoment& moment) {
        return board.Wall().Test(tile, call.payload[kTypeAt], moment);
    })));
}

Reply DirectTiles::ReadPiece(const Call& call)
{
    if (call.destination == kEveryTile) // as one file
        return Reply::WithCode(CodeOf(TaskState::kBroadcastError));
    const std::uint32_t offset = Load32(call.payload, kReadOffsetAt);
    const std::size_t size = std::min<std::size_t>(Load16(call.payload, 2), kPiece);
    std::optional<TileFiles::Piece> piece;
    const TaskState state = OnEach(call, [&](int tile, const TileMoment& moment) {
        piece = board.Wall().ReadFile(tile, TypeIn(call), offset, size, moment);
        return TaskState::kDone;
    });
    if (state != TaskState::kDone)
        return Reply::WithCode(CodeOf(state));
    if (!piece)
        return Reply::WithCode(Code::kFileMissing);
    return piece->bytes.empty() ? Reply::WithCode(Code::kEndOfFile) : Reply::WithExtended(piece->bytes);
}

// The header of a file, which comes with its first piece, tells how long it is.
Code DirectTiles::BeginUpload(const Call& call)
{
    const auto size = TileFileSize(call.extended);
    if (!size)
        return Code::kWriteFailed;
    if (*size > TileFiles::kMostFile)
        return Code::kNoSpace;
    const bool calibration = TypeIn(call) == kCalibrationFile;
    const TaskState state = OnEach(call, [&](int tile, const TileMoment& moment) {
        return calibration && TileWall::IsLocked(tile, moment.condition) ? TaskState::kFailed : TaskState::kDone;
    });
    if (state != TaskState::kDone)
        return CodeOf(state);
    if (uploads.size() == kMostUploads)
        uploads.erase(uploads.begin());
    uploads.push_back({call.payload[0], call.destination, TypeIn(call), static_cast<std::size_t>(*size), {}, {}});
    return Code::kOk;
}

Reply DirectTiles::WritePiece(const Call& call)
{
    if (call.extended.size() != kPiece)
        return Reply::WithCode(Code::kBadPacketSize);
    const auto find = [&] {
        return std::ranges::find_if(uploads, [&](const Upload& upload) {
            return upload.port == call.payload[0] && upload.address == call.destination &&
                   upload.fileType == TypeIn(call);
        });
    };
    const std::size_t offset = Load32(call.payload, kWriteOffsetAt);
    if (offset == 0) {
        if (const auto former = find(); former != uploads.end())
            uploads.erase(former);
        if (const Code code = BeginUpload(call); code != Code::kOk)
            return Reply::WithCode(code);
    }
    // A piece may come twice, but none may be missing.
    const auto upload = find();
    if (upload == uploads.end() || offset >= upload->size || (!upload->end && offset > upload->bytes.size()))
        return Reply::WithCode(Code::kBadPacketNumber);
    if (upload->end)
        return Reply::WithCode(*upload->end);
    const auto piece = call.extended.first(std::min(kPiece, upload->size - offset));
    upload->bytes.resize(std::max(upload->bytes.size(), offset + piece.size()));
    std::ranges::copy(piece, upload->bytes.begin() + static_cast<std::ptrdiff_t>(offset));
    if (upload->bytes.size() < upload->size)
        return Reply::Done();
    upload->end = CodeOf(OnEach(call, [&](int tile, const TileMoment& moment) {
        return board.Wall().WriteFile(tile, upload->fileType, upload->bytes, moment);
    }));
    upload->bytes = {};
    return Reply::WithCode(*upload->end);
}

} // namespace vxsim

// Files between the PC and a tile itself, piece by piece.
#include "util/file.h"
#include "vxComm/Ondra/calibrationFile.h"
#include "vxComm/Ondra/vxOndraLED.h"
#include "vxComm/shared/repeatedRequest.h"
#include "vxComm/shared/tileBlock.h"

#include <vxsign/directtile.h>
#include <vxsign/ondra.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>

using namespace vxsign;

namespace {

using Chunk = std::array<std::uint8_t, kTileChunk>;

constexpr std::uint32_t ChunkCount(std::uint32_t size)
{
    return static_cast<std::uint32_t>((std::uint64_t{size} + kTileChunk - 1) / kTileChunk);
}

// The tile's form of the calibration file at `path`.
std::string BlocksName(const char* path)
{
    return std::string(path) + "t";
}

// A piece of a file that a tile sends: it begins where the payload does.
std::size_t TakeChunk(const ReplyView& reply, Chunk& chunk)
{
    reply.Copy(chunk.data(), 0, chunk.size());
    return std::min<std::size_t>(reply.PayloadLength() + reply.Extended().size(), chunk.size());
}

// The size of the file whose first piece this is, header and body.
std::optional<std::uint32_t> AnnouncedSize(const Chunk& first)
{
    const std::uint64_t size = std::uint64_t{Load16(&first[offsetof(TileFileHeader, headerLength)])} +
                               Load32(&first[offsetof(TileFileHeader, bodyLength)]);
    if (Load16(&first[offsetof(TileFileHeader, magic)]) != kTileMagic ||
        size > std::numeric_limits<std::uint32_t>::max())
        return {};
    return static_cast<std::uint32_t>(size);
}

// Pieces keep their places when a tile sends less than a whole one.
bool WriteChunk(const File& file, std::uint32_t number, const Chunk& chunk, std::size_t size)
{
    return Seek(file, std::uint64_t{number} * kTileChunk) && WriteAll(file, chunk.data(), size);
}

} // namespace

namespace vxsign {

std::uint32_t vxOndraLED::ReadDirectFile(const char* path, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                         std::uint8_t extra)
{
    const bool calibration = fileType == VX_TILE_CALIBRATION;
    const std::string target = calibration ? BlocksName(path) : path;
    Progress(0);
    File file = OpenFile(target.c_str(), "wb");
    if (!file)
        return VX_NO_RECORD;

    const Fields<16> first(port, fileType, kTileChunk, Zeros<4>(), extra);
    std::uint32_t result = DirectRequest(direct::kReadChunk, tile, first);
    std::printf("First ProcCMD iResult = %d\n", static_cast<int>(result));
    if (result != VX_OK)
        return result;
    Chunk chunk;
    std::size_t arrived = TakeChunk(Reply(), chunk);
    const auto size = AnnouncedSize(chunk);
    if (!size)
        return VX_NO_MAGIC;

    const std::uint32_t chunks = ChunkCount(*size);
    std::uint32_t remaining = *size;
    for (std::uint32_t number = 0; number < chunks; ++number) {
        if (number != 0) {
            const Fields<12> next(port, fileType, kTileChunk, number * kTileChunk, extra);
            result = DirectRequest(direct::kReadChunk, tile, next);
            if (result != VX_OK)
                return result;
            arrived = TakeChunk(Reply(), chunk);
        }
        if (!WriteChunk(file, number, chunk, std::min<std::size_t>(arrived, remaining)))
            return VX_NO_RECORD;
        if (number != 0)
            Progress(100 * number / chunks);
        remaining -= std::min<std::uint32_t>(remaining, kTileChunk);
    }
    if (!CloseFile(file))
        return VX_NO_RECORD;
    if (calibration)
        BlocksToFlat(target.c_str(), path, port, tile);
    return result;
}

std::uint32_t vxOndraLED::WriteDirectFile(const char* path, std::uint8_t fileType, std::uint8_t port,
                                          std::uint16_t tile, std::uint8_t extra)
{
    std::string source = path;
    Progress(0);
    if (fileType == VX_TILE_CALIBRATION) {
        source = BlocksName(path);
        const bool converted = FlatToBlocks(path, source.c_str(), port, tile) == VX_OK;
        const auto status = FetchTileStatus(port, tile);
        // What is left of an earlier conversion stays, and must not go out in place of this one.
        if (!converted || !status || status->locked)
            return VX_NO_RECORD;
    }
    const File file = OpenFile(source.c_str(), "rb");
    const auto size = file ? SignFileSize(file) : std::nullopt;
    if (!size)
        return VX_NO_RECORD;

    // Programs for all tiles go out twice, and the second time counts.
    const bool twice = fileType <= 1 && tile == VX_TILES_OF_PORT;
    const std::uint32_t chunks = ChunkCount(*size);
    std::uint32_t result = VX_OK;
    for (std::uint32_t number = 0; number < chunks && result == VX_OK; ++number) {
        Chunk chunk{};
        ReadSome(file, chunk.data(), chunk.size());
        const Fields<12> place(port, fileType, number * kTileChunk, extra);
        BuildDirectPacket(direct::kWriteChunk, tile, place, chunk);
        const RepeatedRequest request(*this);
        if (twice)
            request.Exchange();
        result = request.Exchange();
        std::printf("ProcCMD curPackNum = %d, Errorcode = %d", static_cast<int>(number), static_cast<int>(result));
        if (result == VX_OK)
            Progress(100 * number / chunks);
    }
    Progress(100);
    return result;
}

} // namespace vxsign

std::uint32_t vxDirectTileReadFileEx(const char* path, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                     std::uint8_t extra)
{
    return Call<vxOndraLED>(Required(path),
                            [=](vxOndraLED& sign) { return sign.ReadDirectFile(path, fileType, port, tile, extra); });
}

std::uint32_t vxDirectTileWriteFileEx(const char* path, std::uint8_t fileType, std::uint8_t port, std::uint16_t tile,
                                      std::uint8_t extra)
{
    return Call<vxOndraLED>(Required(path),
                            [=](vxOndraLED& sign) { return sign.WriteDirectFile(path, fileType, port, tile, extra); });
}

std::uint32_t vxDirectTilePHYWriteCoefficent2(const char* path, std::uint8_t port, std::uint16_t tile,
                                              std::uint64_t /*reserved*/, const std::uint8_t* params,
                                              std::uint32_t paramsLength)
{
    constexpr std::uint32_t kKeepOpen = 64; // offset in the params
    constexpr int kRetries = 20;
    const Block block = Bytes(params, paramsLength);
    return Call<vxOndraLED>(Required(path) && !block.refused, [=](vxOndraLED& sign) -> std::uint32_t {
        const bool keepOpen = paramsLength > kKeepOpen && params[kKeepOpen] != 0;
        // The converted file stays on the PC; the commands go out whatever became of it.
        FlatToBlocks(path, BlocksName(path).c_str(), port, tile);
        sign.DirectCommand(16, port, tile, block.bytes);
        if (keepOpen)
            return VX_OK;
        sign.DirectCommand(17, port, tile, block.bytes);
        const std::string coefficients = LocalTileFile(port, tile, ".mcc");
        int retries = 0;
        const auto fails = [&] {
            return vxDirectTileReadFileEx(coefficients.c_str(), VX_TILE_COEFFICIENTS, port, tile, 0) != VX_OK;
        };
        while (fails())
            if (++retries > kRetries)
                return VX_OK; // no success at all reads as one by rule
        return retries == kRetries ? 1 : 0;
    });
}

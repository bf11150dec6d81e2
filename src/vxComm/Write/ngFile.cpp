// Takes the message out of its wrapper.
#include "vxComm/Write/ngFile.h"

#include "util/littleEndian.h"

#include <vxsign/result.h>

#include <cstring>
#include <new>
#include <string>

namespace vxsign {
namespace {

constexpr std::size_t kHeaderSize = 18;
constexpr std::size_t kBodyLengthOffset = 6;
constexpr std::size_t kPlainMark = kHeaderSize + 7; // "PD" here: the body goes out as it is
constexpr std::size_t kLookSize = 32;
constexpr std::size_t kBlockSize = 4096;
constexpr std::uint8_t kTransmissionIntro[] = {0x01, 'Z', '0', '0', 0x02, 'A', 'A'};
constexpr std::uint8_t kEndOfMessage = 0x04;

// Copies until the file ends or a block is exactly what is left of the body. A block that jumps over the body's end
// does not stop the copy, so that what stands behind the body goes along.
bool CopyBody(const File& from, const File& to, std::int64_t left, std::uint8_t* block)
{
    while (const std::size_t count = ReadSome(from, block, kBlockSize)) {
        if (!WriteAll(to, block, count))
            return false;
        left -= static_cast<std::int64_t>(count);
        if (left == 0)
            break;
    }
    return true;
}

} // namespace

std::uint32_t ExpandNgFile(const char* local, File& opened)
{
    File source = OpenFile(local, "rb");
    if (!source)
        return VX_OPEN_FILE;
    std::uint8_t head[kLookSize] = {};
    ReadSome(source, head, kLookSize);
    if (head[0] != 'N' || head[1] != 'G') {
        std::rewind(source.get());
        opened = std::move(source);
        return VX_OK;
    }

    const std::unique_ptr<std::uint8_t[]> block(new (std::nothrow) std::uint8_t[kBlockSize]);
    if (!block)
        return VX_CALL_2;
    File expanded = OpenFile((std::string(local) + ".tmp").c_str(), "wb+");
    if (!expanded)
        return VX_OPEN_FILE;
    const bool plain = head[kPlainMark] == 'P' && head[kPlainMark + 1] == 'D';
    const bool written = Seek(source, kHeaderSize) &&
                         (plain || WriteAll(expanded, kTransmissionIntro, sizeof kTransmissionIntro)) &&
                         CopyBody(source, expanded, Load32(head + kBodyLengthOffset), block.get()) &&
                         (plain || WriteAll(expanded, &kEndOfMessage, 1)) && std::fflush(expanded.get()) == 0;
    if (!written)
        return VX_CALL;
    std::rewind(expanded.get());
    opened = std::move(expanded);
    return VX_OK;
}

} // namespace vxsign

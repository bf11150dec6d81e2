// Reads capture files, which anybody may have written.
#include "vxctl/record/captureFile.h"

#include "vxctl/cli/bytes.h"

#include <algorithm>
#include <cmath>

namespace vxctl {

namespace {

constexpr std::size_t kLargestBlock = 16U << 20U; // beyond that it is no capture of packets
constexpr std::size_t kBlockEnds = 12;            // type and size ahead, size behind
constexpr std::uint32_t kMicroseconds = 0xA1B2C3D4;
constexpr std::uint32_t kNanoseconds = 0xA1B23C4D;
constexpr std::uint64_t kBillion = 1000000000;

std::uint32_t Swapped(std::uint32_t number)
{
    return number >> 24U | (number >> 8U & 0xFF00U) | (number & 0xFF00U) << 8U | number << 24U;
}

// The unit of times: a power of 10, or with the top bit of 2.
std::uint64_t TicksOf(std::uint8_t resolution)
{
    const unsigned power = resolution & 0x7FU;
    if ((resolution & 0x80U) != 0)
        return power < 63 ? std::uint64_t{1} << power : 0;
    std::uint64_t ticks = 1;
    for (unsigned i = 0; i < power; ++i)
        ticks = ticks > UINT64_MAX / 10 ? 0 : ticks * 10;
    return ticks;
}

std::chrono::nanoseconds TimeOf(std::uint64_t ticks, std::uint64_t inSecond, std::int64_t offset)
{
    constexpr std::int64_t kLatest = 9000000000; // what nanoseconds of 64 bits can have
    const auto seconds = static_cast<std::int64_t>(std::min<std::uint64_t>(ticks / inSecond, kLatest)) +
                         std::clamp(offset, -kLatest, kLatest);
    const double part = static_cast<double>(ticks % inSecond) / static_cast<double>(inSecond);
    const std::int64_t rest = std::llround(part * static_cast<double>(kBillion));
    return std::chrono::seconds(std::clamp<std::int64_t>(seconds, 0, kLatest)) + std::chrono::nanoseconds(rest);
}

} // namespace

CaptureFile::CaptureFile(const std::string& file) : stream(file, std::ios::binary)
{
    if (!stream)
        throw CaptureFault("it cannot be read");
    std::vector<std::uint8_t> magic(4);
    if (!stream.read(reinterpret_cast<char*>(magic.data()), 4))
        throw CaptureFault("it is no capture: too short for one");
    const std::uint32_t number = Load32(magic, 0);
    if (number == static_cast<std::uint32_t>(BlockType::kSection)) {
        isNextGeneration = true;
        stream.seekg(0);
        return;
    }
    isBigEndian = Swapped(number) == kMicroseconds || Swapped(number) == kNanoseconds;
    const std::uint32_t form = isBigEndian ? Swapped(number) : number;
    if (form != kMicroseconds && form != kNanoseconds)
        throw CaptureFault("it is no capture: neither pcapng nor pcap");
    const std::vector<std::uint8_t> header = Read(20);
    interfaces.push_back(
        {static_cast<LinkType>(Field16(header, isBigEndian ? 18 : 16)), "", form == kNanoseconds ? kBillion : 1000000});
}

std::optional<CapturedFrame> CaptureFile::Next()
{
    while (!IsAtEnd()) {
        if (std::optional<CapturedFrame> frame = isNextGeneration ? ReadBlock() : ReadRecord()) {
            frame->number = ++frames;
            return frame;
        }
    }
    return std::nullopt;
}

bool CaptureFile::IsAtEnd()
{
    return stream.peek() == std::ifstream::traits_type::eof();
}

std::vector<std::uint8_t> CaptureFile::Read(std::size_t size)
{
    if (size > kLargestBlock)
        throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": a block of " + std::to_string(size) +
                           " bytes");
    std::vector<std::uint8_t> bytes(size);
    if (!stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(size)))
        throw CaptureFault("the file is cut behind packet " + std::to_string(frames));
    return bytes;
}

std::uint32_t CaptureFile::Field(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t size) const
{
    const std::uint32_t number = LoadNumber(bytes, at, size);
    if (!isBigEndian)
        return number;
    return size == 2 ? Swapped(number) >> 16U : Swapped(number);
}

std::uint16_t CaptureFile::Field16(std::span<const std::uint8_t> bytes, std::size_t at) const
{
    return static_cast<std::uint16_t>(Field(bytes, at, 2));
}

// Each section may have a byte order of its own, which is known only behind its size.
std::optional<CapturedFrame> CaptureFile::ReadBlock()
{
    std::vector<std::uint8_t> head = Read(8);
    const bool isSection = Load32(head, 0) == static_cast<std::uint32_t>(BlockType::kSection);
    if (isSection) {
        const std::vector<std::uint8_t> order = Read(4);
        isBigEndian = Load32(order, 0) == Swapped(kByteOrder);
        if (Field(order, 0, 4) != kByteOrder)
            throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": a section without byte order");
        interfaces.clear();
    }
    const auto type = static_cast<BlockType>(Field(head, 0, 4));
    const std::uint32_t size = Field(head, 4, 4);
    const std::size_t taken = isSection ? kBlockEnds : 8;
    if (size < kBlockEnds + (isSection ? 16U : 0U) || size % 4 != 0)
        throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": a block of " + std::to_string(size) +
                           " bytes");
    const std::vector<std::uint8_t> rest = Read(size - taken);
    const auto body = std::span(rest).first(rest.size() - 4);
    if (Field(rest, body.size(), 4) != size)
        throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": the two sizes of a block differ");
    if (type == BlockType::kInterface)
        AddInterface(body);
    else if (type == BlockType::kEnhanced)
        return Enhanced(body);
    else if (type == BlockType::kSimple)
        return Simple(body);
    return std::nullopt;
}

void CaptureFile::AddInterface(std::span<const std::uint8_t> body)
{
    constexpr std::uint16_t kComment = 1;
    constexpr std::uint16_t kName = 2;
    constexpr std::uint16_t kResolution = 9;
    constexpr std::uint16_t kOffset = 14;
    Interface interface {
        static_cast<LinkType>(Field16(body, 0)), ""
    };
    for (std::size_t at = 8; at + 4 <= body.size();) {
        const std::uint16_t code = Field16(body, at);
        const std::size_t size = Field16(body, at + 2);
        at += 4;
        if (code == 0 || at + size > body.size())
            break;
        const auto value = body.subspan(at, size);
        if (code == kName || (code == kComment && interface.line.empty()))
            interface.line.assign(value.begin(), value.end());
        else if (code == kResolution && size == 1)
            interface.ticks = TicksOf(value[0]);
        else if (code == kOffset && size == 8)
            interface.offset = static_cast<std::int32_t>(Field(value, isBigEndian ? 4 : 0, 4));
        at += (size + 3) / 4 * 4;
    }
    if (interface.ticks == 0)
        throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": an unit of times beyond all");
    interfaces.push_back(std::move(interface));
}

CapturedFrame CaptureFile::Enhanced(std::span<const std::uint8_t> body)
{
    const std::uint32_t which = Field(body, 0, 4);
    const std::uint32_t kept = Field(body, 12, 4);
    if (body.size() < 20 || which >= interfaces.size() || kept > body.size() - 20)
        throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": a packet beyond its block");
    const std::uint64_t ticks = std::uint64_t{Field(body, 4, 4)} << 32U | Field(body, 8, 4);
    return FrameOf(interfaces[which], ticks, body.subspan(20, kept));
}

// It has no time, and is cut by its block alone.
CapturedFrame CaptureFile::Simple(std::span<const std::uint8_t> body)
{
    if (body.size() < 4 || interfaces.empty())
        throw CaptureFault("garbage behind packet " + std::to_string(frames) + ": a packet of no interface");
    return FrameOf(interfaces[0], 0, body.subspan(4, std::min<std::size_t>(Field(body, 0, 4), body.size() - 4)));
}

std::optional<CapturedFrame> CaptureFile::ReadRecord()
{
    const std::vector<std::uint8_t> head = Read(16);
    const std::vector<std::uint8_t> bytes = Read(Field(head, 8, 4));
    const std::uint64_t inSecond = interfaces[0].ticks;
    return FrameOf(interfaces[0], Field(head, 0, 4) * inSecond + std::min<std::uint64_t>(Field(head, 4, 4), inSecond),
                   bytes);
}

CapturedFrame CaptureFile::FrameOf(const Interface& interface, std::uint64_t ticks, std::span<const std::uint8_t> bytes)
{
    return {0,
            TimeOf(ticks, interface.ticks, interface.offset),
            interface.link,
            interface.line,
            {bytes.begin(), bytes.end()}};
}

} // namespace vxctl

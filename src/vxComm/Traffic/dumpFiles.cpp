// Blocks of the traffic signal controller as files.
#include "platform/clock.h"
#include "util/file.h"
#include "util/littleEndian.h"

#include <vxsign/result.h>
#include <vxsign/traffic.h>

#include <array>
#include <cstddef>
#include <span>

using namespace vxsign;

static_assert(sizeof(TrafficDumpHeader) == 12 && offsetof(TrafficDumpHeader, length) == 4);
static_assert(offsetof(TrafficDumpHeader, reserved) == 8 && offsetof(TrafficDumpHeader, time) == 10);

namespace {

constexpr std::size_t kLongestBlock = 2048;
constexpr std::size_t kRealStatus = 102;

std::uint32_t WriteDump(const char* path, std::uint32_t magic, std::span<const std::uint8_t> block)
{
    const platform::LocalTime now = platform::clock.localTime();
    std::array<std::uint8_t, sizeof(TrafficDumpHeader)> header{};
    Store32(&header[offsetof(TrafficDumpHeader, magic)], magic);
    Store32(&header[offsetof(TrafficDumpHeader, length)], static_cast<std::uint32_t>(block.size()));
    Store16(&header[offsetof(TrafficDumpHeader, time)], static_cast<std::uint16_t>(now.minute * 256 + now.second));
    File file = OpenFile(path, "wb");
    if (!file)
        return VX_OPEN_FILE;
    const bool written = WriteAll(file, header.data(), header.size()) && WriteAll(file, block.data(), block.size());
    return CloseFile(file) && written ? VX_OK : VX_CALL;
}

// `read` fills a buffer as far as it has bytes; its size becomes their number.
template <std::size_t Size, class Read>
std::uint32_t Dump(const char* path, std::uint32_t magic, Read read)
{
    if (path == nullptr)
        return VX_NOT_INITIALISED;
    std::array<std::uint8_t, Size> block{};
    std::uint32_t size = Size;
    const std::uint32_t result = read(block.data(), size);
    return result == VX_OK ? WriteDump(path, magic, std::span(block).first(size)) : result;
}

} // namespace

std::uint32_t vxReadTrafficStatus(const char* path)
{
    return Dump<kLongestBlock>(path, VX_TRAFFIC_STATUS_FILE,
                               [](std::uint8_t* block, std::uint32_t& size) { return vxReadTCStatus(block, &size); });
}

std::uint32_t vxReadTrafficMonitor(const char* path)
{
    return Dump<kLongestBlock>(path, VX_TRAFFIC_MONITOR_FILE, [](std::uint8_t* block, std::uint32_t& size) {
        return vxReadTCMonitor(VX_TRAFFIC_MONITOR, block, &size);
    });
}

std::uint32_t vxReadTrafficRealStatus(const char* path)
{
    return Dump<kRealStatus>(path, VX_TRAFFIC_REAL_FILE, [](std::uint8_t* block, std::uint32_t& size) {
        return vxTCGetRealStatus(block, size, 0);
    });
}

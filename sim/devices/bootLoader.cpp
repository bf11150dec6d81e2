#include "sim/devices/bootLoader.h"

#include "sim/sign/storedRecord.h"

#include <algorithm>
#include <numeric>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kSoh = 1,
    kEot = 4,
    kAck = 6,
    kNak = 21,
    kCancel = 24,
    kAskCrc = 'C'
};

constexpr std::size_t kDataAt = 3;
constexpr std::size_t kDataSize = 128;
constexpr std::size_t kCheckAt = kDataAt + kDataSize;

constexpr std::uint64_t kAskEveryMs = 1000;
constexpr unsigned kAsksOfAKind = 10;
constexpr std::uint64_t kPartMs = 200; // of silence, and the rest of a block is not expected any more
constexpr std::uint64_t kSilenceMs = 30000;
constexpr std::size_t kToldEvery = 256; // blocks

std::uint16_t XmodemCrc(std::span<const std::uint8_t> bytes)
{
    std::uint32_t crc = 0;
    for (const std::uint8_t byte : bytes) {
        crc ^= std::uint32_t{byte} << 8;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc & 0x8000) != 0 ? crc << 1 ^ 0x1021 : crc << 1;
    }
    return static_cast<std::uint16_t>(crc);
}

bool IsGood(std::span<const std::uint8_t> block, bool crc)
{
    const auto data = block.subspan(kDataAt, kDataSize);
    if ((block[1] ^ block[2]) != 0xFF)
        return false;
    if (crc)
        return XmodemCrc(data) == (block[kCheckAt] << 8 | block[kCheckAt + 1]);
    return (std::accumulate(data.begin(), data.end(), 0U) & 0xFF) == block[kCheckAt];
}

} // namespace

std::vector<std::uint8_t> BootLoader::Take(std::span<const std::uint8_t> bytes, std::uint64_t nowMs)
{
    std::vector<std::uint8_t> replies;
    lastInputMs = nowMs;
    for (const std::uint8_t byte : bytes) {
        if (!block.empty() || byte == kSoh) {
            block.push_back(byte);
            if (block.size() == kCheckAt + (crc ? 2 : 1))
                replies.push_back(TakeBlock());
        } else if (byte == kEot) {
            Finish();
            nextAskMs = nowMs + kAskEveryMs;
            replies.push_back(kAck);
        }
    }
    return replies;
}

// The answer to a block that is as long as it should be.
std::uint8_t BootLoader::TakeBlock()
{
    const std::vector<std::uint8_t> taken = std::exchange(block, {});
    const std::size_t count = firmware.size() / kDataSize;
    if (!IsGood(taken, crc)) {
        Tell("a damaged block behind block " + std::to_string(count));
        return kNak;
    }
    if (receiving && taken[1] == static_cast<std::uint8_t>(count))
        return kAck; // once more: its answer was lost
    if (taken[1] != static_cast<std::uint8_t>(count + 1) || firmware.size() + kDataSize > kMostFirmware) {
        Tell("cancelled: block " + std::to_string(taken[1]) + " behind block " + std::to_string(count));
        receiving = false;
        firmware.clear();
        return kCancel;
    }
    if (!receiving)
        Tell(crc ? "begins, blocks with a CRC" : "begins, blocks with a checksum");
    receiving = true;
    firmware.insert(firmware.end(), taken.begin() + kDataAt, taken.begin() + kCheckAt);
    if ((count + 1) % kToldEvery == 0)
        Tell(std::to_string(count + 1) + " blocks");
    return kAck;
}

void BootLoader::Finish()
{
    if (receiving) {
        const bool kept = ReplaceFile(file, firmware);
        finished = firmware.size();
        Tell("done: " + std::to_string(finished / kDataSize) + " blocks, " + std::to_string(finished) + " bytes" +
             (kept ? ", in " + file.string() : ", which could not be written"));
    }
    receiving = false;
    firmware.clear();
    asks = 0;
}

std::vector<std::uint8_t> BootLoader::KeepUp(std::uint64_t nowMs)
{
    if (!block.empty()) {
        if (nowMs - lastInputMs < kPartMs)
            return {};
        block.clear();
        Tell("a block without its end");
        return {kNak};
    }
    if (receiving && nowMs - lastInputMs >= kSilenceMs) {
        Tell("broken off behind block " + std::to_string(firmware.size() / kDataSize));
        receiving = false;
        firmware.clear();
        asks = 0;
    }
    if (receiving || nowMs < nextAskMs)
        return {};
    nextAskMs = nowMs + kAskEveryMs;
    crc = !sumsOnly && asks++ / kAsksOfAKind % 2 == 0;
    return {crc ? std::uint8_t{kAskCrc} : std::uint8_t{kNak}};
}

std::uint64_t BootLoader::DueMs() const
{
    if (!block.empty())
        return lastInputMs + kPartMs;
    return receiving ? lastInputMs + kSilenceMs : nextAskMs;
}

std::string BootLoader::Caption() const
{
    if (receiving)
        return "LOADING\n" + std::to_string(firmware.size() / kDataSize) + " blocks";
    return finished != 0 ? "LOADED\n" + std::to_string(finished / kDataSize) + " blocks" : "BOOT\nwaiting";
}

void BootLoader::Tell(const std::string& what) const
{
    if (tell)
        tell("upgrade: " + what);
}

} // namespace vxsim

#include "sim/devices/bootLoader.h"

#include "sim/files/storedRecord.h"

#include <algorithm>
#include <numeric>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kNothing = 0, // in place of an answer
    kSoh = 1,     // ahead of a block of 128 bytes
    kStx = 2,     // of 1024 bytes
    kEot = 4,
    kAck = 6,
    kNak = 21,
    kCancel = 24,
    kAskCrc = 'C'
};

constexpr std::size_t kDataAt = 3;

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

// Bytes of data in a block that begins so; 0 if none does.
std::size_t DataSize(std::uint8_t start)
{
    if (start == kSoh)
        return 128;
    return start == kStx ? 1024 : 0;
}

std::span<const std::uint8_t> DataOf(std::span<const std::uint8_t> block)
{
    return block.subspan(kDataAt, DataSize(block[0]));
}

bool IsGood(std::span<const std::uint8_t> block)
{
    const auto data = DataOf(block);
    const auto check = block.subspan(kDataAt + data.size());
    if ((block[1] ^ block[2]) != 0xFF)
        return false;
    if (check.size() > 1)
        return XmodemCrc(data) == (check[0] << 8 | check[1]);
    return (std::accumulate(data.begin(), data.end(), 0U) & 0xFF) == check[0];
}

} // namespace

std::vector<std::uint8_t> BootLoader::Take(std::span<const std::uint8_t> bytes, std::uint64_t nowMs)
{
    std::vector<std::uint8_t> replies;
    lastInputMs = nowMs;
    for (std::size_t at = 0; at < bytes.size() && !spoilt; ++at) {
        const std::uint8_t reply = TakeByte(bytes[at], at + 1 == bytes.size());
        if (reply != kNothing)
            replies.push_back(reply);
    }
    return replies;
}

std::uint8_t BootLoader::TakeByte(std::uint8_t byte, bool isLast)
{
    if (block.empty() && DataSize(byte) == 0)
        return TakeMark(byte, isLast);
    ended = false;
    block.push_back(byte);
    const std::size_t whole = kDataAt + DataSize(block[0]) + (crc ? 2 : 1);
    return block.size() == whole ? TakeBlock(isLast) : std::uint8_t{kNothing};
}

// What stands where a block may begin and begins none. The end comes alone, and once more if its answer was lost. In a
// transfer anything else is a damaged start: what follows it may look like whatever it likes.
std::uint8_t BootLoader::TakeMark(std::uint8_t byte, bool isLast)
{
    if (byte == kEot && isLast && (receiving || ended))
        return Finish() ? kAck : kCancel;
    ended = false;
    if (receiving)
        Tell("a damaged start behind block " + std::to_string(blocks));
    spoilt = receiving;
    return kNothing;
}

// The answer to a block that is as long as it should be.
std::uint8_t BootLoader::TakeBlock(bool isLast)
{
    const std::vector<std::uint8_t> taken = std::exchange(block, {});
    const auto data = DataOf(taken);
    if (!IsGood(taken)) {
        Tell("a damaged block behind block " + std::to_string(blocks));
        spoilt = !isLast; // its size may be the damage
        return isLast ? kNak : kNothing;
    }
    if (receiving && taken[1] == static_cast<std::uint8_t>(blocks))
        return kAck; // once more: its answer was lost
    if (taken[1] != static_cast<std::uint8_t>(blocks + 1) || firmware.size() + data.size() > kMostFirmware) {
        Tell("cancelled: block " + std::to_string(taken[1]) + " behind block " + std::to_string(blocks));
        Forget();
        return kCancel;
    }
    if (!receiving)
        Tell(crc ? "begins, blocks with a CRC" : "begins, blocks with a checksum");
    receiving = true;
    firmware.insert(firmware.end(), data.begin(), data.end());
    if (++blocks % kToldEvery == 0)
        Tell(std::to_string(blocks) + " blocks");
    return kAck;
}

// Whether the file is kept.
bool BootLoader::Finish()
{
    nextAskMs = lastInputMs + kAskEveryMs;
    if (!receiving)
        return ended;
    ended = ReplaceFile(file, firmware);
    finished = ended ? blocks : 0;
    Tell("done: " + std::to_string(blocks) + " blocks, " + std::to_string(firmware.size()) + " bytes" +
         (ended ? ", in " + file.string() : ", which could not be written"));
    asks = 0;
    Forget();
    return ended;
}

void BootLoader::Forget()
{
    receiving = false;
    blocks = 0;
    firmware.clear();
}

std::vector<std::uint8_t> BootLoader::KeepUp(std::uint64_t nowMs)
{
    if (!block.empty() || spoilt) {
        if (nowMs - lastInputMs < kPartMs)
            return {};
        if (!spoilt)
            Tell("a block without its end");
        block.clear();
        spoilt = false;
        return {kNak};
    }
    if (receiving && nowMs - lastInputMs >= kSilenceMs) {
        Tell("broken off behind block " + std::to_string(blocks));
        Forget();
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
    if (!block.empty() || spoilt)
        return lastInputMs + kPartMs;
    return receiving ? lastInputMs + kSilenceMs : nextAskMs;
}

std::string BootLoader::Caption() const
{
    if (receiving)
        return "LOADING\n" + std::to_string(blocks) + " blocks";
    return finished != 0 ? "LOADED\n" + std::to_string(finished) + " blocks" : "BOOT\nwaiting";
}

void BootLoader::Tell(const std::string& what) const
{
    if (tell)
        tell("upgrade: " + what);
}

} // namespace vxsim

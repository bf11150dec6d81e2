// Firmware by XMODEM, on the serial line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace vxsim {

inline constexpr std::size_t kMostFirmware = std::size_t{16} << 20;

// The boot loader of a sign: has the serial line for itself and receives firmware by XMODEM, in blocks of 128 and of
// 1024 bytes. Asks for blocks with a CRC
// ten times, a second apart, then for blocks with a checksum as often, and so on. A file that has arrived replaces the
// one before, and then it asks anew. Times are the caller's, in milliseconds.
class BootLoader
{
public:
    // Keeps the firmware as `keptFile`.
    BootLoader(std::filesystem::path keptFile, bool noCrc) : file(std::move(keptFile)), sumsOnly(noCrc) {}

    // What it answers to these bytes; empty for nothing.
    std::vector<std::uint8_t> Take(std::span<const std::uint8_t> bytes, std::uint64_t nowMs);

    // What it says of itself, to be called when DueMs has come.
    std::vector<std::uint8_t> KeepUp(std::uint64_t nowMs);
    std::uint64_t DueMs() const;
    bool IsAsking() const { return !receiving; }

    // Two lines for the face: how far it is.
    std::string Caption() const;

    // Told what happens, in words.
    void Observe(std::function<void(const std::string&)> observer) { tell = std::move(observer); }

private:
    std::uint8_t TakeByte(std::uint8_t byte, bool isLast);
    std::uint8_t TakeMark(std::uint8_t byte, bool isLast);
    std::uint8_t TakeBlock(bool isLast);
    bool Finish();
    void Forget();
    void Tell(const std::string& what) const;

    std::filesystem::path file;
    bool sumsOnly;
    std::function<void(const std::string&)> tell;
    bool receiving = false; // from the first good block on
    bool ended = false;     // the last that came was the end of a file, which is kept
    bool spoilt = false;    // what comes is passed over until the line is silent
    bool crc = false;       // what was asked for last
    unsigned asks = 0;
    std::uint64_t nextAskMs = 0;
    std::uint64_t lastInputMs = 0;
    std::vector<std::uint8_t> block; // that is arriving
    std::vector<std::uint8_t> firmware;
    std::size_t blocks = 0;   // that it is made of
    std::size_t finished = 0; // blocks of the last file
};

} // namespace vxsim

// Capture files as they stand: the frames of pcapng and pcap.
#pragma once

#include <chrono>
#include <cstdint>
#include <fstream>
#include <optional>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace vxctl {

inline constexpr std::uint32_t kByteOrder = 0x1A2B3C4D; // as the section's own bytes have it

enum class BlockType : std::uint32_t
{
    kSection = 0x0A0D0D0A,
    kInterface = 1,
    kSimple = 3,
    kEnhanced = 6
};

enum class LinkType : std::uint16_t
{
    kLoopback = 0, // the family of the address ahead, in the byte order of the PC that captured
    kEthernet = 1,
    kRawOld = 12,
    kRawOther = 14,
    kRaw = 101,
    kLoopbackNetwork = 108, // the same in that of networks
    kLinuxCooked = 113,
    kIpv4 = 228,
    kLinuxCooked2 = 276
};

// Why a file is no capture, or only the start of one: what came before it holds.
class CaptureFault : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

struct CapturedFrame
{
    std::size_t number = 0;          // as Wireshark counts them, from 1 on
    std::chrono::nanoseconds time{}; // since 1970
    LinkType link = LinkType::kRaw;
    std::string line;                // what the capture tells of its interface
    std::vector<std::uint8_t> bytes; // as far as they were kept
};

class CaptureFile
{
public:
    // Throws CaptureFault for what is no capture.
    explicit CaptureFile(const std::string& file);

    bool IsNextGeneration() const { return isNextGeneration; }

    // The next frame; nothing behind the last one. Throws CaptureFault where the file is cut or garbage.
    std::optional<CapturedFrame> Next();

private:
    struct Interface
    {
        LinkType link;
        std::string line;
        std::uint64_t ticks = 1000000; // in a second
        std::int64_t offset = 0;       // in seconds
    };

    std::vector<std::uint8_t> Read(std::size_t size);
    bool IsAtEnd();
    std::uint32_t Field(std::span<const std::uint8_t> bytes, std::size_t at, std::size_t size) const;
    std::uint16_t Field16(std::span<const std::uint8_t> bytes, std::size_t at) const;
    void ReadSection();
    std::optional<CapturedFrame> ReadBlock();
    std::optional<CapturedFrame> ReadRecord();
    void AddInterface(std::span<const std::uint8_t> body);
    CapturedFrame Enhanced(std::span<const std::uint8_t> body);
    CapturedFrame Simple(std::span<const std::uint8_t> body);
    CapturedFrame FrameOf(const Interface& interface, std::uint64_t ticks, std::span<const std::uint8_t> bytes);

    std::ifstream stream;
    bool isNextGeneration = false;
    bool isBigEndian = false;
    std::vector<Interface> interfaces;
    std::size_t frames = 0;
};

} // namespace vxctl

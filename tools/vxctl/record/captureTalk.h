// What hosts and signs say to each other in a capture: packets of signs, Modbus frames, and what is none.
#pragma once

#include "vxctl/record/captureFile.h"
#include "vxctl/record/captureLink.h"
#include "vxctl/record/signPacket.h"

#include <cstdint>
#include <deque>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <tuple>
#include <vector>

namespace vxctl {

// One thing that was said.
struct Said
{
    enum class What
    {
        kPacket, // of a sign, whole
        kModbus,
        kXModem, // a block of firmware, or what is said about one
        kNoise,  // belongs to no packet
        kCut,    // a packet without its end
        kLost    // bytes of a connection that the capture does not have; as many as size tells
    };
    What what = What::kPacket;
    bool isReply = false;  // from the sign
    std::size_t frame = 0; // in which it ended
    std::chrono::nanoseconds time{};
    std::string line; // what the capture tells of its interface
    Endpoint host;
    Endpoint sign;
    bool isTcp = false;
    std::vector<std::uint8_t> bytes;
    std::size_t size = 0;
    std::optional<std::chrono::nanoseconds> answerTime; // of a reply: since its request
    bool isRepeated = false;                            // of a request: the last one has had no answer
    bool isUnanswered = false;                          // of a request: told behind the end of all
};

// Puts together what was said, in the order of the capture; requests keep their place and know at the end whether an
// answer came.
class CaptureTalk
{
public:
    // Signs and Modbus devices are at these ports, and at those of the URLs that recordings have as names of lines.
    explicit CaptureTalk(std::set<std::uint16_t> places) : ports(std::move(places)) {}

    void Add(const CapturedFrame& frame);
    void End();

    // Other traffic that was passed over.
    std::size_t Others() const { return others; }

    const std::deque<Said>& All() const { return all; }

private:
    using Flow = std::tuple<std::uint32_t, std::uint16_t, std::uint32_t, std::uint16_t, bool>;

    struct Stream
    {
        bool isOpen = false;
        std::uint32_t next = 0;
        std::map<std::uint32_t, std::vector<std::uint8_t>> early; // ahead of their turn, by their distance from `next`
        std::vector<std::uint8_t> bytes;
        Said last; // place and time of the last bytes
    };

    void AddSegment(Stream& stream, const CapturedPacket& packet, const Said& said);
    void Continue(Stream& stream, const Said& said);
    void Take(std::vector<std::uint8_t>& bytes, const Said& said, bool isEnd);
    void Put(Said said, Said::What what, std::span<const std::uint8_t> bytes);
    void Match(Said& said);

    std::set<std::uint16_t> ports;
    std::deque<Said> all;
    std::map<Flow, Stream> streams;
    std::map<std::tuple<Flow, std::uint16_t, std::uint8_t, std::uint8_t>, std::size_t> waiting;
    std::size_t others = 0;
};

// Takes a whole capture. Gives why it was not read to its end; empty where it was.
std::string ReadCapture(const std::string& file, CaptureTalk& talk);

} // namespace vxctl

// What goes over the line to a sign, as IP packets of a recording.
#pragma once

#include "vxctl/record/captureWriter.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace vxctl {

struct Endpoint
{
    std::uint32_t host = 0; // first octet in the top byte
    std::uint16_t port = 0;
};

// Makes the headers of the packets between two places.
class RecordedLine
{
public:
    using Bytes = std::span<const std::uint8_t>;

    RecordedLine(Recording& recording, std::uint32_t number, Endpoint hostPlace, Endpoint signPlace)
        : to(&recording), line(number), ends{hostPlace, signPlace}
    {
    }

    Recording& To() const { return *to; }

    void Datagram(Way way, Recording::Time time, Bytes bytes);

    // A segment of a TCP connection, whose sequence numbers it counts.
    void Segment(Way way, Recording::Time time, std::uint8_t flags, Bytes bytes = {});

private:
    void Add(Way way, Recording::Time time, std::uint8_t protocol, std::vector<std::uint8_t> segment);
    const Endpoint& From(Way way) const { return ends[way == Way::kOut ? 0 : 1]; }
    const Endpoint& Towards(Way way) const { return ends[way == Way::kOut ? 1 : 0]; }

    Recording* to;
    std::uint32_t line;
    std::array<Endpoint, 2> ends;
    std::array<std::uint32_t, 2> sequence{}; // of both ways
    std::uint16_t identification = 0;
};

inline constexpr std::uint8_t kTcpFin = 0x01;
inline constexpr std::uint8_t kTcpSyn = 0x02;
inline constexpr std::uint8_t kTcpReset = 0x04;
inline constexpr std::uint8_t kTcpPush = 0x08;
inline constexpr std::uint8_t kTcpAcknowledge = 0x10;

// Without their secrets, unless the recording keeps them.
void AddDatagram(RecordedLine& line, Way way, RecordedLine::Bytes bytes);

// Bytes of a stream in one way. Where secrets are blanked, or a packet of the recording is to be one of the sign's, the
// start of a packet waits for its rest.
class RecordedStream
{
public:
    // How what is whole gets into the recording.
    using Put = void (*)(RecordedLine& line, Way way, Recording::Time time, RecordedLine::Bytes bytes);

    RecordedStream(Way itsWay, Put toPut) : way(itsWay), put(toPut) {}

    void Add(RecordedLine& line, RecordedLine::Bytes bytes);

    // Nothing came for a while, so that nothing more is waited for, but for what may hold a secret.
    void Rest(RecordedLine& line);

    // Nothing comes any more.
    void End(RecordedLine& line);

    bool IsWaiting() const { return !waiting.empty(); }

private:
    void Release(RecordedLine& line, std::size_t size);

    Way way;
    Put put;
    Recording::Time since;
    std::vector<std::uint8_t> waiting;
};

} // namespace vxctl

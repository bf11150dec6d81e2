// One command over loopback UDP beside a bare ping-pong that opens a socket for each round, as every command does.
#include "echoPeer.h"

#include <vxsign/vxsign.h>

#include <benchmark/benchmark.h>
#include <cstring>
#include <sys/socket.h>
#include <unistd.h>

namespace vxsign::bench {
namespace {

void Exchange(benchmark::State& state)
{
    const EchoPeer peer;
    vxApiConfig config{};
    std::strcpy(config.host, "127.0.0.1");
    config.port = peer.Port();
    vxInitAPI(&config);
    for (auto round : state)
        if (vxBlackScreen() != VX_OK)
            state.SkipWithError("no answer");
}
BENCHMARK(Exchange)->UseRealTime()->Repetitions(3)->ReportAggregatesOnly();

void BareFreshSocket(benchmark::State& state)
{
    const EchoPeer peer;
    const std::uint8_t request[16] = {0x55, 0xA7};
    std::uint8_t reply[1536];
    for (auto round : state) {
        const int descriptor = ::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        ::sendto(descriptor, request, sizeof request, 0, reinterpret_cast<const sockaddr*>(&peer.Address()),
                 sizeof(sockaddr_in));
        if (::recvfrom(descriptor, reply, sizeof reply, 0, nullptr, nullptr) != 20)
            state.SkipWithError("no answer");
        ::close(descriptor);
    }
}
BENCHMARK(BareFreshSocket)->UseRealTime()->Repetitions(3)->ReportAggregatesOnly();

} // namespace
} // namespace vxsign::bench

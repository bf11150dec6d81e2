#include <vxsign/vxsign.h>

#include <benchmark/benchmark.h>
#include <vector>

namespace {

void Checksum(benchmark::State& state)
{
    constexpr std::uint32_t kLength = 788; // a packet with a chunk of 768 bytes
    const auto mode = static_cast<std::uint32_t>(state.range(0));
    std::vector<std::uint8_t> packet(kLength + 4);
    for (std::size_t i = 0; i < packet.size(); ++i)
        packet[i] = static_cast<std::uint8_t>(i * 7);
    for (auto round : state)
        benchmark::DoNotOptimize(vxChkSum(packet.data(), 4, kLength + 4, mode));
    state.SetBytesProcessed(static_cast<std::int64_t>(kLength) * state.iterations());
}
BENCHMARK(Checksum)->ArgName("crc")->Arg(0)->Arg(1);

} // namespace

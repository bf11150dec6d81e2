// The pixel file of a tile of 64 by 64, saved and loaded in each of its orders, beside a plain copy of the file.
#include "thread/tempFile.h"

#include <vxsign/vxsign.h>

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <filesystem>
#include <vector>

namespace vxsign::bench {
namespace {

constexpr std::uint32_t kSide = 64;
constexpr std::uint32_t kBytes = kSide * kSide * 18;

// Arguments that choose each layout: kind, model, module.
struct Layout
{
    const char* name;
    std::uint32_t kind;
    std::uint32_t model;
    std::uint32_t moduleWidth;
    std::uint32_t moduleHeight;
};
constexpr std::array<Layout, 6> kLayouts{{{"A", 74, 0x10, 32, 32},
                                          {"B", 0, 0x10, 16, 8},
                                          {"C", 0, 0x10, 32, 32},
                                          {"D", 0, 0xC0, 32, 16},
                                          {"E", 0, 0xF0, 32, 16},
                                          {"F", 0, 0x10, 32, 16}}};

template <class Convert>
void Run(benchmark::State& state, Convert convert)
{
    const Layout& layout = kLayouts[static_cast<std::size_t>(state.range(0))];
    state.SetLabel(layout.name);
    const TempFile file("pxl");
    std::vector<std::uint16_t> pixels(kBytes / 2, 0x1234);
    const auto run = [&](auto function) {
        return function(pixels.data(), kBytes, file.Path(), layout.kind, layout.model, kSide, kSide, layout.moduleWidth,
                        layout.moduleHeight);
    };
    run(vxTarsisTilePxlSave);
    for (auto round : state)
        if (run(convert) != VX_OK)
            state.SkipWithError("no conversion");
    state.SetBytesProcessed(std::int64_t{kBytes} * state.iterations());
}

void SaveTile(benchmark::State& state)
{
    Run(state, vxTarsisTilePxlSave);
}

void LoadTile(benchmark::State& state)
{
    Run(state, vxTarsisTilePxlLoad);
}

void CopyFile(benchmark::State& state)
{
    const TempFile from("pxl");
    const TempFile to("cpy");
    const std::vector<std::uint16_t> pixels(kBytes / 2, 0x1234);
    vxTarsisTilePxlSave(pixels.data(), kBytes, from.Path(), 0, 0x10, kSide, kSide, kSide, kSide);
    for (auto round : state)
        std::filesystem::copy_file(from.Path(), to.Path(), std::filesystem::copy_options::overwrite_existing);
    state.SetBytesProcessed(std::int64_t{kBytes} * state.iterations());
}

BENCHMARK(SaveTile)->DenseRange(0, 5);
BENCHMARK(LoadTile)->DenseRange(0, 5);
BENCHMARK(CopyFile);

} // namespace
} // namespace vxsign::bench

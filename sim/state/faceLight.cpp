#include "sim/state/faceLight.h"

#include <algorithm>
#include <vector>

namespace vxsim {
namespace {

constexpr std::uint8_t kFullLight = 8;

} // namespace

FaceLight::FaceLight(const std::filesystem::path& file, const SignClock& signClock)
    : clock(signClock), block(file, std::vector<std::uint8_t>(kBrightnessSize, kFullLight))
{
}

void FaceLight::SetLevel(std::uint8_t eighths)
{
    level = std::min(eighths, kFullLight);
}

std::uint8_t FaceLight::LevelAt(std::uint64_t nowMs) const
{
    const std::uint8_t wanted = level != 0 ? level : block.Bytes()[clock.At(nowMs).hour / 2];
    return std::clamp(wanted, std::uint8_t{1}, kFullLight);
}

void FaceLight::Forget()
{
    on = true;
    black = false;
    level = 0;
}

} // namespace vxsim

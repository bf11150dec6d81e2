#include "sim/files/configFile.h"

#include "sim/files/storedRecord.h"
#include "sim/protocol/bytes.h"

#include <stdexcept>
#include <vector>

namespace vxsim {
namespace {

constexpr std::size_t kSize = 512;
constexpr std::size_t kMostRead = 1U << 20;
constexpr std::size_t kDriveF = 16;
constexpr std::size_t kFirstSetting = 32;
constexpr std::size_t kSecondSetting = 33;
constexpr std::size_t kAddress = 36;
constexpr std::size_t kSecondAddress = 136;
constexpr std::size_t kThirdAddress = 140;
constexpr std::size_t kTreeLists = 152;
constexpr std::uint32_t kTreeListsBit = 1U << 27; // the sign plays lists with groups
constexpr std::size_t kPort = 186;
constexpr std::uint32_t kClassCMask = 0xFFFFFF00;

} // namespace

void PrepareConfigFile(const std::filesystem::path& file, const ConfigDefaults& defaults)
{
    std::vector<std::uint8_t> config = ReadFileStart(file, kMostRead);
    const bool fresh = config.empty();
    if (fresh) {
        config.resize(kSize);
        config[kFirstSetting] = 1;
        config[kSecondSetting] = 2;
        Store32(config, kAddress, defaults.address);
        Store32(config, kSecondAddress, kClassCMask);
        Store32(config, kThirdAddress, (defaults.address & kClassCMask) | 1U);
        Store32(config, kTreeLists, kTreeListsBit);
        Store16(config, kPort, defaults.port);
    }
    const bool marked = Load16(config, kDriveF) != 0;
    if (marked != defaults.driveF)
        Store16(config, kDriveF, defaults.driveF ? 1 : 0);
    if ((fresh || marked != defaults.driveF) && !ReplaceFile(file, config))
        throw std::runtime_error("cannot write " + file.string());
}

} // namespace vxsim

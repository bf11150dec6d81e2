// Makes random arguments.
#include "hostile/arguments.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <utility>

namespace vxsign::test {

namespace {

struct Size
{
    std::string_view parameter;
    std::size_t bytes;
};

// What the headers say of buffers without a length of their own.
constexpr Size kSizes[] = {
    {"vxAreaTest area", 24},
    {"vxBrightAdjustSides sides", 8},
    {"vxChkSum buffer", 4096},
    {"vxCustomTest replyOut", 4608},
    {"vxCustomTest requestOut", 527},
    {"vxDivideSpeZone data", 4 * 65535},
    {"vxDivideZone entries", 12 * 255},
    {"vxDivideZone4j entries", 12 * 255},
    {"vxExtraCollectCtrl data", 8},
    {"vxExtraCollectRead buffer", 38},
    {"vxExtraIOCtrl data", 16},
    {"vxExtraIORead buffer", 68},
    {"vxExtraWifiGetInfo wifiInfo", 44},
    {"vxExtraWifiSetInfo wifiInfo", 44},
    {"vxGeneratorSet out", 8},
    {"vxGetBeacon out", 8},
    {"vxGetDateTime out", 8},
    {"vxGetDriveInfo extra", 12},
    {"vxGetExternalEquipment out", 8},
    {"vxGetINIWithString out", 63},
    {"vxGetSignBeacon out", 8},
    {"vxLstLongFolderCB user", 1},
    {"vxMPUSetEDID edid", 15},
    {"vxMakeSignPath shortName", 12},
    {"vxOndraWritePxlCal calParams", 88},
    {"vxOndraWritePxlCalBurn calParams", 88},
    {"vxReadBrightInfoExt out", 8},
    {"vxReadDataFlashInfo out", 12},
    {"vxReadDefDisplayStyle style", 52},
    {"vxReadDefaultScreenSet out", 4},
    {"vxReadSystemSet out", 16},
    {"vxReadWarningLog head", 16},
    {"vxSetContentDisplay data", 65535},
    {"vxSetContentDisplay4j data", 65535},
    {"vxSetDisplay data", 65535},
    {"vxSetDisplay4j data", 65535},
    {"vxShowFilesII types", 200},
    {"vxTCJKCLightTest lamps", 2 * 255},
    {"vxTrafficRFlow query", 8},
    {"vxTrafficTempPhaseRun phase", 31},
    {"vxUpdate3Info record", 569},
    {"vxVPUGetInfo info", 24},
    {"vxWriteBrightCtrlBlock block", 12},
    {"vxWriteDefDisplayStyle style", 52},
    {"vxWriteDefaultScreenSet in", 4},
};

// Buffers whose length counts entries.
constexpr Size kEntries[] = {
    {"vxGetAPIServerTable entries", 68}, {"vxGetDirFile entries", 32}, {"vxGetDirFileEx entries", 32},
    {"vxGetZone entries", 12},           {"vxGetZone4j entries", 12},  {"vxLocationTest data", 2},
    {"vxReadWarningLog rows", 32},
};

std::size_t Find(std::span<const Size> table, const std::string& parameter)
{
    const auto found = std::ranges::find(table, std::string_view(parameter), &Size::parameter);
    return found == table.end() ? 0 : found->bytes;
}

bool IsLength(std::string_view name)
{
    return std::ranges::any_of(
        std::array{"ize", "ength", "len", "apacity", "ount", "ytes", "maxEntries", "sizeA", "sizeB"},
        [&](std::string_view end) { return name.ends_with(end); });
}

constexpr std::uint64_t kEdges[] = {0, 1, 2, 127, 128, 255, 256, 257, 1020, 1024, 4608, 32767, 65535, 65536, ~0ULL};

} // namespace

std::uint64_t Random::Number()
{
    const std::uint64_t kind = Below(10);
    return kind < 5 ? Below(12) : kind < 8 ? kEdges[Below(std::size(kEdges))] : engine();
}

void Random::Fill(std::uint8_t* to, std::size_t size)
{
    constexpr std::size_t kMostFilled = 5000; // large buffers are large, and not interesting further on
    const std::uint64_t kind = Below(6);
    if (size == 0)
        return;
    std::memset(to, kind == 0 ? 0 : 255, size);
    for (std::size_t at = 0; kind > 1 && at + sizeof(std::uint64_t) <= std::min(size, kMostFilled); at += 8) {
        const std::uint64_t bytes = engine();
        std::memcpy(to + at, &bytes, sizeof bytes);
    }
    for (std::size_t at = size - std::min<std::size_t>(size, 7); at < size; ++at)
        to[at] = static_cast<std::uint8_t>(engine());
}

std::uint64_t Arguments::Number(std::uint64_t most)
{
    if (std::exchange(isLengthNext, false))
        return nextLength;
    if (Name(place - 1) == "port" && Name(place - 2) == "host")
        return port;
    // An int of the caller's may be negative.
    return random.Number() & (most | random.Below(2) * ~most);
}

void* Arguments::Record(std::size_t size, bool isInput)
{
    const std::string parameter = std::string(exportName) + ' ' + std::string(Name(place - 1));
    if (const std::size_t told = Find(kSizes, parameter))
        size = told;
    void* const made = Allocate(size);
    if (std::exchange(isLengthNext, false)) {
        std::memset(made, 0, size);
        std::memcpy(made, &nextLength, std::min(size, sizeof nextLength));
    } else if (isInput || random.Chance(50)) {
        random.Fill(static_cast<std::uint8_t*>(made), size);
    }
    return made;
}

void* Arguments::Buffer(std::size_t size, bool isInput)
{
    isLengthNext = false;
    const std::string parameter = std::string(exportName) + ' ' + std::string(Name(place - 1));
    const std::size_t each = Find(kEntries, parameter);
    if (const std::size_t told = Find(kSizes, parameter))
        size = told;
    else if (each != 0 || IsLength(Name(place)))
        size = LinkedSize(std::max<std::size_t>(each, 1));
    else if (size == 0)
        throw std::logic_error("no size is known of " + parameter);
    else if (isInput)
        return CopyOf(Text());
    void* const made = Allocate(size);
    random.Fill(static_cast<std::uint8_t*>(made), size);
    return made;
}

std::size_t Arguments::LinkedSize(std::size_t each)
{
    constexpr std::size_t kMost[] = {0, 1, 20, 300, 5000, 70000};
    nextLength = std::min<std::uint64_t>(random.Below(kMost[random.Below(std::size(kMost))] + 1), limits[place]);
    isLengthNext = true;
    return nextLength * each;
}

void* Arguments::Allocate(std::size_t size)
{
    return blocks.emplace_back(new std::uint8_t[size]).get();
}

void** Arguments::Keep(void* pointer)
{
    return static_cast<void**>(std::memcpy(Allocate(sizeof pointer), &pointer, sizeof pointer));
}

char* Arguments::CopyOf(const std::string& text)
{
    return static_cast<char*>(std::memcpy(Allocate(text.size() + 1), text.c_str(), text.size() + 1));
}

const char** Arguments::Texts()
{
    nextLength = random.Below(200);
    isLengthNext = true;
    auto* const made = static_cast<const char**>(Allocate(nextLength * sizeof(char*)));
    for (std::size_t i = 0; i < nextLength; ++i)
        made[i] = CopyOf(Text());
    return made;
}

std::string Arguments::Text()
{
    if (Name(place - 1) == "host")
        return "127.0.0.1";
    if (Name(place - 1) == "serialName")
        return "none";
    switch (random.Below(14)) {
    case 0:
        return "";
    case 1:
        return std::string(random.Below(1200), 'n');
    case 2:
        return "D:\\T\\A.NMG";
    case 3:
        return "hostile/";
    case 4:
        return "%s%n \xFF\xFE\n";
    case 5:
        return "/GROUP/";
    case 6:
        return "missing/none";
    case 7:
        return "made" + std::to_string(random.Below(3));
    default:
        return "hostile/" + std::to_string(random.Below(16));
    }
}

} // namespace vxsign::test

// Makes random arguments.
#include "hostile/arguments.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <map>
#include <sstream>
#include <utility>

namespace vxsign::test {

namespace {

using Sizes = std::map<std::string, std::size_t>;

// A number of bytes, then the parameters that have so many.
Sizes Table(const char* text)
{
    std::istringstream words(text);
    Sizes sizes;
    std::size_t bytes = 0;
    for (std::string word; words >> word;)
        if (std::isdigit(word[0]) != 0)
            bytes = std::stoul(word);
        else
            sizes[word] = bytes;
    return sizes;
}

// What the headers say of buffers without a length of their own.
const Sizes kSizes = Table(R"(
    1 vxLstLongFolderCB.user
    4 vxReadDefaultScreenSet.out vxWriteDefaultScreenSet.in
    8 vxBrightAdjustSides.sides vxExtraCollectCtrl.data vxGeneratorSet.out vxGetBeacon.out vxGetDateTime.out
      vxGetExternalEquipment.out vxGetSignBeacon.out vxReadBrightInfoExt.out vxTrafficRFlow.query
    12 vxGetDriveInfo.extra vxMakeSignPath.shortName vxReadDataFlashInfo.out vxWriteBrightCtrlBlock.block
    15 vxMPUSetEDID.edid
    16 vxExtraIOCtrl.data vxReadSystemSet.out vxReadWarningLog.head
    24 vxAreaTest.area vxVPUGetInfo.info
    31 vxTrafficTempPhaseRun.phase
    38 vxExtraCollectRead.buffer
    44 vxExtraWifiGetInfo.wifiInfo vxExtraWifiSetInfo.wifiInfo
    52 vxReadDefDisplayStyle.style vxWriteDefDisplayStyle.style
    63 vxGetINIWithString.out
    68 vxExtraIORead.buffer
    88 vxOndraWritePxlCal.calParams vxOndraWritePxlCalBurn.calParams
    200 vxShowFilesII.types
    510 vxTCJKCLightTest.lamps
    527 vxCustomTest.requestOut
    569 vxUpdate3Info.record
    3060 vxDivideZone.entries vxDivideZone4j.entries
    4096 vxChkSum.buffer
    4608 vxCustomTest.replyOut
    65535 vxSetContentDisplay.data vxSetContentDisplay4j.data vxSetDisplay.data vxSetDisplay4j.data
    262140 vxDivideSpeZone.data)");

// Buffers whose length counts entries.
const Sizes kEntries = Table(R"(
    2 vxLocationTest.data
    12 vxGetZone.entries vxGetZone4j.entries
    32 vxGetDirFile.entries vxGetDirFileEx.entries vxReadWarningLog.rows
    68 vxGetAPIServerTable.entries)");

std::size_t Find(const Sizes& table, const std::string& parameter)
{
    const auto found = table.find(parameter);
    return found == table.end() ? 0 : found->second;
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
    const std::string parameter = std::string(exportName) + '.' + std::string(Name(place - 1));
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
    const std::string parameter = std::string(exportName) + '.' + std::string(Name(place - 1));
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
    const std::string texts[] = {"",
                                 std::string(random.Below(1200), 'n'),
                                 "made" + std::to_string(random.Below(3)),
                                 "D:\\T\\A.NMG",
                                 "hostile/",
                                 "%s%n \xFF\xFE\n",
                                 "/GROUP/",
                                 "missing/none"};
    const std::size_t kind = random.Below(14); // mostly one of the files
    return kind < std::size(texts) ? texts[kind] : "hostile/" + std::to_string(random.Below(16));
}

} // namespace vxsign::test

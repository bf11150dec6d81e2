// Play lists out of files: the sign's sequence files, those of PC programs, XML. What was read is walked, edited, saved
// and sent.
#include "fuzz/line.h"

#include <vxsign/local.h>
#include <vxsign/playlist.h>

#include <array>
#include <cstdlib>
#include <cstring>
#include <vector>

using namespace vxsign::fuzz;

namespace {

std::vector<VXPLAYLIST_ITEM> Level(std::string path)
{
    constexpr std::uint16_t kMost = 65535;
    static VXPLAYLIST_ITEM room[kMost]; // for any level
    std::uint16_t count = kMost;
    vxPLGetItems(path.data(), &count, room);
    return {room, room + (count == kMost ? 0 : count)};
}

void Walk(const std::string& path, int depth)
{
    for (const VXPLAYLIST_ITEM& item : Level(path)) {
        std::string name = path + std::string(item.name, strnlen(item.name, sizeof item.name));
        if (item.kind == VX_ENTRY_GROUP && depth < 2)
            Walk(name + "/", depth + 1);
        VXPLAYLIST_FILE_INFO info;
        vxPLGetFile(name.data(), &info);
    }
}

void Edit(std::array<std::uint8_t, 4> numbers)
{
    char root[] = "/";
    char group[] = "/G/";
    char name[] = "G";
    char file[] = "/G/F";
    vxPLMoveItem(root, numbers[0], numbers[1]);
    vxPLAddGroup(root, numbers[2], name, 0);
    // The list takes a record unless there is one with its name, or no such level; then it stays ours.
    const auto isThere = [&] {
        VXPLAYLIST_FILE_INFO found{};
        vxPLGetFile(file, &found);
        return found.fileName[0] != '\0';
    };
    const bool wasThere = isThere();
    auto* const info = static_cast<VXPLAYLIST_FILE_INFO*>(std::calloc(1, sizeof(VXPLAYLIST_FILE_INFO)));
    std::strcpy(info->fileName, "F");
    vxPLAddFile(group, 0, info);
    if (wasThere || !isThere())
        std::free(info);
    VXPLAYLIST_FILE_INFO out{};
    vxPLGetFile(file, &out);
    vxPLModifyFile(file, &out);
    vxPLDelItem(root, numbers[2], numbers[3]);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    EmptyFolder();
    const vxsign::test::FakeClock clock;
    Input input(bytes, size);
    const unsigned form = input.U8() % 4;
    const std::array<std::uint8_t, 4> numbers{input.U8(), input.U8(), input.U8(), input.U8()};
    const Line line([](const vxsign::test::Packet& request) { return vxsign::test::MakeReply(request, 0, {}, {}); });
    char folder[] = "list";
    char bound[] = "play.xml";
    char file[] = "list/given";
    vxOSCreateDir(folder);
    vxPLInit(folder, bound);
    WriteFile(file, input.Rest());
    if (form == 0)
        vxLoadSYSFromLED(file);
    else if (form == 1)
        vxLoadPLSFromPC(file);
    else
        vxLoadSYSFromXML(file);
    Walk("/", 0);
    Edit(numbers);
    vxPLSave();
    vxPLSendToLED(0);
    vxLoadSYSFromXML(nullptr); // what was saved
    Walk("/", 0);
    return 0;
}

#include "sim/sign/commandNames.h"

#include <algorithm>
#include <iterator>

namespace vxsim {
namespace {

struct Name
{
    std::uint8_t major;
    std::uint8_t minor;
    std::string_view name;
};

constexpr Name kNames[] = {
    {1, 2, "read system file"},
    {1, 8, "read file"},
    {1, 9, "read play log"},
    {1, 10, "read system settings"},
    {1, 11, "read state"},
    {1, 12, "read identity"},
    {1, 15, "read update result"},
    {1, 16, "read display style"},
    {1, 17, "read file"},
    {1, 18, "read system information"},
    {1, 19, "read error log"},
    {1, 21, "query database"},
    {1, 22, "read brightness"},
    {1, 26, "read statistics"},
    {1, 27, "read board number"},
    {1, 28, "read data flash size"},
    {1, 29, "read data flash"},
    {1, 31, "read file"},
    {1, 48, "read update state"},
    {2, 1, "write board"},
    {2, 2, "write system file"},
    {2, 8, "write file"},
    {2, 9, "write urgent message"},
    {2, 10, "write brightness block"},
    {2, 11, "write identity"},
    {2, 12, "write display style"},
    {2, 13, "write file"},
    {2, 14, "write checksum"},
    {2, 19, "write data flash"},
    {2, 48, "write update state"},
    {3, 1, "connect test"},
    {3, 9, "stop test"},
    {3, 10, "crayon test or pattern"},
    {3, 11, "colour test or pattern"},
    {3, 13, "area test or pattern"},
    {3, 16, "location test"},
    {3, 48, "debug settings"},
    {3, 49, "stability test"},
    {4, 0, "reset"},
    {4, 1, "black screen"},
    {4, 2, "end black screen"},
    {4, 3, "power off"},
    {4, 4, "power on"},
    {4, 5, "power state"},
    {4, 6, "baud rate"},
    {4, 7, "brightness"},
    {4, 8, "set Ethernet check"},
    {4, 9, "get Ethernet check"},
    {4, 10, "set beacons"},
    {4, 11, "get beacons"},
    {4, 13, "commit status"},
    {4, 19, "online or offline"},
    {4, 20, "cold reset"},
    {4, 21, "brightness of the sides"},
    {4, 25, "reset to data flash"},
    {4, 26, "set sign beacon"},
    {4, 27, "get sign beacon"},
    {4, 28, "set external equipment"},
    {4, 29, "get external equipment"},
    {4, 32, "generator"},
    {4, 36, "set LCS"},
    {4, 37, "get LCS"},
    {4, 38, "voice"},
    {5, 1, "read clock"},
    {5, 3, "temperature and humidity"},
    {5, 4, "set clock"},
    {5, 5, "speed limit"},
    {6, 1, "replay list"},
    {6, 2, "replay file"},
    {6, 3, "pause"},
    {6, 4, "continue"},
    {6, 5, "next"},
    {6, 6, "priority play"},
    {6, 7, "current file"},
    {6, 8, "next file"},
    {6, 9, "previous"},
    {6, 10, "forward"},
    {6, 11, "back"},
    {6, 12, "next page"},
    {6, 15, "sound"},
    {6, 17, "begin timing"},
    {6, 18, "stop timing"},
    {6, 19, "pause timing"},
    {6, 20, "continue timing"},
    {6, 22, "clear radar log"},
    {6, 23, "read radar log"},
    {6, 24, "play list by number"},
    {6, 25, "screenshot"},
    {6, 26, "play sound file"},
    {6, 27, "set volume"},
    {6, 28, "get volume"},
    {6, 29, "get list number"},
    {7, 2, "format"},
    {7, 3, "create folder"},
    {7, 4, "rename"},
    {7, 5, "move"},
    {7, 6, "delete"},
    {7, 7, "delete texts"},
    {7, 8, "delete strings"},
    {7, 9, "delete pictures"},
    {7, 10, "delete array pictures"},
    {7, 11, "list"},
    {7, 12, "list part"},
    {7, 13, "drive information"},
    {7, 14, "file exists"},
    {7, 15, "clear play files"},
    {7, 16, "long list"},
    {8, 1, "start ticker"},
    {8, 2, "stop ticker"},
    {8, 3, "ticker status"},
    {8, 4, "upload to ticker"},
    {9, 1, "start offline ticker"},
    {9, 2, "stop offline ticker"},
    {10, 1, "log in"},
    {10, 2, "log out"},
    {10, 3, "change password"},
    {10, 48, "server table"},
    {12, 13, "poll update"},
    {16, 1, "begin pixel check"},
    {16, 3, "pixel check progress"},
    {17, 1, "set FH"},
    {17, 2, "get FH"},
};

constexpr std::string_view kFamilies[] = {"unknown", "read",    "write",     "pattern test",   "control",     "time",
                                          "play",    "files",   "ticker",    "offline ticker", "login",       "unknown",
                                          "update",  "unknown", "tube data", "unknown",        "pixel check", "FH"};

} // namespace

std::string_view CommandName(std::uint8_t major, std::uint8_t minor)
{
    const auto* name = std::ranges::find_if(
        kNames, [&](const Name& candidate) { return candidate.major == major && candidate.minor == minor; });
    if (name != std::end(kNames))
        return name->name;
    return major < std::size(kFamilies) ? kFamilies[major] : kFamilies[0];
}

} // namespace vxsim

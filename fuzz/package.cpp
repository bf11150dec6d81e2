// Packages of a play list and the other files that the mover knows by their names. Whatever names they have inside,
// nothing is written outside their folder.
#include "fuzz/line.h"

#include <vxsign/mover.h>
#include <vxsign/write.h>

#include <iterator>

using namespace vxsign::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string& folder = EmptyFolder();
    const vxsign::test::FakeClock clock;
    Input input(bytes, size);
    static const char* const kNames[] = {"PLAYFILE.PLS", "PLAYFILE.PLM", "TRAFFICLIGHT.SYS", "CONFIG.SYS", "A.NMG"};
    const std::string local = folder + kNames[input.U8() % std::size(kNames)];
    WriteFile(local, input.Rest());
    const Line line([](const vxsign::test::Packet& request) { return vxsign::test::MakeReply(request, 0, {}, {}); });
    vxRWFile(local.c_str(), "D:\\T\\A.NMG", VX_MOVE_WRITE);
    return 0;
}

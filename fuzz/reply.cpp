// Whatever comes back for a request: framed, refused, changed on its way, or noise.
#include "fuzz/calls.h"
#include "fuzz/line.h"

using namespace vxsign::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    EmptyFolder();
    const vxsign::test::FakeClock clock;
    Input input(bytes, size);
    const auto calls = AllCalls();
    const Call& call = calls[input.U8() % calls.size()];
    const Line line([&](const vxsign::test::Packet& request) { return NextAnswer(input, request); });
    Run(call);
    return 0;
}

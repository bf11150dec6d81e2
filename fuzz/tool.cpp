// Commands of vxctl with a sign that answers as it likes.
#include "fuzz/line.h"
#include "fuzz/toolRun.h"

using namespace vxsign::fuzz;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    EmptyFolder();
    const vxsign::test::FakeClock clock;
    Input input(bytes, size);
    const std::uint8_t form = input.U8();
    const std::string words = input.Text();
    const View file = input.Block();
    const View contents = (form & 2) != 0 ? input.Block() : View();
    const Line line([&](const vxsign::test::Packet& request) {
        return (form & 2) != 0 ? FileAnswer(contents, input, request) : NextAnswer(input, request);
    });
    RunCommand(words, file, (form & 1) != 0);
    return 0;
}

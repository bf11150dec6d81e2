// The virtual sign as a second witness of golden requests.
#include "sim/virtualSign.h"
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

struct Witness
{
    explicit Witness(bool controller) : sign({.folder = folder.path, .controller = controller}) {}

    bool Knows(const Packet& request)
    {
        constexpr int kUnknownMajor = 36868;
        constexpr int kUnknownMinor = 36869;
        constexpr int kBadLength = 36870;
        const Packet reply{sign.Answer(request.bytes)};
        const int code = reply.bytes.at(15) == 0 ? 0 : reply.Word(16);
        return code != kUnknownMajor && code != kUnknownMinor && code != kBadLength;
    }

    TempFolder folder;
    vxsim::VirtualSign sign;
};

} // namespace

bool IsKnownToTheSign(const Packet& request)
{
    static Witness sign(false);
    static Witness controller(true);
    return sign.Knows(request) || controller.Knows(request);
}

} // namespace vxsign::test

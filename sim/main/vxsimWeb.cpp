// vxsim-web, as which vxsim goes on where a page is wanted.
#include "sim/main/program.h"

int main(int argc, char** argv)
{
    constexpr vxsim::PageMakers kPages{vxsim::MakeWebSite, vxsim::MakeFleetSite};
    return vxsim::RunProgram(argc, argv, &kPages);
}

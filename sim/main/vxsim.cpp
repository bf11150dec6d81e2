// vxsim, without what a page needs.
#include "sim/main/program.h"

int main(int argc, char** argv)
{
    return vxsim::RunProgram(argc, argv, nullptr);
}

// The program: options, and a sign that is served until a signal ends it.
#pragma once

#include "sim/web/onlooker.h"

namespace vxsim {

using MakeOnlooker = decltype(&MakeWebSite);

// Gives the exit status. Where `makePage` is null and a page is wanted, the program goes on as the one beside it that
// has the page.
int RunProgram(int argc, char** argv, MakeOnlooker makePage);

} // namespace vxsim

// The program: options, and a sign that is served until a signal ends it.
#pragma once

#include "sim/web/onlooker.h"

namespace vxsim {

// What makes pages, for one sign and for many.
struct PageMakers
{
    decltype(&MakeWebSite) one;
    decltype(&MakeFleetSite) many;
};

// Gives the exit status. Where `pages` is null and a page is wanted, the program goes on as the one beside it that
// has the page.
int RunProgram(int argc, char** argv, const PageMakers* pages);

} // namespace vxsim

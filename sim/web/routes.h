// What can be asked of the page's server, by subject.
#pragma once

#include "sim/web/httpServer.h"
#include "sim/web/signDesk.h"

#include <string>

namespace vxsim {

void AddPages(HttpServer& server);
void AddEvents(HttpServer& server, SignDesk& desk, const std::string& sign);

} // namespace vxsim

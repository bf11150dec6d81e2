// What can be asked of the page's server, by subject.
#pragma once

#include "sim/web/httpServer.h"
#include "sim/web/signDesk.h"

#include <string>

namespace vxsim {

void AddPages(HttpServer& server);
void AddEvents(HttpServer& server, SignDesk& desk, const std::string& sign);
void AddTraffic(HttpServer& server, SignDesk& desk);
void AddChanges(HttpServer& server, SignDesk& desk);
void AddFiles(HttpServer& server, SignDesk& desk);
void AddReports(HttpServer& server, SignDesk& desk);

} // namespace vxsim

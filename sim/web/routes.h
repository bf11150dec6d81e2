// What can be asked of the page's server, by subject.
#pragma once

#include "sim/web/httpServer.h"
#include "sim/web/signDesk.h"

#include <functional>

namespace vxsim {

// The desk of the sign that a request is for. Throws Refusal where there is no such sign.
using DeskOf = std::function<SignDesk&(const httplib::Request& request)>;

// The files of the page, of which `first` is the one that stands for a request's folder.
void AddPages(HttpServer& server, const std::function<std::string(const httplib::Request&)>& first);

void AddEvents(HttpServer& server, const DeskOf& deskOf);
void AddTraffic(HttpServer& server, const DeskOf& deskOf);
void AddChanges(HttpServer& server, const DeskOf& deskOf);
void AddFiles(HttpServer& server, const DeskOf& deskOf);
void AddReports(HttpServer& server, const DeskOf& deskOf);

// All of these but the first.
void AddSign(HttpServer& server, const DeskOf& deskOf);

} // namespace vxsim

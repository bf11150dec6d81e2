// What holds for every answer of a page.
#pragma once

#include "sim/web/httpServer.h"
#include "sim/web/onlooker.h"

#include <string>

namespace vxsim {

// Who may ask, what stands at the head of each answer, and what is answered where something fails.
void AddRules(HttpServer& http, const WebSettings& settings);

// "http://127.0.0.1:8520/"
std::string AddressOf(const WebSettings& settings, const HttpServer& http);

} // namespace vxsim

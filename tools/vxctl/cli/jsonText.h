// JSON whose texts come from signs and shells.
#pragma once

#include <nlohmann/json.hpp>

#include <string>

namespace vxctl {

// The value in one line of ASCII: what is none is escaped, so that nothing is lost and a terminal shows it. JSON cannot
// have a text that is no UTF-8: behind such a "name", or an array of texts with one in it, stands a "nameBytes" with
// the bytes in hexadecimal.
std::string JsonText(const nlohmann::ordered_json& value);

} // namespace vxctl

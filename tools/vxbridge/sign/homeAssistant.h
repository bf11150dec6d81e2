// Tells Home Assistant of the signs, which then finds them by itself.
#pragma once

#include "vxbridge/mqtt/message.h"
#include "vxctl/book/signBook.h"

#include <string>
#include <vector>

namespace vxbridge {

// What it reads of a sign: a light, a text and sensors below PREFIX/KIND/SITE_SIGN/NAME/config.
std::vector<Publication> DiscoveryOf(const vxctl::BookSign& sign, const std::string& prefix);

// Takes the sign away from it.
std::vector<Publication> DiscoveryRemoval(const vxctl::BookSign& sign, const std::string& prefix);

} // namespace vxbridge

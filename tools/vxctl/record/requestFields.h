// What stands in the requests of common commands: paths, names and numbers.
#pragma once

#include "vxctl/record/signPacket.h"

#include <string>
#include <vector>

namespace vxctl {

struct RequestField
{
    std::string name;
    std::string value;
    bool isText;
};

std::vector<RequestField> FieldsOf(const SignPacket& request);

} // namespace vxctl

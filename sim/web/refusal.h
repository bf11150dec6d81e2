// Why a request of a page is refused.
#pragma once

#include <stdexcept>
#include <string>

namespace vxsim {

// Thrown wherever a request is looked at; becomes the answer.
struct Refusal : std::runtime_error
{
    Refusal(int httpStatus, const std::string& why) : std::runtime_error(why), status(httpStatus) {}

    int status;
};

} // namespace vxsim

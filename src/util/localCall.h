// The frame of exports that build no command.
#pragma once

namespace vxsign {

/// The frame of an export that has no command of its own: what is thrown inside it, memory that ran out above all,
/// becomes the given failure. That is VX_COMMUNICATION, as in a command, where a callback of vxApiConfig runs.
template <class Result, class Body>
Result LocalCall(Result failure, Body&& body) noexcept
{
    try {
        return body();
    } catch (...) {
        return failure;
    }
}

} // namespace vxsign

#pragma once

namespace vxsign {

/// The frame of an export that needs no sign: what is thrown inside it, memory that ran out above all, becomes the
/// given failure.
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

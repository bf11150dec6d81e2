#pragma once

#include <cstdint>

namespace vxsim {

// What a sign answers to a command. Everything but kOk travels as status 1 with the code in front of the payload.
enum class Code : std::uint16_t
{
    kOk = 0,
    kOversizeRead = 4353,
    kBadAddress = 4354,
    kNoUpdate = 7939,
    kNoSpace = 8450,
    kNoSpaceOnC = 8451, // D, E, F and G follow
    kUrgentTooLong = 10497,
    kNeedsExtendedRead = 26371,
    kDeleteFailed = 30209,
    kFileGone = 32257,
    kProcessOk = 36864, // the one code that means success
    kUnknownMajor = 36868,
    kUnknownMinor = 36869,
    kBadLength = 36870,
    kFileMissing = 36872,
    kEndOfFile = 36873,
    kOpenFailed = 36880,
    kWriteFailed = 36882,
    kBadPacketSize = 36883,
    kBadPacketNumber = 36884,
};

} // namespace vxsim

// Codes of refusals, and the answers that travel as codes.
#pragma once

#include <cstdint>

namespace vxsim {

// What a sign answers to a command. Everything but kOk travels as status 1 with the code in front of the payload.
enum class Code : std::uint16_t
{
    kOk = 0,
    kUnknownTask = 3079,
    kOversizeRead = 4353,
    kBadAddress = 4354,
    kUpdating = 7938,
    kNoUpdate = 7939,
    kNoSpace = 8450,
    kNoSpaceOnC = 8451, // D, E, F and G follow
    kUrgentTooLong = 10497,
    kBadPage = 14049,
    kPageNotConfigured = 14050,
    kTooManyPages = 14051,
    kBadZone = 14052,
    kZoneNotConfigured = 14053,
    kWrongPageCount = 14054,
    kTimeNotSet = 20993,
    kNothingPlays = 26369,
    kNeedsExtendedRead = 26371,
    kFormatFailed = 29185,
    kCreateFolderFailed = 29441,
    kRenameFailed = 29697,
    kBadRenamePath = 29698,
    kMoveFailed = 29953,
    kDeleteFailed = 30209,
    kListFailed = 31489,
    kNoDriveInfo = 32001,
    kFileGone = 32257,
    kBuffer3Ready = 33537,
    kBuffer1Ready = 33538,
    kBuffer2Ready = 33539,
    kNoTicker = 33541,
    kBufferFull = 33542,
    kBadTickerData = 33543,
    kProcessOk = 36864, // the one code that means success
    kNoSuchAddress = 36867,
    kUnknownMajor = 36868,
    kUnknownMinor = 36869,
    kBadLength = 36870,
    kFileMissing = 36872,
    kEndOfFile = 36873,
    kOpenFailed = 36880,
    kNotSupported = 36881,
    kWriteFailed = 36882,
    kBadPacketSize = 36883,
    kBadPacketNumber = 36884,
    kLoginFirst = 36912,
    kWrongPassword = 36913,
    kUnknownUser = 36914,
    kWrongOldPassword = 36915,
    kUsedByOthers = 36917,
    kNoSuchUser = 36918,
};

} // namespace vxsim

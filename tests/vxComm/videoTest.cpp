// Video processors: majors 53 and 52.
#include "support/flatRows.h"

namespace vxsign::test {
namespace {

constexpr std::uint8_t kEdid[] = {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16};

TEST(Mpu, Requests)
{
    std::uint32_t taskId = 0;
    std::uint8_t progress = 0;
    ExpectRequests({
        {"vxMPUSelChannel", [] { return vxMPUSelChannel(1, 2); }, 53, 1, "01020000", ""},
        {"vxMPUSetVideoArg", [] { return vxMPUSetVideoArg(1, 2); }, 53, 6, "01020000", ""},
        {"vxMPUSetHDMI_DP_Out", [] { return vxMPUSetHDMI_DP_Out(1, 2); }, 53, 23, "01020000", ""},
        {"vxMPUSetEDID", [] { return vxMPUSetEDID(0xAA, kEdid); }, 53, 27, "AA010203 04050607 08090A0B 0C0D0E0F", ""},
        {"vxMPUSetINBPhase", [] { return vxMPUSetINBPhase(1, 2); }, 53, 28, "01020000", ""},
        {"vxMPUSelChannelEx", [] { return vxMPUSelChannelEx(1, 2); }, 53, 30, "01020000", ""},
        {"vxMPUSetWin", [&] { return vxMPUSetWin(0x1234, 0x0102, 0x0304, 0x0506, 0x0708, 9, &taskId); }, 53, 31,
         "34 0201 0403 0605 0807 09 0000", ""},
        {"vxMPUSetWin without task", [] { return vxMPUSetWin(1, 2, 3, 4, 5, 6, nullptr); }, 53, 31,
         "01 0200 0300 0400 0500 06 0000", ""},
        {"vxMPUProgressByTaskID", [&] { return vxMPUProgressByTaskID(0x01020304, &progress); }, 53, 0xFE, "04030201",
         ""},
    });
}

TEST(Vpu, Requests)
{
    std::uint8_t out[24];
    std::uint16_t status = 0;
    ExpectRequests({
        {"vxVPUSelChannel", [] { return vxVPUSelChannel(1); }, 52, 1, "01000000", ""},
        {"vxVPUSetMode", [] { return vxVPUSetMode(1, 2); }, 52, 2, "01020000", ""},
        {"vxVPUSetVideoRatio", [] { return vxVPUSetVideoRatio(1); }, 52, 3, "01000000", ""},
        {"vxVPUSetDVIWin", [] { return vxVPUSetDVIWin(0x0102, 0x0304); }, 52, 4, "02010403", ""},
        {"vxVPUSetVideoWin", [] { return vxVPUSetVideoWin(0x0102, 0x0304); }, 52, 5, "02010403", ""},
        {"vxVPUSetVideoArg", [] { return vxVPUSetVideoArg(0x0102, 0x0304); }, 52, 6, "02010403", ""},
        {"vxVPUGetSignalStatus", [&] { return vxVPUGetSignalStatus(&status, &status, &status, &status); }, 52, 8,
         "00000000", ""},
        {"vxVPUType", [] { return vxVPUType(1); }, 52, 9, "01000000", ""},
        {"vxVPUSlaverStartLine", [] { return vxVPUSlaverStartLine(0x0102); }, 52, 10, "02010000", ""},
        {"vxVPUSetColorTemp", [] { return vxVPUSetColorTemp(1, 2, 3, 4); }, 52, 11, "01020304", ""},
        {"vxVPUSetBright", [] { return vxVPUSetBright(1, 2, 3, 4); }, 52, 12, "01020304", ""},
        {"vxVPUGetBright", [&] { return vxVPUGetBright(out, out, out, out); }, 52, 13, "00000000", ""},
        {"vxVPUSetGamma", [] { return vxVPUSetGamma(1); }, 52, 14, "01000000", ""},
        {"vxVPUSetLDUNums", [] { return vxVPUSetLDUNums(1); }, 52, 15, "01000000", ""},
        {"vxVPUSetLDUPos", [] { return vxVPUSetLDUPos(0x0102, 0x0304, 0x0506); }, 52, 16, "02000400 06000000", ""},
        // One minor: the argument tells the question from the setting.
        {"vxVPUGetInfo", [&] { return vxVPUGetInfo(out); }, 52, 17, "00000000", ""},
        {"vxVPUSetPixcelMode", [] { return vxVPUSetPixcelMode(1); }, 52, 17, "01000000", ""},
    });
}

TEST(Video, Replies)
{
    using Out = std::uint8_t*;
    ExpectReplies({
        {"vxMPUSetWin", [](Out out) { return vxMPUSetWin(1, 2, 3, 4, 5, 6, At<std::uint32_t>(out, 0)); }, "A1A2A3A4A5",
         "", "A1A2A3A4"},
        {"vxMPUProgressByTaskID", [](Out out) { return vxMPUProgressByTaskID(1, out); }, "A1A2A3A4", "", "A1"},
        {"vxVPUGetSignalStatus",
         [](Out out) {
             return vxVPUGetSignalStatus(At<std::uint16_t>(out, 6), At<std::uint16_t>(out, 4),
                                         At<std::uint16_t>(out, 2), At<std::uint16_t>(out, 0));
         },
         "A1A2A3A4A5A6A7A8", "", "A7A8A5A6A3A4A1A2"},
        {"vxVPUGetBright", [](Out out) { return vxVPUGetBright(out + 3, out + 2, out + 1, out); }, "A1A2A3A4", "",
         "A4A3A2A1"},
        {"vxVPUGetInfo", [](Out out) { return vxVPUGetInfo(out); },
         "0102030405060708090A0B0C0D0E0F101112131415161718191A1B1C", "",
         "0102030405060708090A0B0C0D0E0F101112131415161718"},
        {"vxVPUGetInfo of one word", [](Out out) { return vxVPUGetInfo(out); }, "01020304", "",
         "010203040000000000000000000000000000000000000000"},
    });
}

TEST(Video, ArgumentsErrors)
{
    std::uint8_t a = 0;
    std::uint16_t b = 0;
    ExpectArgumentsError({
        {"vxMPUSetEDID", [] { return vxMPUSetEDID(1, nullptr); }},
        {"vxMPUProgressByTaskID", [] { return vxMPUProgressByTaskID(1, nullptr); }},
        {"vxVPUGetSignalStatus 1", [&] { return vxVPUGetSignalStatus(nullptr, &b, &b, &b); }},
        {"vxVPUGetSignalStatus 4", [&] { return vxVPUGetSignalStatus(&b, &b, &b, nullptr); }},
        {"vxVPUGetBright 2", [&] { return vxVPUGetBright(&a, nullptr, &a, &a); }},
        {"vxVPUGetBright 3", [&] { return vxVPUGetBright(&a, &a, nullptr, &a); }},
        {"vxVPUGetInfo", [] { return vxVPUGetInfo(nullptr); }},
    });
}

} // namespace
} // namespace vxsign::test

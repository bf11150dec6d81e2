// The exports of major 10.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/login.h>

using namespace vxsign;

namespace {

// Texts are cut to these. A user name is followed by a byte that stays 0.
using UserName = Name<13>;
using Password = Name<6>;

constexpr std::uint32_t kServerRecordSize = 68;

} // namespace

std::uint32_t vxLogin(const char* user, const char* password)
{
    return Send<vxLoginLED>({10, 1}, Payload(Fields<20>(UserName{user}, Zeros<1>(), Password{password})));
}

std::uint32_t vxLogout()
{
    return Send<vxLoginLED>({10, 2});
}

std::uint32_t vxChangePSW(const char* user, const char* oldPassword, const char* newPassword)
{
    return Send<vxLoginLED>(
        {10, 3}, Payload(Fields<28>(UserName{user}, Zeros<1>(), Password{oldPassword}, Password{newPassword})));
}

std::uint32_t vxGetAPIServerTable(std::uint32_t* total, std::uint8_t* entries, std::uint32_t maxEntries)
{
    return Send<vxLoginLED>({10, 48}, Payload(Fields<4>()),
                            Reply(OutCount<0>(total), OutRecords<kServerRecordSize>(entries, maxEntries)));
}

// The exports of major 2.
#include "vxComm/Write/vxWriteLED.h"

#include "vxBaseCMD/call.h"
#include "vxComm/shared/boardAddress.h"

#include <vxsign/write.h>

using namespace vxsign;

namespace {

std::uint32_t SendFile(std::uint8_t minor, const char* name, const char* local, char disk = '\0')
{
    return Call<vxWriteLED>(Required(name, local),
                            [=](vxWriteLED& sign) { return sign.SendFileChunks(minor, name, local, disk); });
}

} // namespace

std::uint32_t vxWriteSystemFile(const char* name, const char* local)
{
    return SendFile(2, name, local);
}

std::uint32_t vxWriteFontFile(const char* name, const char* local)
{
    return SendFile(3, name, local);
}

std::uint32_t vxWriteTextFile(char disk, const char* name, const char* local)
{
    return SendFile(4, name, local, disk);
}

std::uint32_t vxWriteStringFile(char disk, const char* name, const char* local)
{
    return SendFile(5, name, local, disk);
}

std::uint32_t vxWritePictureFile(char disk, const char* name, const char* local)
{
    return SendFile(6, name, local, disk);
}

std::uint32_t vxWriteArrPicFile(char disk, const char* name, const char* local)
{
    return SendFile(7, name, local, disk);
}

std::uint32_t vxWriteSpecFile(const char* path, const char* local)
{
    return SendFile(8, path, local);
}

std::uint32_t vxWriteSpecFileEx(const char* path, const char* local)
{
    return SendFile(13, path, local);
}

std::uint32_t vxWriteFileOptimize(const char* path, const char* local)
{
    return Call<vxWriteLED>(Required(path, local),
                            [=](vxWriteLED& sign) { return sign.SendFileWindowed(path, local); });
}

std::uint32_t vxWriteDataFlashFile(const char* local, std::uint32_t size)
{
    return Call<vxWriteLED>(Required(local), [=](vxWriteLED& sign) { return sign.SendDataFlashFile(local, size); });
}

std::uint32_t vxWriteAbsoluteAddress(std::uint8_t addrLow, std::uint8_t addrHigh, const char* local)
{
    return Call<vxWriteLED>(Required(local),
                            [=](vxWriteLED& sign) { return sign.SendAbsoluteFile(addrLow, addrHigh, local); });
}

std::uint32_t vxWriteUrgentMsg(std::uint8_t a, std::uint8_t b, const std::uint8_t* data, std::uint32_t len)
{
    return Send<vxWriteLED>({2, 9}, Payload(Fields<4>(a, Zeros<1>(), b)), Extended(Bytes(data, len)));
}

std::uint32_t vxWriteBrightCtrlBlock(const void* block)
{
    return Send<vxWriteLED>({2, 10}, Payload(Bytes(block, 12)));
}

std::uint32_t vxWriteSNMAC(const std::uint8_t* sn, std::uint32_t snSize, const std::uint8_t* mac, int macSize)
{
    constexpr std::size_t kSerialOffset = 1;
    constexpr std::size_t kSerialSize = 11;
    constexpr std::size_t kMacOffset = 16;
    std::array<std::uint8_t, 32> identity{};
    if (Required(sn, mac)) {
        identity[0] = static_cast<std::uint8_t>(std::min<std::size_t>(snSize, kSerialSize));
        std::copy_n(sn, identity[0], identity.begin() + kSerialOffset);
        const auto macLength = static_cast<std::size_t>(std::max(macSize, 0));
        std::copy_n(mac, std::min(macLength, identity.size() - kMacOffset), identity.begin() + kMacOffset);
    }
    return Call<vxWriteLED>(Required(sn, mac), [&](vxWriteLED& sign) { return sign.Request(2, 11, {}, identity); });
}

std::uint32_t vxWriteDefDisplayStyle(const void* style)
{
    return Send<vxWriteLED>({2, 12}, Payload(Bytes(style, vxApiState::kStyleSize)));
}

std::uint32_t vxWriteCRCForFile(const char* name, std::uint32_t size, std::uint16_t crc)
{
    return Send<vxWriteLED>({2, 14}, Payload(Fields<40>(Name<32>{name}, size, crc)));
}

std::uint32_t vxLCSetUpdateStatus(std::uint8_t addrLow, std::uint8_t addrHigh, std::uint8_t status)
{
    const bool good = status < 3 && !(addrLow == 1 && status == 1);
    return Call<vxWriteLED>(good, [=](vxWriteLED& sign) {
        const BoardAddress address(*sign.config, addrLow, addrHigh);
        return SendOn(sign, {2, 48}, Extended(Fields<4>(status)));
    });
}

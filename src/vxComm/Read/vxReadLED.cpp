// The exports of major 1.
#include "vxComm/Read/vxReadLED.h"

#include "vxBaseCMD/call.h"
#include "vxComm/shared/boardAddress.h"

#include <vxsign/read.h>

using namespace vxsign;

namespace {

constexpr std::uint8_t kUnset = 255;

std::uint32_t ReadFile(std::uint8_t minor, const char* name, const char* local, char disk = '\0')
{
    return Call<vxReadLED>(Required(name, local),
                           [=](vxReadLED& sign) { return sign.ReceiveFileChunks(minor, name, local, disk); });
}

// A record whose length is that of the extended part, while its bytes are taken from the payload's start on.
std::uint32_t ReadRecord(std::uint8_t minor, std::uint8_t* buf, std::uint32_t size, std::uint32_t* len)
{
    return Call<vxReadLED>(Required(buf, len), [=](vxReadLED& sign) {
        const std::uint32_t result = sign.Request(1, minor);
        if (result == VX_OK) {
            *len = static_cast<std::uint32_t>(sign.Reply().Extended().size());
            sign.Reply().Copy(buf, 0, std::min(size, *len));
        }
        return result;
    });
}

// How many ports a board has that does not say so itself.
std::uint8_t PortsOfBoard(std::uint32_t board)
{
    switch (board) {
    case 36864:
    case 37446:
        return 2;
    case 36896:
    case 37447:
    case 22578:
        return 4;
    case 36944:
        return 6;
    default:
        return 0;
    }
}

} // namespace

std::uint32_t vxReadSysFile(const char* name, const char* local)
{
    return ReadFile(2, name, local);
}

std::uint32_t vxReadFontFile(const char* name, const char* local)
{
    return ReadFile(3, name, local);
}

std::uint32_t vxReadTextFile(char disk, const char* name, const char* local)
{
    return ReadFile(4, name, local, disk);
}

std::uint32_t vxReadStringFile(char disk, const char* name, const char* local)
{
    return ReadFile(5, name, local, disk);
}

std::uint32_t vxReadPictureFile(char disk, const char* name, const char* local)
{
    return ReadFile(6, name, local, disk);
}

std::uint32_t vxReadArrPicFile(char disk, const char* name, const char* local)
{
    return ReadFile(7, name, local, disk);
}

std::uint32_t vxReadSpecPathFile(const char* path, const char* local)
{
    return ReadFile(8, path, local);
}

std::uint32_t vxReadSpecPathFileEx(const char* path, const char* local)
{
    return ReadFile(17, path, local);
}

std::uint32_t vxReadVirtualFile(const char* path, const char* local)
{
    return ReadFile(31, path, local);
}

std::uint32_t vxReadPlayLog(const char* local)
{
    return Call<vxReadLED>([=](vxReadLED& sign) { return sign.ReceiveFileChunks(9, nullptr, local); });
}

std::uint32_t vxReadWarning(const char* local)
{
    return ReadFile(8, "E:\\errors.xml", local);
}

std::uint32_t vxReadDataFlashInfo(void* out)
{
    return Send<vxReadLED>({1, 28}, Reply(OutExtended(out, 12)));
}

std::uint32_t vxReadDataFlashFile(const char* local, std::uint32_t size)
{
    return Call<vxReadLED>(Required(local), [=](vxReadLED& sign) { return sign.ReceiveDataFlash(local, size); });
}

std::uint32_t vxReadSystemSet(void* out)
{
    return Send<vxReadLED>({1, 10}, Reply(OutBytes<0>(out, 16)));
}

std::uint32_t vxReadCurrentState(std::uint64_t* state, std::uint8_t* buf, std::uint32_t size)
{
    return Send<vxReadLED>({1, 11}, Reply(Out<0>(state), Optional(OutExtended(buf, size))));
}

std::uint32_t vxGetSNMAC(std::uint8_t* sn, std::uint32_t snSize, std::uint8_t* mac, std::uint32_t macSize)
{
    constexpr std::uint32_t kSerialSize = 11;
    constexpr std::uint32_t kMacSize = 6;
    const bool good = Required(sn, mac) && snSize > kSerialSize && macSize >= kMacSize;
    return Call<vxReadLED>(good, [=](vxReadLED& sign) {
        const std::uint32_t result = sign.Request(1, 12);
        if (result == VX_OK) {
            std::memset(sn, 0, snSize);
            std::memset(mac, 0, macSize);
            sign.Reply().Copy(sn, 1, std::min<std::uint32_t>(sign.Reply().U8(0), kSerialSize));
            sign.Reply().Copy(mac, 16, kMacSize);
        }
        return result;
    });
}

std::uint32_t vxReadCPUUpdateResult()
{
    return Send<vxReadLED>({1, 15});
}

std::uint32_t vxReadDefDisplayStyle(void* style)
{
    return Send<vxReadLED>({1, 16}, Reply(OutBytes<0>(style, vxApiState::kStyleSize)));
}

std::uint32_t vxReadSystemInfo(std::uint8_t* buf, std::uint32_t size, std::uint32_t* len)
{
    return ReadRecord(18, buf, size, len);
}

std::uint32_t vxReadErrorLog(std::uint8_t* buf, std::uint32_t size, std::uint32_t* len)
{
    return ReadRecord(19, buf, size, len);
}

std::uint32_t vxReadDB(std::uint16_t id, const char* sql, void* outA, int sizeA, char* outB, std::uint32_t sizeB)
{
    const auto capacityA = static_cast<std::uint32_t>(std::max(sizeA, 0));
    return Send<vxReadLED>({1, 21}, Payload(Fields<4>(id, std::uint8_t{1})), Extended(PlainText(sql)),
                           Reply(ShortCopy(outA, capacityA), OutExtended(outB, sizeB)));
}

std::uint32_t vxReadBrightInfo(std::uint8_t* a, std::uint8_t* b, std::uint8_t* c)
{
    return Send<vxReadLED>({1, 22}, Reply(Optional(Out<0>(a)), Out<1>(b), Out<2>(c)));
}

std::uint32_t vxReadBrightInfoExt(std::uint8_t* out)
{
    return Send<vxReadLED>({1, 22}, Reply(OutExtended(out, 8)));
}

std::uint32_t vxReadStats(std::uint8_t which, std::uint8_t* buf, std::uint32_t size)
{
    return Call<vxReadLED>(size != 0, [=](vxReadLED& sign) {
        return SendOn(sign, {1, 26}, Payload(Fields<4>(which)), Reply(OutExtended(buf, size)));
    });
}

std::uint32_t vxReadPCBID(std::uint32_t* id)
{
    return Send<vxReadLED>({1, 27}, Payload(Fields<4>()), Reply(Out<0>(id)));
}

std::uint32_t vxReadPCBIDAndPort(std::uint32_t* id, std::uint8_t* ports)
{
    const std::uint32_t result = Send<vxReadLED>({1, 27}, Payload(Fields<4>()), Reply(Out<0>(id), Out<4>(ports)));
    if (result == VX_OK && *ports == 0)
        *ports = PortsOfBoard(*id);
    return result;
}

std::uint32_t vxLCReadUpdateStatus(std::uint8_t addrLow, std::uint8_t addrHigh, std::uint8_t* first,
                                   std::uint8_t* second)
{
    return Call<vxReadLED>([=](vxReadLED& sign) -> std::uint32_t {
        BoardAddress address(*sign.config, addrLow, addrHigh);
        std::uint32_t result = VX_OK;
        std::uint8_t answer = 0;
        const auto ask = [&](std::uint8_t selector) {
            return SendOn(sign, {1, 48}, Payload(Fields<4>(selector)), Reply(Out<0>(&answer)));
        };
        if (first != nullptr) {
            if (addrLow != 0)
                return VX_ARGUMENTS;
            *first = kUnset;
            result = ask(0);
            if (result != VX_OK) {
                // This failure alone leaves the board's address in the thread's record.
                address.LeaveChanged();
                return result;
            }
            if (answer == 0)
                *first = 0;
        }
        if (second != nullptr) {
            *second = kUnset;
            result = ask(1);
            if (result == VX_OK && answer == 1)
                *second = 1;
        }
        return result;
    });
}

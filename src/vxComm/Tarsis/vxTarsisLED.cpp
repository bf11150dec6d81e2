// The exports of the first tile family that need a sign.
#include "vxComm/Tarsis/vxTarsisLED.h"

#include "vxBaseCMD/call.h"

#include <vxsign/tarsis.h>

using namespace vxsign;

std::uint32_t vxTarsisGetTileStat(std::uint16_t tile, std::uint32_t* taskId)
{
    return Call<vxTarsisLED>(Required(taskId), [=](vxTarsisLED& sign) { return sign.StartStatus(tile, taskId); });
}

std::uint32_t vxTarsisGetResult(std::uint32_t taskId, std::uint8_t* buffer, std::uint32_t bufferSize,
                                std::uint16_t* status)
{
    return Call<vxTarsisLED>(Required(buffer, status), [=](vxTarsisLED& sign) {
        return sign.PollTaskResult(taskId, {buffer, bufferSize}, *status);
    });
}

std::uint32_t vxTarsisTileTest(std::uint16_t tile, std::uint8_t testCode, std::uint32_t* taskId)
{
    return Call<vxTarsisLED>(Required(taskId),
                             [=](vxTarsisLED& sign) { return sign.StartTest(tile, testCode, taskId); });
}

std::uint32_t vxTarsisWriteTileFile(const char* localPath, std::uint16_t tile, std::uint8_t fileType)
{
    return Call<vxTarsisLED>(Required(localPath),
                             [=](vxTarsisLED& sign) { return sign.WriteTileFile(localPath, tile, fileType); });
}

std::uint32_t vxTarsisReadTileFile(const char* localPath, std::uint16_t tile, std::uint8_t fileType)
{
    return Call<vxTarsisLED>(Required(localPath),
                             [=](vxTarsisLED& sign) { return sign.ReadTileFile(localPath, tile, fileType); });
}

std::uint32_t vxTarsisSetTileCmd(std::uint16_t tile, std::uint8_t command)
{
    return Call<vxTarsisLED>([=](vxTarsisLED& sign) { return sign.RunCommand(tile, command); });
}

std::uint32_t vxTarsisFMCalOpt(std::uint8_t option)
{
    return Send<vxTarsisLED>({50, option}, Payload(Fields<4>()));
}

std::uint32_t vxFlashPGMConnectCMD()
{
    return Send<vxTarsisLED>({12, 13});
}

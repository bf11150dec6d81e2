// The exports of major 96.
#include "vxBaseCMD/call.h"
#include "vxComm/families.h"

#include <vxsign/extra.h>

using namespace vxsign;

namespace {

constexpr std::uint8_t kMajor = 96;

// Functions of the board: the low byte of the destination address.
constexpr std::uint8_t kCollection = 2;
constexpr std::uint8_t kInputsOutputs = 4;

constexpr std::size_t kCollectCtrlSize = 8;
constexpr std::uint32_t kCollectReadSize = 38;
constexpr std::size_t kIoCtrlSize = 16;
constexpr std::uint32_t kIoReadSize = 68;
constexpr std::uint32_t kWifiInfoSize = 44;

// A command to a numbered board. Its address goes into the finished packet, so that the thread's record never changes.
std::uint32_t RequestBoard(vxExtraBDLED& sign, std::uint8_t minor, std::uint8_t function, std::uint8_t board,
                           std::span<const std::uint8_t> extended)
{
    std::uint8_t* const request = sign.requestBuffer;
    sign.BuildPacket(request, kMajor, minor, nullptr, 0, extended.data(), static_cast<std::uint32_t>(extended.size()));
    Store16(request + header::kDestinationAddress, static_cast<std::uint16_t>(board << 8 | function));
    sign.Seal(request);
    return sign.Exchange(request, TotalLength(request), sign.replyBuffer);
}

std::uint32_t ControlBoard(std::uint8_t minor, std::uint8_t function, std::uint8_t board, const std::uint8_t* data,
                           std::size_t length)
{
    return Call<vxExtraBDLED>(Required(data), [=](vxExtraBDLED& sign) {
        return RequestBoard(sign, minor, function, board, {data, length});
    });
}

std::uint32_t ReadBoard(std::uint8_t minor, std::uint8_t function, std::uint8_t board, std::uint8_t* buffer,
                        std::uint32_t longest)
{
    return Call<vxExtraBDLED>(Required(buffer), [=](vxExtraBDLED& sign) {
        const std::uint32_t result = RequestBoard(sign, minor, function, board, {});
        if (result == VX_OK)
            OutExtended(buffer, longest).Take(sign.Reply());
        return result;
    });
}

} // namespace

std::uint32_t vxExtraCollectCtrl(const std::uint8_t* data, std::uint8_t board)
{
    return ControlBoard(48, kCollection, board, data, kCollectCtrlSize);
}

std::uint32_t vxExtraCollectRead(std::uint8_t* buffer, std::uint8_t board)
{
    return ReadBoard(49, kCollection, board, buffer, kCollectReadSize);
}

std::uint32_t vxExtraIOCtrl(const std::uint8_t* data, std::uint8_t board)
{
    return ControlBoard(64, kInputsOutputs, board, data, kIoCtrlSize);
}

std::uint32_t vxExtraIORead(std::uint8_t* buffer, std::uint8_t board)
{
    return ReadBoard(65, kInputsOutputs, board, buffer, kIoReadSize);
}

std::uint32_t vxExtraWifiUnlock(const std::uint8_t* data, std::uint8_t length, std::uint32_t* result)
{
    return Send<vxExtraBDLED>({kMajor, 96}, Extended(Bytes(data, length)), Reply(Out<0>(result)));
}

std::uint32_t vxExtraWifiSetInfo(const std::uint8_t* wifiInfo)
{
    return Send<vxExtraBDLED>({kMajor, 97}, Extended(Bytes(wifiInfo, kWifiInfoSize)));
}

std::uint32_t vxExtraWifiGetInfo(std::uint8_t* wifiInfo)
{
    return Send<vxExtraBDLED>({kMajor, 98}, Extended(Bytes(wifiInfo, kWifiInfoSize)),
                              Reply(OutExtended(wifiInfo, kWifiInfoSize)));
}

std::uint32_t vxExtraWifiReset()
{
    return Send<vxExtraBDLED>({kMajor, 99});
}

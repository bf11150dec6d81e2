// Tasks of the control board for tiles: how they are started and waited for.
#include "vxComm/Tarsis/vxTarsisLED.h"

#include "platform/stop.h"
#include "vxBaseCMD/call.h"
#include "vxComm/shared/repeatedRequest.h"
#include "vxComm/shared/tileBlock.h"

#include <vxsign/tarsis.h>

namespace vxsign {
namespace {

constexpr std::uint8_t kMajor = 12;
constexpr std::uint16_t kLastOfFirstBus = 254;
constexpr std::uint8_t kEveryAddress = 0xFF;

constexpr std::uint32_t kPollRounds = 2999;
constexpr std::uint32_t kPollMs = 100;
constexpr std::uint32_t kFixedPercent = 10; // of a task that does not tell

// States in a progress reply. A task that has ended has a status word: its state and VX_TASK_WAITING.
constexpr std::uint8_t kWaiting = 0;
constexpr std::uint8_t kSucceeded = 1;
constexpr std::uint8_t kProcessing = 3;

// Above 494 only what passes for all tiles.
bool IsTileOrAll(std::uint16_t tile)
{
    return tile <= VX_LAST_TILE || tile == VX_ALL_TILES;
}

// Whether replyBuffer has a reply that was checked, be it a refusal.
bool IsAnswered(std::uint32_t result)
{
    return result != VX_COMMUNICATION && result != VX_ABORTED;
}

std::uint32_t Percentage(std::uint32_t done, std::uint32_t total)
{
    return total != 0 ? done * 100 / total : 0;
}

} // namespace

// Tells the control board the bus, for this and for later requests of the thread, and returns the address on it.
std::uint8_t vxTarsisLED::SelectTile(std::uint16_t tile)
{
    const bool second = tile > kLastOfFirstBus;
    config->sourceAddress = second ? 1 : 0;
    return static_cast<std::uint8_t>(second ? tile - kLastOfFirstBus : tile);
}

std::uint8_t vxTarsisLED::SelectAllTiles()
{
    config->sourceAddress = 0;
    return kEveryAddress;
}

std::uint32_t vxTarsisLED::StartStatus(std::uint16_t tile, std::uint32_t* taskId)
{
    if (tile > VX_LAST_TILE)
        return VX_ARGUMENTS;
    return SendOn(*this, {kMajor, 7}, Payload(Fields<4>(SelectTile(tile))), vxsign::Reply(OutIfThere(taskId)));
}

std::uint32_t vxTarsisLED::StartTest(std::uint16_t tile, std::uint8_t testCode, std::uint32_t* taskId)
{
    if (!IsTileOrAll(tile))
        return VX_ARGUMENTS;
    const std::uint8_t address = tile == VX_ALL_TILES ? SelectAllTiles() : SelectTile(tile);
    return SendOn(*this, {kMajor, 9}, Payload(Fields<4>(address, testCode)), vxsign::Reply(OutIfThere(taskId)));
}

// 65535 is no broadcast here: it goes out like any other number, as address 1 of the second bus.
std::uint32_t vxTarsisLED::RunCommand(std::uint16_t tile, std::uint8_t command)
{
    if (!IsTileOrAll(tile))
        return VX_ARGUMENTS;
    std::uint32_t task = 0;
    const std::uint32_t result =
        SendOn(*this, {kMajor, 11}, Payload(Fields<4>(SelectTile(tile), command)), vxsign::Reply(OutIfThere(&task)));
    return result == VX_OK ? PollTaskProgress(task) : result;
}

std::uint32_t vxTarsisLED::StartInstall(std::uint16_t tile, const char* signPath, std::uint32_t flashOffset,
                                        std::uint32_t* taskId)
{
    if (!IsTileOrAll(tile))
        return VX_ARGUMENTS;
    return SendOn(*this, {kMajor, 15}, Payload(Fields<8>(flashOffset, Zeros<2>(), SelectTile(tile))),
                  Extended(TerminatedText(signPath, kLongestExtended)), vxsign::Reply(OutIfThere(taskId)));
}

std::uint32_t vxTarsisLED::StartReadBlock(std::uint16_t tile, std::uint32_t flashOffset, std::uint32_t* taskId)
{
    return SendOn(*this, {kMajor, 1}, Payload(Fields<8>(flashOffset, kTileChunk, SelectTile(tile))),
                  vxsign::Reply(OutIfThere(taskId)));
}

std::uint32_t vxTarsisLED::PollTaskResult(std::uint32_t taskId, std::span<std::uint8_t> out, std::uint16_t& status)
{
    const Fields<4> question(taskId);
    const std::span<const std::uint8_t> payload = question;
    BuildPacket(requestBuffer, kMajor, 2, payload.data(), 4, nullptr, 0);
    const RepeatedRequest query(*this);
    std::uint32_t result = query.Exchange();
    for (std::uint32_t rounds = kPollRounds;;) {
        // A refusal does not end the wait: its code may be the word of a task that goes on.
        const bool answered = IsAnswered(result);
        const std::size_t length = answered ? Reply().Extended().size() : 0;
        status = answered ? Reply().U16(0) : std::uint16_t{0};
        if (length > sizeof status) {
            Reply().Copy(out.data(), 0, std::min(out.size(), length));
            status = VX_TASK_SUCCESS;
            return result;
        }
        if (status != VX_TASK_WAITING && status != VX_TASK_PROCESSING)
            return result;
        Progress(kFixedPercent);
        platform::Rest(kPollMs);
        result = query.Exchange();
        if (--rounds == 0)
            return result;
    }
}

std::uint32_t vxTarsisLED::PollTaskProgress(std::uint32_t taskId)
{
    const Fields<8> question(taskId);
    const std::span<const std::uint8_t> payload = question;
    BuildPacket(requestBuffer, kMajor, 4, payload.data(), 8, nullptr, 0);
    const RepeatedRequest query(*this);
    std::uint32_t result = query.Exchange();
    bool ended = false;
    std::uint32_t status = VX_OK; // of a task that goes on its bare state
    for (std::uint32_t round = 0; round < kPollRounds && !ended && result == VX_OK; ++round) {
        const ReplyView reply = Reply();
        const std::uint8_t taskState = reply.U8(11);
        ended = taskState != kWaiting && taskState != kProcessing;
        status = taskState;
        if (taskState == kSucceeded)
            status = VX_OK;
        else if (ended)
            status += VX_TASK_WAITING;
        else
            Progress(Percentage(reply.U32(5), reply.U32(1)));
        // The board is asked once more after the end too, and that answer is the result.
        platform::Rest(kPollMs);
        result = query.Exchange();
    }
    const bool failed = ended && status != VX_OK;
    return result == VX_OK || failed ? status : result;
}

} // namespace vxsign

#include "sim/boards/extraBoards.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace vxsim {
namespace {

enum : std::uint8_t
{
    kCollectControl = 48,
    kCollectRead = 49,
    kOutputs = 64,
    kInputs = 65,
    kWifiUnlock = 96,
    kWifiSet = 97,
    kWifiGet = 98,
    kWifiReset = 99
};

// Functions of a board, in the low byte of the destination; the high byte is the number of the board.
constexpr std::uint8_t kCollection = 2;
constexpr std::uint8_t kInputsOutputs = 4;
constexpr std::size_t kBoards = 16;

// What a board keeps: 8 bytes for the collection, then its outputs.
constexpr std::size_t kCollectSize = 8;
constexpr std::size_t kOutputCount = 16;
constexpr std::size_t kBoardSize = kCollectSize + kOutputCount;

constexpr std::size_t kCollected = 38;
constexpr std::size_t kInputRecord = 68;
constexpr std::size_t kInputCount = 16;
constexpr std::size_t kWired = 8; // inputs that show outputs, behind those of the sign

// The Wi-Fi block: mode, channel, name, key.
constexpr std::size_t kWifiSize = 44;
constexpr std::size_t kWifiName = 4;
constexpr std::size_t kWifiKey = 24;

std::vector<std::uint8_t> InitialWifi()
{
    constexpr std::string_view kName = "VXSIGN";
    std::vector<std::uint8_t> block(kWifiSize);
    block[0] = 1;
    block[1] = 6;
    std::ranges::copy(kName, block.begin() + kWifiName);
    return block;
}

} // namespace

ExtraBoards::ExtraBoards(const std::filesystem::path& keptFolder)
    : boards(keptFolder / "extra-boards.bin", std::vector<std::uint8_t>(kBoards * kBoardSize)),
      wifi(keptFolder / "extra-wifi.bin", InitialWifi())
{
}

Reply ExtraBoards::Execute(const Frame& request, const SignState& state)
{
    const auto function = static_cast<std::uint8_t>(request.destination);
    const std::size_t board = request.destination >> 8U;
    const auto at = [&](std::uint8_t wanted) { return function == wanted && board < kBoards; };
    switch (request.minor) {
    case kCollectControl:
        return at(kCollection) ? Control(request, board) : Reply::WithCode(Code::kNoSuchAddress);
    case kCollectRead:
        return at(kCollection) ? Collect(state, board) : Reply::WithCode(Code::kNoSuchAddress);
    case kOutputs:
        return at(kInputsOutputs) ? Control(request, board) : Reply::WithCode(Code::kNoSuchAddress);
    case kInputs:
        return at(kInputsOutputs) ? ReadInputs(state, board) : Reply::WithCode(Code::kNoSuchAddress);
    default:
        return Wifi(request);
    }
}

Reply ExtraBoards::Control(const Frame& request, std::size_t board)
{
    const bool outputs = request.minor == kOutputs;
    const std::size_t size = outputs ? kOutputCount : kCollectSize;
    if (request.extended.size() < size)
        return Reply::WithCode(Code::kBadLength);
    std::vector<std::uint8_t> record(boards.Bytes().begin(), boards.Bytes().end());
    const std::size_t at = board * kBoardSize + (outputs ? kCollectSize : 0);
    std::copy_n(request.extended.begin(), size, record.begin() + static_cast<std::ptrdiff_t>(at));
    return boards.Set(record) ? Reply::Done() : Reply::WithCode(Code::kWriteFailed);
}

// Temperatures outside, inside, of the hottest tile, in tenths of a degree; humidity and light; the board's own
// settings.
Reply ExtraBoards::Collect(const SignState& state, std::size_t board) const
{
    std::array<std::uint8_t, kCollected> record{};
    const auto tenths = [&](std::size_t place) {
        return static_cast<std::uint16_t>(static_cast<std::int8_t>(state.word.at(place)) * 10);
    };
    Store16(record, 0, tenths(2));
    Store16(record, 2, tenths(1));
    Store16(record, 4, tenths(4));
    Store16(record, 6, state.word[6]);
    Store16(record, 8, state.record[15]);
    std::ranges::copy(Settings(board), record.begin() + 10);
    return Reply::WithExtended(record);
}

// Inputs of the sign, of the wires, then the outputs.
Reply ExtraBoards::ReadInputs(const SignState& state, std::size_t board) const
{
    constexpr std::uint8_t kTold[] = {Monitor::kDoorOpen, Monitor::kHotTiles, Monitor::kBadPixels, Monitor::kNoPower,
                                      Monitor::kFaceDark};
    std::array<std::uint8_t, kInputRecord> record{};
    for (std::size_t i = 0; i < std::size(kTold); ++i)
        record.at(i) = (state.word[0] & kTold[i]) != 0 ? 1 : 0;
    const auto outputs = Outputs(board);
    for (std::size_t i = 0; i < kWired; ++i)
        record.at(kInputCount - kWired + i) = outputs[i] != 0 ? 1 : 0;
    std::ranges::copy(outputs, record.begin() + kInputCount);
    return Reply::WithExtended(record);
}

Reply ExtraBoards::Wifi(const Frame& request)
{
    switch (request.minor) {
    case kWifiUnlock:
        return Unlock(request);
    case kWifiSet:
        if (request.extended.size() < kWifiSize)
            return Reply::WithCode(Code::kBadLength);
        if (!unlocked && !Key().empty())
            return Reply::WithCode(Code::kWrongPassword);
        return wifi.Set(request.extended) ? Reply::Done() : Reply::WithCode(Code::kWriteFailed);
    case kWifiGet:
        if (request.extended.size() < kWifiSize)
            return Reply::WithCode(Code::kBadLength);
        return Reply::WithExtended(wifi.Bytes());
    case kWifiReset: // starts again, and wants its key again
        unlocked = false;
        return Reply::Done();
    default:
        return Reply::WithCode(Code::kUnknownMinor);
    }
}

// The key of the block opens the module, and anything does where there is none.
Reply ExtraBoards::Unlock(const Frame& request)
{
    unlocked = Key().empty() || std::ranges::equal(request.extended, Key());
    const std::array<std::uint8_t, 4> answer{unlocked};
    return Reply::WithPayload(answer);
}

std::span<const std::uint8_t> ExtraBoards::Settings(std::size_t board) const
{
    return boards.Bytes().subspan(board * kBoardSize, kCollectSize);
}

std::span<const std::uint8_t> ExtraBoards::Outputs(std::size_t board) const
{
    return boards.Bytes().subspan(board * kBoardSize + kCollectSize, kOutputCount);
}

std::span<const std::uint8_t> ExtraBoards::Key() const
{
    const auto field = wifi.Bytes().subspan(kWifiKey);
    return field.first(static_cast<std::size_t>(std::ranges::find(field, 0) - field.begin()));
}

} // namespace vxsim

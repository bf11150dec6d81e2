#include "sim/boards/extraBoards.h"

#include "sim/protocol/bytes.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace vxsim {
namespace {

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

// The board that is addressed; nothing if it is none, or one without this function.
std::optional<std::size_t> BoardOf(const Call& call, std::uint8_t function)
{
    const std::size_t board = call.destination >> 8U;
    return static_cast<std::uint8_t>(call.destination) == function && board < kBoards ? std::optional(board)
                                                                                      : std::nullopt;
}

} // namespace

ExtraBoards::ExtraBoards(const std::filesystem::path& keptFolder, const Monitor& watch)
    : monitor(watch), boards(keptFolder / "extra-boards.bin", std::vector<std::uint8_t>(kBoards * kBoardSize)),
      wifi(keptFolder / "extra-wifi.bin", InitialWifi())
{
}

std::span<const CommandRow> ExtraBoards::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {96, 48, "set collection", 0, kCollectSize, kUnlogged, Run<&ExtraBoards::SetCollection>, "keeps 8 bytes"},
        {96, 49, "read collection", 0, 0, kUnlogged, Run<&ExtraBoards::Collect>,
         "measurements, 38 bytes: temperature outside, inside, of the hottest tile (16 bits each, tenths of a degree), "
         "humidity in percent, light in eighths (16 bits each), the 8 bytes, 0"},
        {96, 64, "set outputs", 0, kOutputCount, kLogged, Run<&ExtraBoards::SetOutputs>, "16 outputs, a byte each"},
        {96, 65, "read inputs", 0, 0, kUnlogged, Run<&ExtraBoards::ReadInputs>,
         "16 inputs, 16 outputs, 36 bytes 0. Inputs 0 to 4 are 1 for door open, hot tile, bad pixel, no power, dark "
         "face; 8 to 15 are wired to outputs 0 to 7"},
        {96, 96, "unlock Wi-Fi", 0, 0, kUnlogged, Run<&ExtraBoards::UnlockWifi>,
         "unlocks the Wi-Fi module with its key, and any bytes do where there is none; 1 if it is open now"},
        {96, 97, "set Wi-Fi", 0, kWifiSize, kUnlogged, Run<&ExtraBoards::SetWifi>,
         "sets, when unlocked or without a key, the Wi-Fi block: mode (0 off, 1 access point, 2 station), channel, 2 "
         "bytes, name and key of 20 bytes each. New: access point, channel 6, `VXSIGN`, no key"},
        {96, 98, "get Wi-Fi", 0, kWifiSize, kUnlogged, Run<&ExtraBoards::GetWifi>, "gives the Wi-Fi block"},
        {96, 99, "reset Wi-Fi", 0, 0, kUnlogged, Run<&ExtraBoards::ResetWifi>, "locks the module again"},
    };
    return kRows;
}

Reply ExtraBoards::SetCollection(const Call& call)
{
    const auto board = BoardOf(call, kCollection);
    return board ? Keep(call.extended.first(kCollectSize), *board * kBoardSize) : Reply::WithCode(Code::kNoSuchAddress);
}

Reply ExtraBoards::SetOutputs(const Call& call)
{
    const auto board = BoardOf(call, kInputsOutputs);
    return board ? Keep(call.extended.first(kOutputCount), *board * kBoardSize + kCollectSize)
                 : Reply::WithCode(Code::kNoSuchAddress);
}

Reply ExtraBoards::Keep(std::span<const std::uint8_t> bytes, std::size_t at)
{
    std::vector<std::uint8_t> record(boards.Bytes().begin(), boards.Bytes().end());
    std::ranges::copy(bytes, record.begin() + static_cast<std::ptrdiff_t>(at));
    return boards.Set(record) ? Reply::Done() : Reply::WithCode(Code::kWriteFailed);
}

// Temperatures outside, inside, of the hottest tile, in tenths of a degree; humidity and light; the board's own
// settings.
Reply ExtraBoards::Collect(const Call& call)
{
    const auto board = BoardOf(call, kCollection);
    if (!board)
        return Reply::WithCode(Code::kNoSuchAddress);
    const SignState state = monitor.StateAt(call.nowMs);
    std::array<std::uint8_t, kCollected> record{};
    const auto tenths = [&](std::size_t place) {
        return static_cast<std::uint16_t>(static_cast<std::int8_t>(state.word.at(place)) * 10);
    };
    Store16(record, 0, tenths(2));
    Store16(record, 2, tenths(1));
    Store16(record, 4, tenths(4));
    Store16(record, 6, state.word[6]);
    Store16(record, 8, state.record[15]);
    std::ranges::copy(Settings(*board), record.begin() + 10);
    return Reply::WithExtended(record);
}

// Inputs of the sign, of the wires, then the outputs.
Reply ExtraBoards::ReadInputs(const Call& call)
{
    constexpr std::uint8_t kTold[] = {Monitor::kDoorOpen, Monitor::kHotTiles, Monitor::kBadPixels, Monitor::kNoPower,
                                      Monitor::kFaceDark};
    const auto board = BoardOf(call, kInputsOutputs);
    if (!board)
        return Reply::WithCode(Code::kNoSuchAddress);
    const SignState state = monitor.StateAt(call.nowMs);
    std::array<std::uint8_t, kInputRecord> record{};
    for (std::size_t i = 0; i < std::size(kTold); ++i)
        record.at(i) = (state.word[0] & kTold[i]) != 0 ? 1 : 0;
    const auto outputs = Outputs(*board);
    for (std::size_t i = 0; i < kWired; ++i)
        record.at(kInputCount - kWired + i) = outputs[i] != 0 ? 1 : 0;
    std::ranges::copy(outputs, record.begin() + kInputCount);
    return Reply::WithExtended(record);
}

// The key of the block opens the module, and anything does where there is none.
Reply ExtraBoards::UnlockWifi(const Call& call)
{
    unlocked = Key().empty() || std::ranges::equal(call.extended, Key());
    return Reply::WithPayload(std::array<std::uint8_t, 4>{unlocked});
}

Reply ExtraBoards::SetWifi(const Call& call)
{
    if (!unlocked && !Key().empty())
        return Reply::WithCode(Code::kWrongPassword);
    return wifi.Set(call.extended) ? Reply::Done() : Reply::WithCode(Code::kWriteFailed);
}

Reply ExtraBoards::GetWifi(const Call&)
{
    return Reply::WithExtended(wifi.Bytes());
}

// Starts again, and wants its key again.
Reply ExtraBoards::ResetWifi(const Call&)
{
    unlocked = false;
    return Reply::Done();
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

#include "sim/boards/boardUpdates.h"

#include "sim/platform/descriptor.h"
#include "sim/protocol/bytes.h"

#include <array>
#include <cstdio>
#include <fcntl.h>
#include <unistd.h>

namespace vxsim {
namespace {

constexpr std::uint32_t kBoardNumber = 36896;
constexpr std::uint8_t kBoardPorts = 4;
constexpr std::size_t kMostBoards = 256;
// The memory of a board that takes blocks at absolute addresses.
constexpr std::size_t kMostBlock = 1024;
constexpr std::size_t kMemory = 16U << 20;

} // namespace

std::span<const CommandRow> BoardUpdates::Commands() const
{
    static constexpr CommandRow kRows[] = {
        {1, 27, "read board number", 0, 0, kUnlogged, Run<&BoardUpdates::TellBoardNumber>,
         "board number 36896 with 4 ports"},
        {1, 48, "read update state", 1, 0, kUnlogged, Run<&BoardUpdates::TellState>,
         "selector 0: the update state of the addressed board; selector 1: 1 if that is not 0"},
        {2, 1, "write board", 4, 0, kUnlogged, Run<&BoardUpdates::WriteBoard>,
         "takes a block of up to 1024 bytes for the addressed board, below 16 MB; the block at 0 begins a new image"},
        {2, 48, "write update state", 0, 4, kUnlogged, Run<&BoardUpdates::KeepState>,
         "takes the update state of the addressed board"},
    };
    return kRows;
}

Reply BoardUpdates::TellBoardNumber(const Call&)
{
    std::array<std::uint8_t, 8> record{};
    Store32(record, 0, kBoardNumber);
    record[4] = kBoardPorts;
    return Reply::WithPayload(record);
}

// Selector 0 asks what state a board is in, 0 being none; selector 1 whether it waits for an update.
Reply BoardUpdates::TellState(const Call& call)
{
    const auto known = states.find(call.destination);
    const std::uint8_t state = known == states.end() ? std::uint8_t{0} : known->second;
    std::array<std::uint8_t, 4> record{};
    record[0] = call.payload[0] == 0 ? state : static_cast<std::uint8_t>(state != 0);
    return Reply::WithPayload(record);
}

// The first block begins a new image; there is no last one, so all go straight to the board's file.
Reply BoardUpdates::WriteBoard(const Call& call)
{
    if (call.extended.empty() || call.extended.size() > kMostBlock)
        return Reply::WithCode(Code::kBadPacketSize);
    const std::uint32_t offset = Load32(call.payload, 0);
    if (offset > kMemory - call.extended.size())
        return Reply::WithCode(Code::kBadAddress);
    std::array<char, 32> name{};
    std::snprintf(name.data(), name.size(), "board-%04X.bin", call.destination);
    const Descriptor file(
        ::open((folder / name.data()).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC | (offset == 0 ? O_TRUNC : 0), 0666));
    if (!file)
        return Reply::WithCode(Code::kOpenFailed);
    const auto written = ::pwrite(file.Get(), call.extended.data(), call.extended.size(), static_cast<off_t>(offset));
    return Reply::WithCode(written == static_cast<ssize_t>(call.extended.size()) ? Code::kOk : Code::kWriteFailed);
}

Reply BoardUpdates::KeepState(const Call& call)
{
    if (states.size() == kMostBoards && !states.contains(call.destination))
        return Reply::WithCode(Code::kNoSpace);
    states[call.destination] = call.extended[0];
    return Reply::Done();
}

} // namespace vxsim

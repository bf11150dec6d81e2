#pragma once

#include "sim/files/storedRecord.h"
#include "sim/monitor/monitor.h"
#include "sim/protocol/frame.h"
#include "sim/protocol/reply.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace vxsim {

// Major 96: boards behind the control board. Each collects measurements and has 16 inputs and outputs; the first eight
// inputs tell of the sign, the others are wired to the first eight outputs. One Wi-Fi module serves them all.
class ExtraBoards
{
public:
    explicit ExtraBoards(const std::filesystem::path& keptFolder);

    Reply Execute(const Frame& request, const SignState& state);

private:
    Reply Control(const Frame& request, std::size_t board);
    Reply Collect(const SignState& state, std::size_t board) const;
    Reply ReadInputs(const SignState& state, std::size_t board) const;
    Reply Wifi(const Frame& request);
    Reply Unlock(const Frame& request);

    std::span<const std::uint8_t> Settings(std::size_t board) const;
    std::span<const std::uint8_t> Outputs(std::size_t board) const;
    std::span<const std::uint8_t> Key() const;

    StoredRecord boards;
    StoredRecord wifi;
    bool unlocked = false;
};

} // namespace vxsim

// Commands of the extra boards behind the control board.
#pragma once

#include "sim/command/commandFamily.h"
#include "sim/files/storedRecord.h"
#include "sim/monitor/monitor.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace vxsim {

// Major 96: boards behind the control board. Each collects measurements and has 16 inputs and outputs; the first eight
// inputs tell of the sign, the others are wired to the first eight outputs. One Wi-Fi module serves them all.
class ExtraBoards : public CommandFamily
{
public:
    ExtraBoards(const std::filesystem::path& keptFolder, const Monitor& monitor);

    std::span<const CommandRow> Commands() const override;

private:
    Reply SetCollection(const Call& call);
    Reply Collect(const Call& call);
    Reply SetOutputs(const Call& call);
    Reply ReadInputs(const Call& call);
    Reply UnlockWifi(const Call& call);
    Reply SetWifi(const Call& call);
    Reply GetWifi(const Call& call);
    Reply ResetWifi(const Call& call);

    Reply Keep(std::span<const std::uint8_t> bytes, std::size_t at);
    std::span<const std::uint8_t> Settings(std::size_t board) const;
    std::span<const std::uint8_t> Outputs(std::size_t board) const;
    std::span<const std::uint8_t> Key() const;

    const Monitor& monitor;
    StoredRecord boards;
    StoredRecord wifi;
    bool unlocked = false;
};

} // namespace vxsim

// Commands that bring images to the boards of the sign, and keep the state of their updates.
#pragma once

#include "sim/command/commandFamily.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <span>
#include <utility>

namespace vxsim {

class BoardUpdates : public CommandFamily
{
public:
    // Keeps the images in the folder.
    explicit BoardUpdates(std::filesystem::path keptFolder) : folder(std::move(keptFolder)) {}

    std::span<const CommandRow> Commands() const override;

private:
    Reply TellBoardNumber(const Call& call);
    Reply TellState(const Call& call);
    Reply WriteBoard(const Call& call);
    Reply KeepState(const Call& call);

    std::filesystem::path folder;
    std::map<std::uint16_t, std::uint8_t> states; // by the address of the board
};

} // namespace vxsim

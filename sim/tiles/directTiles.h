// Commands for one tile itself, or for all of a port.
#pragma once

#include "sim/tiles/tileCommands.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace vxsim {

// Major 124, in packets with a sync of their own: one tile, named by the destination and a port. It answers at once,
// and files come and go in pieces.
class DirectTiles : public TileCommands
{
public:
    using TileCommands::TileCommands;

    std::span<const CommandRow> Commands() const override;

    // Forgets files that have not come in full.
    void Restart(std::uint64_t nowMs, bool isCold) override;

private:
    // A file on its way to a tile or to all of a port.
    struct Upload
    {
        std::uint8_t port = 0;
        std::uint16_t address = 0;
        std::uint8_t fileType = 0;
        std::size_t size = 0;
        std::vector<std::uint8_t> bytes; // that have come
        std::optional<Code> end;         // what the last piece was answered with
    };

    Reply ReadPiece(const Call& call);
    Reply WritePiece(const Call& call);
    Reply Command(const Call& call);
    Reply Test(const Call& call);

    Code BeginUpload(const Call& call);
    template <typename Act>
    TaskState OnEach(const Call& call, Act act) const;

    std::vector<Upload> uploads; // the latest last
};

} // namespace vxsim

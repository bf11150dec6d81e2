// Packets of a host in a stream.
#pragma once

#include "sim/protocol/frame.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <utility>
#include <vector>

namespace vxsim {

// Finds requests in a stream of bytes that arrives in pieces of any size, with noise before, between and inside them.
// Holds no more than one longest request and what was appended last.
class FrameFinder
{
public:
    void Append(std::span<const std::uint8_t> bytes);

    // The next whole, correct request, or nothing until more bytes come. Its parts stay valid until the next call of
    // Append. Append is meant to be called after Next has given nothing.
    std::optional<Frame> Next();

    // The line has fallen silent in the middle of what looked like a request: it was noise. Next then looks behind it.
    void GiveUp();

    // As if nothing had been appended.
    void Clear();

    // True while the beginning of a possible request waits for its rest.
    bool IsWaiting() const { return start != bytes.size(); }

    // From now on what is passed over is kept for TakeSkipped.
    void KeepSkipped() { keepsSkipped = true; }
    // What was passed over since the last call.
    std::vector<std::uint8_t> TakeSkipped() { return std::exchange(kept, {}); }

private:
    bool SeekSync();
    void Skip(std::size_t count);

    std::vector<std::uint8_t> bytes;
    std::size_t start = 0; // of what is not yet consumed
    bool keepsSkipped = false;
    std::vector<std::uint8_t> kept;
};

} // namespace vxsim

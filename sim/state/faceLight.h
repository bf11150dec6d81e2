// The light of the face.
#pragma once

#include "sim/files/storedRecord.h"
#include "sim/state/signClock.h"

#include <cstdint>
#include <filesystem>
#include <span>

namespace vxsim {

inline constexpr std::size_t kBrightnessSize = 12;

// Whether the face has light, and how much: power, blanking, restarts and brightness.
class FaceLight
{
public:
    // The file keeps the brightness block, which has a level for each two hours of the sign's day.
    FaceLight(const std::filesystem::path& file, const SignClock& clock);

    bool IsOn() const { return on; }
    void Switch(bool isOn) { on = isOn; }

    bool IsBlack() const { return black; }
    void SetBlack(bool isBlack) { black = isBlack; }

    // Dark until the sign has restarted.
    void Restart(std::uint64_t untilMs) { darkUntilMs = untilMs; }

    bool IsRestarting(std::uint64_t nowMs) const { return nowMs < darkUntilMs; }

    // Whether the face is dark at that time, whatever plays.
    bool IsDark(std::uint64_t nowMs) const { return black || !on || IsRestarting(nowMs); }

    // Of the front: eighths of full light, or 0 for what the block says.
    void SetLevel(std::uint8_t eighths);
    bool IsFixed() const { return level != 0; }

    // Eighths of full light, 1 to 8.
    std::uint8_t LevelAt(std::uint64_t nowMs) const;

    std::span<const std::uint8_t> Block() const { return block.Bytes(); }
    bool SetBlock(std::span<const std::uint8_t> bytes) { return block.Set(bytes); } // as StoredRecord::Set

    // As after switching the sign off and on.
    void Forget();

private:
    const SignClock& clock;
    StoredRecord block;
    bool on = true;
    bool black = false;
    std::uint8_t level = 0;
    std::uint64_t darkUntilMs = 0;
};

} // namespace vxsim

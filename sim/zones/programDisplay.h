// What the player core needs of whatever shows its programs.
#pragma once

#include "sim/zones/faceArea.h"
#include "sim/zones/programStore.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace vxsim {

// Where programs play, each place one at a time: over the whole face, in the windows, and for an emergency over
// everything else.
inline constexpr std::size_t kProgramWindows = 4;
enum class ProgramPlace : std::uint8_t
{
    kFace,
    kEmergency,
    kFirstWindow // and the others behind it
};
inline constexpr std::size_t kProgramPlaces = 2 + kProgramWindows;

constexpr ProgramPlace WindowPlace(std::size_t index)
{
    return static_cast<ProgramPlace>(static_cast<std::size_t>(ProgramPlace::kFirstWindow) + index);
}

// Shows programs, for the commands that steer them. Times are those of Arrival.
class ProgramDisplay
{
public:
    virtual ~ProgramDisplay() = default;

    // Plays the files in that part of the face, again and again or `once`, in place of what plays there.
    virtual void Begin(ProgramPlace place, const FaceArea& area, const std::vector<ProgramFile>& files, bool once,
                       std::uint64_t nowMs) = 0;
    virtual void End(ProgramPlace place) = 0;

    // Sign path of the file that plays there, empty while none can be shown; nothing if no program plays there any
    // more.
    virtual std::optional<std::string> CurrentFile(ProgramPlace place, std::uint64_t nowMs) = 0;
};

} // namespace vxsim
